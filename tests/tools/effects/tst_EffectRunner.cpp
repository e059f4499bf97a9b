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
    QString compute(int count)
    {
        while (count-- > 0)
            finish({});
        return std::exchange(log, {});
    }

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
        QCOMPARE(runner.compute(3), QStringLiteral("aba!ab!a!"));
        QCOMPARE(runner.left(), 0);

        runner.request(&a);
        runner.request(&b);
        runner.requestAnew(&b); // waits, and is computed from what it is then
        runner.requestAnew(&a);
        QCOMPARE(runner.compute(3), QStringLiteral("abab!a!"));

        runner.request(&a);
        runner.request(&b);
        runner.drop();
        QCOMPARE(runner.compute(1), QStringLiteral("a"));
        QCOMPARE(runner.left(), 0);
        runner.request(&b);
        QCOMPARE(runner.compute(1), QStringLiteral("bb!"));
    }
};

QTEST_GUILESS_MAIN(TestEffectRunner)
#include "tst_EffectRunner.moc"
