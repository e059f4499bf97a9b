#include "framework/GIntEdit.h"
#include "imaging/MaskedPaste.h"
#include "imaging/SelectionMasks.h"
#include "imaging/effects/FilterCreateRimAlgorithm.h"
#include "imaging/effects/FilterEmbossAlgorithm.h"
#include "model/Body.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/GUndoStack.h"
#include "model/properties/PropertyT.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "support/DialogScript.h"
#include "support/Gestures.h"
#include "support/Studio.h"
#include "support/Widgets.h"
#include "support/WindowTest.h"
#include "tools/effects/PositionedDialog.h"
#include "ui/NormalMapEditor.h"
#include "ui/ShapeTreeView.h"

#include <QAction>
#include <QDoubleSpinBox>
#include <QMenu>
#include <QRadioButton>
#include <QSlider>
#include <QStatusBar>
#include <QWindow>

namespace {
/// Three discs, red at the left and blue at the right; all are selected. The first has no surface,
/// the second is painted.
class Easel : public Studio
{
public:
    explicit Easel(bool isBevel)
        : m_isBevel(isBevel)
    {
        const QString third = fileOf(0).replace("a.png"_s, "c.png"_s);
        QImage(60, 40, QImage::Format_ARGB32).save(third);
        window().openOrAdd({third});
        for (int index = 0; index < 3; ++index)
            draw(index, 9 + index);
        body(0).paintedNormalMap().setValue({}, {});
        fillWith(300);
        key(Qt::Key_B);
        list().setFocus();
        QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
        stack().clear();
    }

    MainWindow &window() const { return static_cast<MainWindow &>(*view().window()); }
    ShapeTreeView &list() const { return *window().findChild<ShapeTreeView *>(); }
    QString fileOf(int index) const { return body(index).sprite().filename().value().path(); }
    QVector<AngleImage> surfaces() const { return {surface(0), surface(1), surface(2)}; }
    PositionedDialog *dialog() const { return window().findChild<PositionedDialog *>(); }
    bool staysOnTop() const
    {
        return dialog()->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
    }
    bool hasDialog() const { return dialog() && dialog()->isVisible(); }
    GIntEdit *smoothness() const { return dialog()->findChild<GIntEdit *>("Smoothness"_s); }

    void draw(int index, double radius) const
    {
        QImage picture(60, 40, QImage::Format_ARGB32);
        for (int i = 0; i < 60 * 40; ++i) {
            const QPoint pixel(i % 60, i / 60);
            const bool isInside = std::hypot(pixel.x() - 30, pixel.y() - 20) < radius;
            picture.setPixel(pixel, !isInside ? 0 : pixel.x() < 30 ? 0xffff0000 : 0xff0000ff);
        }
        picture.save(fileOf(index));
        body(index).loadSprite();
    }

    void fillWith(int slope) const
    {
        body(1).paintedNormalMap().setAngleImage(AngleImage(60, 40, qint16(slope)), "import"_s);
    }

    /// What the effect makes of a body, sinking.
    AngleImage made(int index, int smoothness, const FloatImage &mask = {}) const
    {
        const QImage sprite = body(index).sprite().image();
        AngleImage below = surface(index);
        const RimParams rim{sprite, below, mask, 8, 100, smoothness, false, false};
        const EmbossParams emboss{sprite, below, 1, false, smoothness};
        const AngleImage above = m_isBevel ? FilterCreateRimAlgorithm().compute(rim)
                                           : FilterEmbossAlgorithm().compute(emboss);
        copyRegion(below, mask, above, {});
        return below;
    }

    void open() const
    {
        chooseTool(m_isBevel ? "Bevel" : "Emboss");
        showActive(*dialog());
        dialog()->findChild<QRadioButton *>("DirectionDown"_s)->click();
    }

    /// With another smoothness, typed or dragged and not left before the end.
    void end(const QByteArray &how) const
    {
        QWidget *target = smoothness()->findChild<QDoubleSpinBox *>();
        target->setFocus();
        QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(target, "4"_s);
        if (how.endsWith("drag")) {
            target = smoothness()->findChild<QSlider *>();
            QTest::mousePress(target, Qt::LeftButton, {}, {target->width() / 5, 5});
            dragTo(*target, {target->width() / 4, 5});
        } else if (how.endsWith("elsewhere")) {
            target = dialog()->findChild<QRadioButton *>("DirectionDown"_s);
            target->setFocus();
        }
        if (how == "dialog closed")
            dialog()->close();
        else if (how.startsWith("window closed"))
            closeWindow(how.endsWith("applied"));
        else if (how == "apply" || how == "discard")
            command(how.constData());
        else
            QTest::keyClick(target, how.startsWith("enter") ? Qt::Key_Return : Qt::Key_Escape);
    }

    void closeWindow(bool applies) const
    {
        DialogScript script;
        script.then(DialogScript::click(applies ? "Apply"_s : "Discard"_s));
        if (applies) // it is not saved
            script.then(DialogScript::click("Cancel"_s));
        QCOMPARE(window().close(), !applies);
        QVERIFY(script.isDone());
    }

    void trigger(const char *name) const
    {
        window().findChild<QAction *>(QLatin1String(name))->trigger();
    }

    /// Texts of what can be chosen in menus, toolbar and panels.
    QSet<QString> enabled() const
    {
        QSet<QString> texts;
        for (const QWidget *widget : window().findChildren<QWidget *>()) {
            for (const QAction *action : widget->actions()) {
                if (action->isEnabled())
                    texts.insert(action->text().remove(QLatin1Char('&')));
            }
        }
        return texts;
    }

private:
    bool m_isBevel;
};
} // namespace

class TestEffectsInWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { application().settings().clear(); }

    void anEffectEnds_data()
    {
        QTest::addColumn<bool>("applies");
        for (const char *how :
             {"enter", "enter elsewhere", "enter in drag", "apply", "window closed, applied"})
            QTest::newRow(how) << true;
        for (const char *how :
             {"escape", "escape elsewhere", "discard", "dialog closed", "window closed"})
            QTest::newRow(how) << false;
    }

    void anEffectEnds()
    {
        QFETCH(bool, applies);
        for (const bool isBevel : {true, false}) {
            const Easel easel(isBevel);
            const QVector<AngleImage> before = easel.surfaces();
            const PaintTool *tool = easel.scene().tool();
            easel.open();
            QTRY_VERIFY(!easel.showsWhatIsStored());
            // It comes too late while the effect is being applied.
            const auto *editor = easel.window().findChild<NormalMapEditor *>();
            connect(
                &easel.stack(), &GUndoStack::aboutToPush, editor, &NormalMapEditor::discardEffect);
            const GIntEdit *smoothness = easel.smoothness();
            easel.end(QTest::currentDataTag());
            QVERIFY(tool && easel.scene().tool() == tool);
            QVERIFY(!easel.hasDialog() && easel.showsWhatIsStored());
            const QVector<AngleImage> after = easel.surfaces();
            QCOMPARE(easel.stack().count(), applies ? 1 : 0);
            if (applies)
                QCOMPARE(easel.stack().undoText(), isBevel ? "create rim"_s : "create embossing"_s);
            easel.stack().undo();
            QCOMPARE(easel.surfaces(), before);
            QVERIFY(easel.body(0).paintedNormalMap().value().isEmpty());
            for (int index = 0; index < 3 && applies; ++index)
                QCOMPARE(after[index], easel.made(index, smoothness->value()));
            easel.stack().redo();
            QVERIFY(easel.surfaces() == after && easel.showsWhatIsStored());
        }
    }

    void whatAnOpenEffectLocks()
    {
        Easel easel(true);
        const QVector<AngleImage> before = easel.surfaces();
        const QSet<QString> enabled = easel.enabled();
        const QPointF place = easel.scene().spriteItem(&easel.body(1))->pos();
        const QPoint on = easel.view().mapFromScene(place + QPointF(30, 20));
        easel.open();
        easel.window().project().lightBrightness().setValue(70, "light"_s);
        const QStringList locked =
            "New|Open...|Add sprites...|Remove sprites|"
            "Move sprites|Reload sprites|Select all|Deselect |Invert selection|Emboss...|Import normal maps from folder..."_s
                .split(QLatin1Char('|'));
        QCOMPARE(enabled - easel.enabled(), QSet<QString>(locked.begin(), locked.end()));
        QCOMPARE(easel.enabled() - enabled, QSet<QString>());
        drag(easel.viewport(), on, on + QPoint(30, 0));
        QTest::mouseClick(&easel.viewport(), Qt::LeftButton, {}, on);
        QCOMPARE(easel.scene().spriteItem(&easel.body(1))->pos(), place);
        QCOMPARE(easel.list().selectionModel()->selectedRows().size(), 3);
        easel.window().openOrAdd({easel.fileOf(0)});
        QCOMPARE(easel.bodyCount(), 3);
        QCOMPARE(easel.window().statusBar()->currentMessage(),
                 "Apply or discard the effect first."_s);
        easel.end("discard");
        QCOMPARE(easel.enabled() - enabled, QSet<QString>({"Undo"_s, "Undo light"_s}));
        easel.open();
        QCOMPARE(easel.enabled() - enabled, QSet<QString>());
        QTRY_VERIFY(!easel.showsWhatIsStored());
        QVERIFY(easel.openAgain()); // saved with the effect open
        QVERIFY(easel.surfaces() == before && easel.showsWhatIsStored() && !easel.hasDialog());
        easel.open(); // until everything goes
    }

    // With the focus in a field for numbers, as it is when the effect opens.
    void theLightFollowsItsKeys()
    {
        const Easel easel(false);
        const auto *rotates = easel.window().findChild<QAction *>("autoRotateLight"_s);
        dragTo(easel.viewport(), {30, 40}, Qt::NoButton);
        easel.open();
        auto *field = easel.smoothness()->findChild<QDoubleSpinBox *>();
        QTest::mouseClick(field, Qt::LeftButton);
        showActive(*easel.dialog());
        QTRY_VERIFY(field->hasFocus());
        QWindow *dialog = easel.dialog()->windowHandle();
        QTest::keyClick(dialog, Qt::Key_P);
        // The screen's ratio may put it elsewhere within the pixel of the view.
        const QPoint light = easel.view().mapFromScene(easel.scene().light().pos());
        QVERIFY((light - QPoint(30, 40)).manhattanLength() <= 1);
        QTest::keyClick(dialog, Qt::Key_R);
        QVERIFY(rotates->isChecked());
        QTest::keyClick(dialog, Qt::Key_4);
        QTest::keyClick(dialog, Qt::Key_R);
        QVERIFY(!rotates->isChecked() && easel.hasDialog());
        easel.end("discard");
    }

    void whatIsNotAppliedIsAskedFor()
    {
        Easel easel(true);
        const auto map = [file = easel.fileOf(0).replace("a.png"_s, "a_n.png"_s)] {
            return QImage(file);
        };
        const auto click = &DialogScript::click;
        QVERIFY(easel.openAgain());
        QTest::keyClick(&easel.list(), Qt::Key_A, Qt::ControlModifier);
        easel.window().project().publishNormalmapPostfix().setValue("_n"_s);
        easel.open();
        QTRY_VERIFY(!easel.showsWhatIsStored());
        DialogScript script;
        for (const char *name : {"exportNormals", "exportNormalsAs"}) {
            bool mayCoverQuestion = true;
            if (QLatin1String(name) == "exportNormalsAs"_s)
                script.then(click("OK"_s));
            script.then([&](QWidget &question) {
                mayCoverQuestion = easel.staysOnTop();
                click("Cancel"_s)(question);
            });
            easel.trigger(name);
            QVERIFY(!mayCoverQuestion && easel.staysOnTop());
            QVERIFY(script.isDone() && map().isNull() && easel.hasDialog());
        }
        // Without the settings nothing is exported, nor asked.
        for (const char *name : {"exportNormals", "exportNormalsAs"}) {
            easel.window().project().publishNormalmapPostfix().setValue(QString());
            script.then(click("Cancel"_s));
            easel.trigger(name);
            QVERIFY(script.isDone() && map().isNull() && easel.hasDialog());
            QVERIFY(!script.seen().last().contains(u'|'));
        }
        easel.window().project().publishNormalmapPostfix().setValue("_n"_s);
        script.then(click("Export without it"_s)).then(click("OK"_s));
        easel.trigger("exportNormals");
        const QImage without = map();
        QVERIFY(script.isDone() && !without.isNull() && easel.hasDialog());
        QVERIFY(easel.window().save());
        QVERIFY(easel.window().statusBar()->currentMessage().startsWith(
            "Saved without the open effect"_s));

        // A closing that comes to nothing leaves it open.
        script.then(click("Cancel"_s));
        QVERIFY(!easel.window().close());
        easel.body(0).name().setValue("x"_s, "rename"_s);
        script.then(click("Discard"_s)).then(click("Cancel"_s));
        easel.trigger("quit");
        QVERIFY(script.isDone() && easel.window().isVisible());
        QVERIFY(easel.hasDialog() && !easel.showsWhatIsStored());

        script.then(click("Apply and export"_s)).then(click("OK"_s));
        easel.trigger("exportNormals");
        QVERIFY(script.isDone() && !easel.hasDialog() && easel.showsWhatIsStored());
        QVERIFY(map() != without);
        easel.stack().markSaved();
    }

    // Whose maps end in "_n" as long as nothing else was exported.
    void mapsOfAFolderAreImported()
    {
        const Easel easel(true);
        const Folder maps;
        for (const QString &name : {"a_n.png"_s, "b_n.png"_s, "c_n.png"_s})
            maps.writeSprite(name, {60, 40}, {160, 127, 245});
        DialogScript script;
        script.then(DialogScript::chooseFile(maps.path({})));
        for (const QMenu *menu : easel.window().findChildren<QMenu *>()) {
            for (QAction *action : menu->actions()) {
                if (action->text() == "Import normal maps from folder..."_s)
                    action->trigger();
            }
        }
        QVERIFY(script.isDone());
        QVERIFY(easel.enabled().contains("Undo Import normal maps"_s));
        QCOMPARE(easel.surfaces(), QVector<AngleImage>(3, easel.surface(0)));
        QVERIFY(easel.scene().tool() && easel.showsWhatIsStored());
    }

    void whatChangesMeanwhileCounts()
    {
        for (const bool isBevel : {true, false}) {
            const Easel easel(isBevel);
            const auto gone = easel.window().project().bodies().entries().at(2);
            easel.open();
            easel.draw(0, 15);
            easel.fillWith(-700);
            const QVector<AngleImage> expected{easel.made(0, 4), easel.made(1, 4)};
            easel.window().project().bodies().remove(*gone, "remove"_s);
            easel.end("enter");
            QCOMPARE(QVector<AngleImage>({easel.surface(0), easel.surface(1)}), expected);
            QVERIFY(easel.showsWhatIsStored());
        }
    }

    void selectedPixelsConfineEffects()
    {
        for (const int variant : {0, 1, 2, 3}) {
            Easel easel(variant % 2 == 0);
            easel.select(1);
            easel.key(Qt::Key_A);
            easel.paint({{25, 20}});
            const FloatImage red = colorFill(easel.body(1).sprite().image(), {25, 20}, 0);
            const AngleImage confined = easel.made(1, 4, red);
            const AngleImage everywhere = easel.made(1, 4);
            easel.open();
            if (variant >= 2)
                easel.stack().undo(); // the selection goes
            easel.end("enter");
            QCOMPARE(easel.surface(1), variant >= 2 ? everywhere : confined);
            QVERIFY(!(confined == everywhere) && easel.showsWhatIsStored());
        }
    }
};

int main(int argc, char **argv)
{
    return runWindowTest<TestEffectsInWindow>(argc, argv);
}

#include "tst_EffectsInWindow.moc"
