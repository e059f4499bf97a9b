#include "model/PixelSelectionModel.h"

#include "imaging/SelectionMasks.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/properties/PropertyT.h"
#include "support/Documents.h"
#include "support/Pictures.h"

#include <QTest>

/// Three bodies of 1, 2 and 3 pixels, of which the second is the current one.
class TestPixelSelectionModel : public QObject
{
    Q_OBJECT

    using Seen = std::pair<Body *, FloatImage>;
    using Changes = QVector<Seen>;

    Changes takeSeen() { return std::exchange(m_seen, {}); }
    GUndoStack &stack() { return m_project->undoStack(); }
    void select(Body *body, const FloatImage &mask, bool mergeable = false)
    {
        m_model->setSelection(body, mask, QStringLiteral("drag"), mergeable);
    }

    std::unique_ptr<Project> m_project;
    std::unique_ptr<PixelSelectionModel> m_model;
    QList<Body *> m_bodies;
    Changes m_seen;

private Q_SLOTS:
    void init()
    {
        m_project = std::make_unique<Project>();
        m_model = std::make_unique<PixelSelectionModel>();
        m_model->setProject(m_project.get());
        m_bodies.clear();
        for (const int width : {1, 2, 3}) {
            m_bodies.append(&addBody(*m_project, QStringLiteral("body")));
            m_bodies.last()->paintedNormalMap().setValue(encode(AngleImage(width, 1)));
        }
        m_model->setBody(m_bodies[1]);
        m_seen.clear();
        connect(m_model.get(),
                &PixelSelectionModel::selectionChanged,
                this,
                [this](Body *body, const FloatImage &mask) {
                    m_seen.append({body, mask});
                });
    }

    // Each a macro whose steps chain, but are steps of their own.
    void currentBodyLast()
    {
        select(m_bodies[1], floats({{0.25F, 1}}));
        m_seen.clear();
        m_model->invert({m_bodies[2], m_bodies[1], m_bodies[0]});
        QCOMPARE(
            takeSeen(),
            Changes({{m_bodies[2], {}}, {m_bodies[0], {}}, {m_bodies[1], floats({{0.75F, 0}})}}));
        m_model->selectAll(m_bodies);
        QCOMPARE(takeSeen(),
                 Changes({{m_bodies[0], fullSelection({1, 1})},
                          {m_bodies[2], fullSelection({3, 1})},
                          {m_bodies[1], fullSelection({2, 1})}}));
        QCOMPARE(stack().command(2)->childCount(), 3);
        stack().undo();
        QCOMPARE(m_seen.last(), Seen(m_bodies[1], floats({{0.75F, 0}})));
        m_model->clear(m_bodies);
        QCOMPARE(m_seen.last(), Seen(m_bodies[1], {}));
        QVERIFY(!stack().isModified());
    }

    // Against whole copies, and the rule by which steps merge.
    void anyOrderOfGesturesComesBackExactly()
    {
        struct Step
        {
            Seen before, after;
            bool isOpen;
        };
        std::mt19937 random(3);
        QVector<Step> steps;
        int now = 0;
        const auto present = [this] { return Seen(m_model->body(), m_model->selection()); };
        for (int action = 0; action < 3000; ++action) {
            Body *body = m_bodies[randomInt(0, 2, random)];
            const Seen before = present();
            const int choice = randomInt(0, 9, random);
            if (choice < 2 && now > 0) {
                stack().undo();
                QVERIFY(present() == steps[--now].before);
            } else if (choice < 4 && now < steps.size()) {
                stack().redo();
                QVERIFY(present() == steps[now++].after);
            } else if (choice == 4) {
                m_model->setBody(body);
            } else if (choice == 5) {
                m_model->finishGesture();
                if (now > 0)
                    steps[now - 1].isOpen = false;
            } else {
                const QSize size(30 + m_bodies.indexOf(body), 40);
                const Seen after(
                    body, choice == 6 ? FloatImage() : withoutEmpty(randomMask(size, random)));
                const bool isOpen = randomInt(0, 2, random) > 0;
                select(after.first, after.second, isOpen);
                if (after == before)
                    continue;
                steps.resize(now);
                if (now > 0 && isOpen && steps[now - 1].isOpen && steps[now - 1].after == before)
                    steps[now - 1].after = after;
                else
                    steps.append({before, after, isOpen});
                if (steps.last().before == after)
                    steps.removeLast(); // the gesture led back
                now = steps.size();
                QVERIFY(present() == after);
            }
            QCOMPARE(stack().count(), steps.size());
            QCOMPARE(stack().index(), now);
        }
    }
};

QTEST_GUILESS_MAIN(TestPixelSelectionModel)

#include "tst_PixelSelectionModel.moc"
