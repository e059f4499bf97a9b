#include "base/GSettings.h"
#include "base/Resources.h"
#include "framework/GApplication.h"
#include "framework/GIntEdit.h"
#include "imaging/MaskedPaste.h"
#include "imaging/effects/FilterCreateRimAlgorithm.h"
#include "imaging/effects/FilterEmbossAlgorithm.h"
#include "model/Body.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/GUndoStack.h"
#include "model/properties/PropertyT.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "support/Gestures.h"
#include "support/Pictures.h"
#include "support/Studio.h"
#include "support/Widgets.h"
#include "tools/effects/PositionedDialog.h"
#include "ui/ShapeTreeView.h"

#include <QAction>
#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSlider>
#include <QStatusBar>
#include <QTest>

namespace {
enum class End { Number, Radio, Drag, Apply, Escape, EscapeTyping, Discard, Close, CloseWindow };

bool inDisc(int x, int y, int radius)
{
    return (x - 30) * (x - 30) + (y - 20) * (y - 20) < radius * radius;
}

/// A disc, red at the left and blue at the right; all red when it is too large for the picture.
QImage disc(int radius)
{
    QImage picture(60, 40, QImage::Format_ARGB32);
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 60; ++x)
            picture.setPixel(
                x,
                y,
                inDisc(x, y, radius) ? x < 30 || radius > 40 ? 0xffff0000U : 0xff0000ffU : 0U);
    }
    return picture;
}

/// Three discs, all selected, of which the second is painted and the first has no surface.
class Easel : public Studio
{
public:
    Easel()
    {
        const QString folder = QFileInfo(body(0).sprite().filename().value().path()).path();
        disc(9).save(folder + "/c.png"_s);
        window().openOrAdd({folder + "/c.png"_s});
        for (int index = 0; index < 3; ++index)
            draw(index, 9 + index);
        std::mt19937 random(1);
        body(1).paintedNormalMap().setAngleImage(randomAngles(60, 40, random), {});
        body(0).paintedNormalMap().setValue({}, {});
        key(Qt::Key_B);
        list().setFocus();
        QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
        stack().clear();
    }

    MainWindow &window() const { return static_cast<MainWindow &>(*view().window()); }
    ShapeTreeView &list() const { return *window().findChild<ShapeTreeView *>(); }

    void draw(int index, int radius) const
    {
        disc(radius).save(body(index).sprite().filename().value().path());
        body(index).loadSprite();
    }

    QVector<AngleImage> surfaces() const { return {surface(0), surface(1), surface(2)}; }

    /// What the effect makes of a body, sinking.
    AngleImage made(const QString &effect, int index, int smoothness, const FloatImage &mask) const
    {
        const QImage sprite = body(index).sprite().image();
        AngleImage result = surface(index);
        if (effect == "Bevel"_s)
            copyRegion(result,
                       mask,
                       FilterCreateRimAlgorithm().compute(
                           {sprite, result, mask, 8, 100, smoothness, false, false}),
                       {});
        else
            copyRegion(result,
                       mask,
                       FilterEmbossAlgorithm().compute({sprite, result, 1, false, smoothness}),
                       {});
        return result;
    }

    QVector<AngleImage> made(const QString &effect, int smoothness) const
    {
        return {made(effect, 0, smoothness, {}),
                made(effect, 1, smoothness, {}),
                made(effect, 2, smoothness, {})};
    }

    PositionedDialog *dialog() const
    {
        for (auto *each : window().findChildren<PositionedDialog *>()) {
            if (each->isVisible())
                return each;
        }
        return nullptr;
    }

    void open(const QString &effect) const
    {
        chooseTool(effect.toLatin1().constData());
        showActive(*dialog());
        dialog()->findChild<QRadioButton *>("DirectionDown"_s)->click();
        typed("3"_s);
    }

    /// In a field that is not left.
    QWidget *typed(const QString &number) const
    {
        auto *box = dialog()->findChild<GIntEdit *>("Smoothness"_s)->findChild<QDoubleSpinBox *>();
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, number);
        return box;
    }

    /// Returns the smoothness at the end.
    int end(End how) const
    {
        auto *edit = dialog()->findChild<GIntEdit *>("Smoothness"_s);
        auto *radio = dialog()->findChild<QRadioButton *>("DirectionDown"_s);
        auto *slider = edit->findChild<QSlider *>();
        int smoothness = 4;
        if (how == End::Radio || how == End::Escape) {
            radio->setFocus();
            smoothness = edit->value();
            QTest::keyClick(radio, how == End::Radio ? Qt::Key_Return : Qt::Key_Escape);
        } else if (how == End::Number || how == End::EscapeTyping) {
            QTest::keyClick(typed("4"_s), how == End::Number ? Qt::Key_Enter : Qt::Key_Escape);
        } else if (how == End::Drag) {
            QTest::mousePress(slider, Qt::LeftButton, {}, {slider->width() / 5, 5});
            dragTo(*slider, {slider->width() / 3, 5});
            dragTo(*slider, {slider->width() / 4, 5});
            smoothness = edit->value();
            QTest::keyClick(slider, Qt::Key_Return);
        } else if (how == End::Close) {
            dialog()->close();
        } else if (how == End::CloseWindow) {
            window().close();
        } else {
            typed("4"_s);
            command(how == End::Apply ? "apply" : "discard");
        }
        return smoothness;
    }

    /// The texts of the actions that can be chosen, among those that an open effect disables.
    QByteArray enabled() const
    {
        QStringList texts;
        for (const QWidget *widget : window().findChildren<QWidget *>()) {
            for (const QAction *action : widget->actions()) {
                if (action->isEnabled())
                    texts.append(
                        action->text().remove(QLatin1Char('&')).section(QLatin1Char(' '), 0, 0));
            }
        }
        QStringList found;
        for (const char *text : {"New",
                                 "Open...",
                                 "Add",
                                 "Remove",
                                 "Select",
                                 "Deselect",
                                 "Invert",
                                 "Undo",
                                 "Redo",
                                 "Rename",
                                 "Height",
                                 "Move",
                                 "Bevel...",
                                 "Emboss..."}) {
            if (texts.contains(QLatin1String(text)))
                found.append(QLatin1String(text));
        }
        return found.join(QLatin1Char(' ')).toLatin1();
    }
};
} // namespace

class TestEffects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        initialiseResources();
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }
    void init() { static_cast<GApplication *>(qApp)->settings().clear(); }

    void anEffectEnds_data()
    {
        QTest::addColumn<int>("how");
        QTest::newRow("enter in a number") << int(End::Number);
        QTest::newRow("enter elsewhere") << int(End::Radio);
        QTest::newRow("enter in a drag") << int(End::Drag);
        QTest::newRow("apply") << int(End::Apply);
        QTest::newRow("escape") << int(End::Escape);
        QTest::newRow("escape while typing") << int(End::EscapeTyping);
        QTest::newRow("discard") << int(End::Discard);
        QTest::newRow("close button") << int(End::Close);
        QTest::newRow("window closed") << int(End::CloseWindow);
    }

    void anEffectEnds()
    {
        QFETCH(int, how);
        for (const QString &effect : {"Bevel"_s, "Emboss"_s}) {
            Easel easel;
            const QVector<AngleImage> before = easel.surfaces();
            const QByteArray enabled = easel.enabled();
            easel.open(effect);
            QTRY_VERIFY(!easel.showsWhatIsStored());
            const int smoothness = easel.end(End(how));
            QVERIFY(!easel.dialog());
            QCOMPARE(easel.enabled().replace("Undo ", ""), enabled);
            if (how > int(End::Apply)) {
                QCOMPARE(easel.stack().count(), 0);
                QCOMPARE(easel.surfaces(), before);
                QVERIFY(easel.body(0).paintedNormalMap().value().isEmpty());
                QVERIFY(easel.showsWhatIsStored());
                continue;
            }
            const QVector<AngleImage> after = easel.surfaces();
            QCOMPARE(easel.stack().undoText(),
                     effect == "Bevel"_s ? "create rim"_s : "create embossing"_s);
            QVERIFY(easel.showsWhatIsStored());
            easel.key(Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(easel.surfaces(), before);
            QCOMPARE(after, easel.made(effect, smoothness));
            QVERIFY(easel.showsWhatIsStored());
            easel.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
            QCOMPARE(easel.surfaces(), after);
            QCOMPARE(easel.stack().count(), 1);
            // The tool of before is back.
            easel.select(0);
            easel.paint({{20, 20}, {30, 25}});
            QCOMPARE(easel.stack().undoText(), "Height"_s);
        }
    }

    void whatChangesNothingIsNoStep()
    {
        Easel easel;
        easel.select(0);
        easel.draw(0, 99);
        easel.stack().clear();
        for (const QString &effect : {"Bevel"_s, "Emboss"_s}) {
            easel.open(effect);
            easel.end(End::Radio);
            QCOMPARE(easel.stack().count(), 0);
            QVERIFY(easel.body(0).paintedNormalMap().value().isEmpty());
        }
    }

    void whatAnOpenEffectLocks()
    {
        Easel easel;
        const QVector<AngleImage> before = easel.surfaces();
        const QByteArray enabled = easel.enabled();
        const QPoint second = easel.view().mapFromScene(
            easel.scene().spriteItem(&easel.body(1))->sceneBoundingRect().center());
        easel.open("Bevel"_s);
        easel.window().project().lightBrightness().setValue(0.5, "light"_s);
        QCOMPARE(easel.enabled(), QByteArray("Bevel..."));
        QTest::mouseClick(&easel.viewport(), Qt::LeftButton, {}, second);
        drag(easel.viewport(), second, second + QPoint(30, 0));
        QCOMPARE(easel.list().selectionModel()->selectedRows().size(), 3);
        QCOMPARE(easel.view().mapFromScene(
                     easel.scene().spriteItem(&easel.body(1))->sceneBoundingRect().center()),
                 second);
        easel.window().openOrAdd({easel.body(0).sprite().filename().value().path()});
        QCOMPARE(easel.bodyCount(), 3);
        QCOMPARE(easel.window().statusBar()->currentMessage(),
                 "Apply or discard the effect first."_s);
        easel.end(End::Escape);
        QCOMPARE(easel.enabled().replace("Undo ", ""), enabled);
        easel.stack().undo();
        easel.open("Emboss"_s);
        QTRY_VERIFY(!easel.showsWhatIsStored());
        QVERIFY(easel.openAgain()); // saved with the effect open, which ends with its project
        QCOMPARE(easel.surfaces(), before);
        QVERIFY(easel.showsWhatIsStored() && !easel.dialog());
        easel.open("Emboss"_s); // until everything goes
    }

    void whatChangesMeanwhileCounts()
    {
        for (const QString &effect : {"Bevel"_s, "Emboss"_s}) {
            Easel easel;
            const auto gone = easel.window().project().bodies().entries().at(2);
            const AngleImage flat = easel.surface(2);
            easel.open(effect);
            easel.draw(0, 15);
            std::mt19937 random(2);
            easel.body(1).paintedNormalMap().setAngleImage(randomAngles(60, 40, random),
                                                           "import"_s);
            const AngleImage drawn = easel.made(effect, 0, 3, {});
            const AngleImage imported = easel.made(effect, 1, 3, {});
            easel.window().project().bodies().remove(*gone, "remove"_s);
            easel.end(End::Radio);
            QCOMPARE(easel.surface(0), drawn);
            QCOMPARE(easel.surface(1), imported);
            QCOMPARE(static_cast<Body &>(*gone).surface(), flat);
            QVERIFY(easel.showsWhatIsStored());
        }
    }

    void selectedPixelsConfineEffects()
    {
        for (const QString &effect : {"Bevel"_s, "Emboss"_s}) {
            for (const bool isUndoneMeanwhile : {false, true}) {
                Easel easel;
                easel.select(1);
                easel.key(Qt::Key_A);
                easel.paint({{25, 20}});
                FloatImage red(60, 40);
                for (int y = 0; y < 40; ++y) {
                    for (int x = 0; x < 30; ++x)
                        red.row(y)[x] = inDisc(x, y, 10) ? 1 : 0;
                }
                const AngleImage confined = easel.made(effect, 1, 3, red);
                const AngleImage everywhere = easel.made(effect, 1, 3, {});
                QVERIFY(!(confined == everywhere));
                easel.open(effect);
                if (isUndoneMeanwhile)
                    easel.stack().undo();
                easel.end(End::Radio);
                QCOMPARE(easel.surface(1), isUndoneMeanwhile ? everywhere : confined);
                QVERIFY(easel.showsWhatIsStored());
            }
        }
    }
};

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    GApplication::prepare();
    GApplication application(argc, argv);
    TestEffects test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_EffectsInWindow.moc"
