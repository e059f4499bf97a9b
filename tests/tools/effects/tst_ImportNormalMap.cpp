#include "base/GSettings.h"
#include "base/Resources.h"
#include "framework/GAction.h"
#include "imaging/NormalEncoding.h"
#include "model/NormalMapExport.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/properties/PropertyT.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Widgets.h"
#include "tools/effects/ImportNormalMap.h"
#include "tools/effects/ImportNormalMaps.h"

#include <QListWidget>
#include <QSignalSpy>
#include <QTest>

namespace {

const QSize size(80, 40);

bool isOurs(const AngleImage &surface)
{
    return difference(exportedNormalMap(surface, {}), exportedNormalMap(cones(size), {})) <= 1;
}

} // namespace

class TestImportNormalMap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        initialiseResources();
        for (const QString &name : {"a"_s, "green"_s, "missing"_s, "wide"_s, "broken"_s})
            m_bodies.append(&addBody(m_project, name, m_folder.writeSprite(name + ".png"_s, size)));
        m_bodies.append(&addBody(m_project, "empty"_s));
        AngleImage down = cones(size);
        flipY(down);
        QVERIFY(writeImageFile(exportedNormalMap(cones(size), {}), m_folder.path("a_n.png"_s)));
        QVERIFY(writeImageFile(exportedNormalMap(down, {}), m_folder.path("green_n.png"_s)));
        QVERIFY(writeImageFile(flatNormalMap(size), m_folder.path("flat.png"_s)));
        m_folder.writeSprite("wide_n.png"_s, size + QSize(1, 0));
        m_folder.write("broken_n.png"_s, "no image");
    }

    void aMapBecomesTheSurfaceOfOneBody()
    {
        const auto import = [this](const QString &name, const QString &button) {
            return run<ImportNormalMap>(name, QStringList(button));
        };
        const QString broken = m_folder.path("broken_n.png"_s);
        QCOMPARE(import("broken_n.png"_s, "OK"_s), "Error|Failed to load "_s + broken + "|"_s);
        QCOMPARE(import("wide_n.png"_s, "OK"_s), "Error|Normal map has wrong size!|"_s);
        QCOMPARE(m_project.undoStack().count(), 0);
        run<ImportNormalMap>("flat.png"_s, {});
        QCOMPARE(surface(0), AngleImage(size.width(), size.height()));
        run<ImportNormalMap>("a_n.png"_s, {});
        QVERIFY(isOurs(surface(0)));
        for (const QString &button : {"Cancel"_s, "Import"_s, "Flip"_s}) {
            QVERIFY(import("green_n.png"_s, button).contains("Green seems to count downwards"_s));
            QCOMPARE(isOurs(surface(0)), button != "Import"_s);
        }
        QCOMPARE(m_project.undoStack().undoText(), "Import normal map"_s);
    }

    void aFolderOfMapsIsOneStep()
    {
        m_project.undoStack().setIndex(0);
        run<ImportNormalMaps>({}, {"Cancel"_s});
        QVERIFY(!m_project.undoStack().canUndo());
        run<ImportNormalMaps>({}, {"Flip"_s, "Continue"_s});
        QCOMPARE(m_project.undoStack().count(), 1);
        QCOMPARE(m_project.undoStack().undoText(), "Import normal maps"_s);
        for (int i = 0; i < m_bodies.size(); ++i)
            QVERIFY(i < 2 ? isOurs(surface(i)) : surface(i).isNull());
        // No sprite is its own map, though the suffix is empty.
        const QStringList told{"missing: there is no 'missing_n.png'"_s,
                               "wide_n.png: it has 81 × 40 pixels, but 'wide' has 80 × 40"_s,
                               "broken_n.png: it can't be read"_s,
                               "empty: it has neither"_s};
        QCOMPARE(m_listed.size(), told.size());
        for (int i = 0; i < told.size(); ++i)
            QVERIFY2(m_listed[i].startsWith(told[i]), qPrintable(m_listed[i]));
    }

private:
    AngleImage surface(int body) const { return m_bodies[body]->paintedNormalMap().angleImage(); }

    /// What the last dialog said. Chooses a file of the folder, or the folder, then clicks.
    template <class Effect>
    QString run(const QString &fileName, const QStringList &buttons)
    {
        Effect effect(m_settings);
        const QSignalSpy closed(&effect, &Filter::filterClosed);
        DialogScript script;
        script.then(DialogScript::chooseFile(m_folder.path(fileName)));
        for (const QString &button : buttons)
            script.then([this, button](QWidget &dialog) {
                m_listed.clear();
                if (const auto *list = dialog.findChild<QListWidget *>())
                    for (int i = 0; i < list->count(); ++i)
                        m_listed.append(list->item(i)->text());
                DialogScript::click(button)(dialog);
            });
        EffectContext context;
        context.bodies = m_bodies;
        effect.start(context);
        if (!script.isDone() || closed.count() != 1)
            qFatal("'%s' did not close", qPrintable(effect.action().text()));
        return script.seen().last();
    }

    Folder m_folder;
    GSettings m_settings;
    Project m_project;
    QList<Body *> m_bodies;
    QStringList m_listed;
};

QTEST_MAIN(TestImportNormalMap)
#include "tst_ImportNormalMap.moc"
