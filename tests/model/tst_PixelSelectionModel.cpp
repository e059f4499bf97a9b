#include "model/PixelSelectionModel.h"

#include "imaging/SelectionMasks.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/properties/PropertyT.h"
#include "support/Documents.h"
#include "support/Pictures.h"

#include <QTest>

class TestPixelSelectionModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_project = std::make_unique<Project>();
        m_model = std::make_unique<PixelSelectionModel>();
        m_model->setProject(m_project.get());
        m_bodies.clear();
        for (const int width : {1, 2, 3}) {
            Body &body = addBody(*m_project, QStringLiteral("body"));
            body.paintedNormalMap().setValue(encode(AngleImage(width, 1)));
            m_bodies.append(&body);
        }
        m_model->setBody(m_bodies[1]);
        m_seen.clear();
        connect(m_model.get(), &PixelSelectionModel::selectionChanged, this, &Test::see);
    }

    void undoRestoresTheMaskOfAnotherBody();
    void aDragIsOneStep();
    void whatChangesNothing();
    void currentBodyLast();
    void invertingAndSelecting();
    void bodyAndProjectChange();

private:
    using Test = TestPixelSelectionModel;
    using Seen = std::pair<Body *, FloatImage>;

    void see(Body *body, const FloatImage &mask) { m_seen.append({body, mask}); }
    Seen now() const { return {m_model->body(), m_model->selection()}; }
    GUndoStack &stack() { return m_project->undoStack(); }
    void select(Body *body, const FloatImage &mask, bool mergeable = false)
    {
        m_model->setSelection(body, mask, QStringLiteral("drag"), mergeable);
    }

    std::unique_ptr<Project> m_project;
    std::unique_ptr<PixelSelectionModel> m_model;
    QList<Body *> m_bodies;
    QVector<Seen> m_seen;
    const FloatImage m_left = floats({{1, 0}});
    const FloatImage m_right = floats({{0, 1}});
};

void TestPixelSelectionModel::undoRestoresTheMaskOfAnotherBody()
{
    select(m_bodies[1], m_left);
    select(m_bodies[0], floats({{0.5F}}));
    QCOMPARE(now(), Seen(m_bodies[0], floats({{0.5F}})));
    stack().undo();
    QCOMPARE(now(), Seen(m_bodies[1], m_left));
    stack().redo();
    QCOMPARE(m_seen,
             QVector<Seen>({{m_bodies[1], m_left},
                            {m_bodies[0], floats({{0.5F}})},
                            {m_bodies[1], m_left},
                            {m_bodies[0], floats({{0.5F}})}}));
    QVERIFY(!stack().isModified());
    QCOMPARE(stack().undoText(), QStringLiteral("drag"));
}

void TestPixelSelectionModel::aDragIsOneStep()
{
    for (const FloatImage &mask : {m_left, m_right, fullSelection({2, 1})})
        select(m_bodies[1], mask, true);
    QCOMPARE(stack().count(), 1);
    // Another body became current in between: what follows does not go on from the last step.
    m_model->setBody(m_bodies[0]);
    m_model->setBody(m_bodies[1]);
    select(m_bodies[1], m_right, true);
    QCOMPARE(stack().count(), 2);
    select(m_bodies[1], m_left, false);
    QCOMPARE(stack().count(), 3);
    stack().undo();
    stack().undo();
    stack().undo();
    QCOMPARE(now(), Seen(m_bodies[1], FloatImage()));
}

void TestPixelSelectionModel::whatChangesNothing()
{
    select(m_bodies[1], floats({{0, 0}}));
    m_model->clear(m_bodies);
    m_model->invert(m_bodies);
    m_model->selectAll({});
    QCOMPARE(stack().count(), 0);
    select(m_bodies[1], m_left);
    select(m_bodies[1], floats({{1, 0}}));
    m_model->setBody(m_bodies[1]);
    QCOMPARE(stack().count(), 1);
    QCOMPARE(m_seen.size(), 1);
    m_model->setProject(nullptr);
    select(m_bodies[1], m_right);
    m_model->selectAll(m_bodies);
    QCOMPARE(now(), Seen());
}

void TestPixelSelectionModel::currentBodyLast()
{
    select(m_bodies[1], m_left);
    m_seen.clear();
    m_model->selectAll({m_bodies[2], m_bodies[1], m_bodies[0]});
    QCOMPARE(m_seen,
             QVector<Seen>({{m_bodies[2], fullSelection({3, 1})},
                            {m_bodies[0], fullSelection({1, 1})},
                            {m_bodies[1], fullSelection({2, 1})}}));
    QCOMPARE(stack().count(), 2);
    QCOMPARE(stack().undoText(), QStringLiteral("select all pixels"));
    // The macro's steps chain, but are steps of their own.
    QCOMPARE(stack().command(1)->childCount(), 3);
    stack().undo();
    QCOMPARE(now(), Seen(m_bodies[1], m_left));
    m_model->clear(m_bodies);
    QCOMPARE(now(), Seen(m_bodies[1], FloatImage()));
    QCOMPARE(stack().undoText(), QStringLiteral("clear pixel selection"));
    QVERIFY(!stack().isModified());
}

void TestPixelSelectionModel::invertingAndSelecting()
{
    select(m_bodies[1], floats({{0.25F, 1}}));
    m_seen.clear();
    m_model->invert(m_bodies);
    QCOMPARE(m_seen,
             QVector<Seen>({{m_bodies[0], FloatImage()},
                            {m_bodies[2], FloatImage()},
                            {m_bodies[1], floats({{0.75F, 0}})}}));
    QCOMPARE(stack().undoText(), QStringLiteral("invert pixel selection"));
    m_model->selectAll({m_bodies[1]});
    m_model->invert({m_bodies[1]});
    QCOMPARE(now(), Seen(m_bodies[1], FloatImage()));
    // Without a surface of its own a body has the size of its sprite.
    const Folder folder;
    Body &unpainted = addBody(
        *m_project, QStringLiteral("sprite"), folder.writeSprite(QStringLiteral("a.png"), {4, 2}));
    m_model->selectAll({&unpainted});
    QCOMPARE(now(), Seen(&unpainted, fullSelection({4, 2})));
}

void TestPixelSelectionModel::bodyAndProjectChange()
{
    select(m_bodies[1], m_left);
    m_seen.clear();
    m_model->setBody(m_bodies[2]);
    m_model->setProject(m_project.get());
    QCOMPARE(m_seen, QVector<Seen>({{m_bodies[2], FloatImage()}, {nullptr, FloatImage()}}));
    QCOMPARE(stack().count(), 1);
}

QTEST_GUILESS_MAIN(TestPixelSelectionModel)

#include "tst_PixelSelectionModel.moc"
