#include "framework/GColorButton.h"
#include "framework/GLineEdit.h"
#include "framework/GSlider.h"
#include "framework/NumberSpinBox.h"
#include "model/Project.h"
#include "model/Sprite.h"
#include "model/properties/PropertyDescriptionList.h"
#include "model/properties/PropertyDescriptionTypes.h"
#include "model/properties/PropertyT.h"
#include "support/Documents.h"
#include "support/Gestures.h"
#include "support/RecordingObserver.h"
#include "support/Widgets.h"
#include "ui/properties/PropertyStructEdit.h"

#include <QAbstractItemView>
#include <QColorDialog>
#include <QCompleter>
#include <QDir>
#include <QTest>

#include <deque>

namespace {
/// A struct with a number that has a range.
class Numbered : public PropertyStruct
{
public:
    explicit Numbered(GProject &project)
        : PropertyStruct(project, "numbered"_s, &descriptions())
    {
        addField<PropertyInt>("int"_s);
    }

private:
    static const PropertyDescriptionList &descriptions()
    {
        static PropertyDescriptionList list;
        if (list.isEmpty())
            list.add<PropertyDescriptionInt>("int"_s, "int"_s, "tip"_s, 5, 50, 10);
        return list;
    }
};

/// The editor in an active window.
class Panel
{
public:
    Panel()
    {
        edit.resize(300, 500);
        showActive(edit);
    }

    template <class Widget>
    Widget &at(const QString &label) const
    {
        return shownChild<Widget>(edit, label);
    }

    void type(const QString &label, const QString &text) const
    {
        auto &widget = at<NumberSpinBox>(label);
        widget.setFocus();
        widget.selectAll();
        QTest::keyClick(&widget, Qt::Key_Delete);
        QTest::keyClicks(&widget, text);
        QTest::keyClick(&widget, Qt::Key_Return);
    }

    void drag(const QString &label, const QVector<double> &shares) const
    {
        auto &slider = at<GSlider>(label);
        const auto place = [&slider](double share) {
            return QPoint(int(share * (slider.width() - 1)), slider.height() / 2);
        };
        QTest::mousePress(&slider, Qt::LeftButton, {}, place(shares.first()));
        for (const double share : shares)
            dragTo(slider, place(share));
        QTest::mouseRelease(&slider, Qt::LeftButton, {}, place(shares.last()));
    }

    PropertyStructEdit edit;
};
} // namespace

class TestPropertyStructEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_project = std::make_unique<Project>(); }

    void aDragIsOneStep()
    {
        std::deque<Numbered> structs;
        QVector<PropertyStruct *> edited;
        for (int i = 0; i < 3; ++i) {
            edited.append(&structs.emplace_back(*m_project));
            structs.back().field<PropertyInt>("int"_s).setValue(10 + i);
        }
        const auto values = [&structs] {
            QVector<int> result;
            for (const auto &each : structs)
                result.append(each.field<PropertyInt>("int"_s).value());
            return result;
        };
        Panel panel;
        panel.edit.setStructs(edited);
        const auto &number = panel.at<NumberSpinBox>("int"_s);
        const RecordingObserver observer(structs.front().field<PropertyInt>("int"_s));

        panel.drag("int"_s, {0.9, 0.7, 0.5});
        const auto after = values();
        QVERIFY(after != QVector<int>({10, 11, 12}) && after.count(after.first()) == 3);
        QCOMPARE(steps().count(), 1);
        QCOMPARE(steps().undoText(), "change int"_s);
        // The press and two moves; the values from before are never shown in between.
        QCOMPARE(observer.calls, 3);
        panel.drag("int"_s, {0.2, 1.0});
        QCOMPARE(values(), QVector<int>(3, 50));
        QCOMPARE(steps().count(), 2);
        steps().undo();
        QCOMPARE(values(), after);
        QCOMPARE(number.value(), double(after.first()));
        steps().undo();
        QCOMPARE(values(), QVector<int>({10, 11, 12}));
        QCOMPARE(number.text(), "—"_s);
        steps().redo();
        QCOMPARE(values(), after);

        // Escape leaves neither a change nor a step.
        auto &slider = panel.at<GSlider>("int"_s);
        QTest::mousePress(&slider, Qt::LeftButton, {}, {slider.width() - 10, 12});
        dragTo(slider, {slider.width() - 20, 12});
        QVERIFY(values() != after);
        QTest::keyClick(&slider, Qt::Key_Escape);
        QTest::mouseRelease(&slider, Qt::LeftButton);
        QCOMPARE(values(), after);
        QCOMPARE(steps().index(), 1);
        // Neither do the values that are there.
        panel.type("int"_s, QString::number(after.first()));
        QCOMPARE(steps().index(), 1);
    }

    void savingInADragKeepsThePlace()
    {
        Panel panel;
        panel.edit.setStructs({m_project.get()}, "light"_s);
        auto &slider = panel.at<GSlider>("Brightness"_s);
        QTest::mousePress(&slider, Qt::LeftButton, {}, {slider.width() - 40, 12});
        QVERIFY(steps().isModified());
        steps().markSaved();
        const int saved = m_project->lightBrightness().value();
        dragTo(slider, {slider.width() - 10, 12});
        QVERIFY(steps().isModified());
        dragTo(slider, {slider.width() - 20, 12});
        QTest::mouseRelease(&slider, Qt::LeftButton, {}, {slider.width() - 20, 12});
        QVERIFY(steps().isModified());
        steps().undo();
        QVERIFY(!steps().isModified());
        QCOMPARE(m_project->lightBrightness().value(), saved);
    }

    void severalBodies()
    {
        auto &knight = addBody(*m_project, "knight"_s);
        auto &dragon = addBody(*m_project, "dragon"_s);
        Panel panel;
        panel.edit.setStructs({&knight, &dragon});
        const auto &line = panel.at<GLineEdit>("Name"_s);
        QCOMPARE(line.text(), QString());
        QCOMPARE(line.placeholderText(), "—"_s);
        dragon.name().setValue("knight"_s);
        QCOMPARE(line.text(), "knight"_s);

        // What is being typed is lost with its row, not pushed into another one.
        auto &typing = panel.at<QLineEdit>("Name"_s);
        typing.setFocus();
        QTest::keyClicks(&typing, "half"_s);
        panel.edit.setStructs({&dragon});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(steps().index(), 0);
    }

    void imageIsAFile()
    {
        const Folder folder;
        auto &body = addBody(*m_project, "fox"_s, folder.writeSprite("fox.png"_s, {4, 4}));
        const QString other = folder.writeSprite("forest/ferret.png"_s, {4, 4});
        const auto image = [&body] { return body.sprite().filename().value().path(); };
        Panel panel;
        panel.edit.setStructs({&body});
        auto &line = panel.at<QLineEdit>("Image"_s);
        const auto type = [&line](const QString &text, int delay = -1) {
            line.setFocus();
            line.selectAll();
            QTest::keyClick(&line, Qt::Key_Delete);
            QTest::keyClicks(&line, text, {}, delay);
        };
        const auto enter = [&](const QString &text) {
            type(text);
            QTest::keyClick(&line, Qt::Key_Return);
        };
        enter({});
        QVERIFY(showsText(panel.edit, "A file is needed here"_s));
        enter("forest/ferret.png"_s);
        QVERIFY(showsText(panel.edit,
                          "'forest/ferret.png' counts from the folder of the project, which is not "
                          "saved yet. Save the project first, or give the whole path."_s));
        QCOMPARE(image(), folder.path("fox.png"_s));
        QCOMPARE(line.text(), QDir::toNativeSeparators(image()));
        QCOMPARE(steps().count(), 0);
        m_project->filename().setValue(GFileName(folder.path("p.vep"_s)));
        enter("forest/ferret.png"_s);
        QCOMPARE(image(), other);
        QVERIFY(!showsText(panel.edit, "A file is needed here"_s));

        // Enter in the list of paths is enough, whether one is chosen there or none.
        const auto list = [&line] { return line.completer()->popup(); };
        const auto typeAndSee = [&](const QString &path) {
            type(QDir::toNativeSeparators(path), 4); // folders are read meanwhile
            return QTest::qWaitFor([&] { return list()->isVisible(); });
        };
        QVERIFY(typeAndSee(folder.path("fox.pn"_s)));
        QTest::keyClick(list(), Qt::Key_Down);
        QTest::keyClick(list(), Qt::Key_Return);
        QTRY_COMPARE(image(), folder.path("fox.png"_s));
        QCOMPARE(steps().count(), 2);
        QVERIFY(typeAndSee(other));
        QTest::keyClick(list(), Qt::Key_Return);
        QCOMPARE(image(), other);
        // A folder there is only on the way to a file.
        QVERIFY(typeAndSee(folder.path("fores"_s)));
        QTest::keyClick(list(), Qt::Key_Down);
        QTest::keyClick(list(), Qt::Key_Return);
        QCoreApplication::processEvents();
        QCOMPARE(image(), other);
        QCOMPARE(line.text(), QDir::toNativeSeparators(folder.path("forest"_s)));
    }

    void colorDialogIsOneStep()
    {
        Panel panel;
        panel.edit.setStructs({m_project.get()}, "light"_s);
        auto &button = panel.at<GColorButton>("Light color"_s);
        for (const bool accepts : {false, true}) {
            QTest::mouseClick(&button, Qt::LeftButton);
            auto *dialog = panel.edit.findChild<QColorDialog *>();
            QVERIFY(dialog);
            for (const Qt::GlobalColor color : {Qt::red, Qt::green, Qt::blue})
                dialog->setCurrentColor(color);
            QCOMPARE(m_project->lightColor().value(), QColor(Qt::blue));
            QTest::keyClick(dialog, accepts ? Qt::Key_Return : Qt::Key_Escape);
            QCOMPARE(m_project->lightColor().value(), QColor(accepts ? Qt::blue : Qt::white));
            QCOMPARE(steps().index(), accepts ? 1 : 0);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QCOMPARE(button.toolTip(), "#0000ff"_s);
    }

private:
    GUndoStack &steps() const { return m_project->undoStack(); }

    std::unique_ptr<Project> m_project;
};

QTEST_MAIN(TestPropertyStructEdit)
#include "tst_PropertyStructEdit.moc"
