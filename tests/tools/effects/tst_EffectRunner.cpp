#include "support/Documents.h"
#include "tools/effects/EffectRunner.h"

#include "model/Body.h"
#include "model/Project.h"
#include "model/properties/PropertyT.h"

#include <QTest>

namespace {

// Computes when the test says so, and writes down what is begun and what comes out.
class HandDriven : public EffectRunner
{
public:
    HandDriven()
    {
        connect(this, &EffectRunner::computed, [this](const Body *body) {
            log += body->name().value() + QLatin1Char('!');
        });
    }
    void waitForResult(std::chrono::milliseconds /*patience*/) override { finish({}); }
    void computeOne() { waitForResult({}); }
    QString takeLog() { return std::exchange(log, {}); }

    QString log;

protected:
    void start(const Body &body) override { log += body.name().value(); }
};

} // namespace

class TestEffectRunner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bodiesTakeTurns()
    {
        Project project;
        Body &a = addBody(project, QStringLiteral("a"));
        Body &b = addBody(project, QStringLiteral("b"));
        HandDriven runner;
        // The second request for a is made while it is computed: it comes after b.
        for (Body *body : {&a, &b, &b, &a, &b})
            runner.request(body);
        QCOMPARE(runner.left(), 3);
        for (int left = 2; left >= 0; --left) {
            runner.computeOne();
            QCOMPARE(runner.left(), left);
        }
        QCOMPARE(runner.takeLog(), QStringLiteral("aba!ab!a!"));

        runner.request(&a);
        runner.request(&b);
        runner.requestAnew(&b); // waits, and is computed from what it is then
        runner.requestAnew(&a);
        for (int i = 0; i < 3; ++i)
            runner.computeOne();
        QCOMPARE(runner.takeLog(), QStringLiteral("abab!a!"));

        runner.request(&a);
        runner.request(&b);
        runner.drop();
        runner.computeOne();
        QCOMPARE(runner.left(), 0);
        QCOMPARE(runner.takeLog(), QStringLiteral("a"));
        runner.request(&b);
        runner.computeOne();
        QCOMPARE(runner.takeLog(), QStringLiteral("bb!"));
    }
};

QTEST_GUILESS_MAIN(TestEffectRunner)
#include "tst_EffectRunner.moc"
