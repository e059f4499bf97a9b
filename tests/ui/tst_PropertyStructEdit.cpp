#include "base/Error.h"
#include "framework/GColorButton.h"
#include "framework/GLineEdit.h"
#include "framework/GPathEdit.h"
#include "framework/GSlider.h"
#include "framework/NumberSpinBox.h"
#include "model/Project.h"
#include "model/Sprite.h"
#include "model/properties/PropertyDescriptionList.h"
#include "model/properties/PropertyDescriptionTypes.h"
#include "model/properties/PropertyEnum.h"
#include "model/properties/PropertyReference.h"
#include "support/Documents.h"
#include "support/Gestures.h"
#include "support/RecordingObserver.h"
#include "support/Widgets.h"
#include "ui/properties/PropertyStructEdit.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QTest>

#include <deque>

namespace {
/// A struct with a field of every type.
class Everything : public PropertyStruct
{
public:
    explicit Everything(GProject &project)
        : PropertyStruct(project, "everything"_s, &descriptions())
    {
        addField<PropertyBool>("bool"_s);
        addField<PropertyInt>("int"_s);
        addField<PropertyUnsignedInt>("unsigned"_s);
        addField<PropertyDouble>("double"_s);
        addField<PropertyString>("string"_s);
        addField<PropertyEnum>("enum"_s);
        addField<PropertyFilename>("file"_s);
        addField<PropertyColor>("color"_s);
        addField<PropertyVector3D>("vector"_s);
        addField<PropertyReference>("preset"_s, "brush"_s);
        addField<PropertyInt>("undescribed"_s);
    }

    template <class Type>
    auto valueOf(const QString &name) const
    {
        return field<Type>(name).value();
    }

private:
    static const PropertyDescriptionList &descriptions()
    {
        static PropertyDescriptionList list;
        if (!list.isEmpty())
            return list;
        const QString tip = "tip"_s;
        const QVector<PropertyEnumElement> contours{{0, "round"_s}, {1, "flat"_s}};
        list.add<PropertyDescriptionBool>("bool"_s, "bool"_s, tip);
        list.add<PropertyDescriptionInt>("int"_s, "int"_s, tip, 5, 50, 10);
        list.add<PropertyDescriptionUnsignedInt>(
            "unsigned"_s, "unsigned"_s, tip, 1U, 4000000000U, 2U);
        list.add<PropertyDescriptionDouble>("double"_s, "double"_s, tip, 0.0, 1.0, 0.25);
        list.add<PropertyDescriptionString>("string"_s, "string"_s, tip);
        list.add<PropertyDescriptionEnum>("enum"_s, "enum"_s, tip, contours);
        list.add<PropertyDescriptionFilename>("file"_s, "file"_s, tip, false);
        list.add<PropertyDescriptionColor>("color"_s, "color"_s, tip, QColor(Qt::red));
        list.add<PropertyDescriptionVector3D>("vector"_s, "vector"_s, tip, QVector3D(1, 2, 3));
        list.add<PropertyDescriptionReference>("preset"_s, "preset"_s, tip, "brush"_s);
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

    template <class Widget>
    void type(const QString &label, const QString &text) const
    {
        auto &widget = at<Widget>(label);
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
        m_project->addPresetCollection("brush"_s, std::make_shared<Everything>(*m_project));
        std::deque<Everything> structs;
        QVector<PropertyStruct *> edited;
        for (int i = 0; i < 3; ++i) {
            edited.append(&structs.emplace_back(*m_project));
            structs.back().field<PropertyInt>("int"_s).setValue(10 + i);
        }
        const auto values = [&structs] {
            QVector<int> result;
            for (const auto &each : structs)
                result.append(each.valueOf<PropertyInt>("int"_s));
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
        panel.type<NumberSpinBox>("int"_s, QString::number(after.first()));
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

    void everyTypeHasAnEditor()
    {
        auto prototype = std::make_shared<PropertyStruct>(*m_project, "data"_s);
        auto &presets = m_project->addPresetCollection("brush"_s, prototype);
        Everything all(*m_project);
        Panel panel;
        panel.edit.setStructs({&all});
        auto preset = std::make_shared<PropertyPreset>(*m_project, "brush"_s, prototype);
        preset->name().setValue("fine"_s);
        presets.append(preset, "add preset"_s);
        const int first = steps().count();

        QTest::mouseClick(&panel.at<QCheckBox>("bool"_s), Qt::LeftButton, {}, {8, 12});
        panel.type<NumberSpinBox>("int"_s, "42"_s);
        panel.type<NumberSpinBox>("unsigned"_s, "3000000000"_s);
        panel.type<NumberSpinBox>("double"_s, QLocale().toString(0.125));
        panel.type<QLineEdit>("string"_s, "text"_s);
        panel.type<QLineEdit>("file"_s, "/some/file.png"_s);
        QTest::keyClick(&panel.at<QComboBox>("enum"_s), Qt::Key_Down);
        panel.type<NumberSpinBox>("vector Y"_s, QLocale().toString(7.5));
        QTest::keyClick(&panel.at<QComboBox>("preset"_s), Qt::Key_Down);
        QCOMPARE(steps().count() - first, 9);
        QCOMPARE(all.valueOf<PropertyBool>("bool"_s), true);
        QCOMPARE(all.valueOf<PropertyInt>("int"_s), 42);
        QCOMPARE(all.valueOf<PropertyUnsignedInt>("unsigned"_s), 3000000000U);
        QCOMPARE(all.valueOf<PropertyDouble>("double"_s), 0.125);
        QCOMPARE(all.valueOf<PropertyString>("string"_s), "text"_s);
        QCOMPARE(all.valueOf<PropertyFilename>("file"_s).path(), "/some/file.png"_s);
        QCOMPARE(all.valueOf<PropertyEnum>("enum"_s).name, "flat"_s);
        QCOMPARE(all.valueOf<PropertyVector3D>("vector"_s), QVector3D(1, 7.5F, 3));
        QCOMPARE(all.valueOf<PropertyReference>("preset"_s), preset);
        QCOMPARE(panel.at<GColorButton>("color"_s).color(), QColor(Qt::red));
        panel.type<NumberSpinBox>("int"_s, "999"_s);
        QCOMPARE(all.valueOf<PropertyInt>("int"_s), 50);

        Folder folder;
        QMimeData dropped;
        dropped.setUrls({QUrl::fromLocalFile(folder.write("dropped.png"_s, {}))});
        auto *pathEdit = panel.edit.findChild<GPathEdit *>();
        QDragEnterEvent enter({}, Qt::CopyAction, &dropped, Qt::LeftButton, {});
        QCoreApplication::sendEvent(pathEdit, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop({}, Qt::CopyAction, &dropped, Qt::LeftButton, {});
        QCoreApplication::sendEvent(pathEdit, &drop);
        QCOMPARE(all.valueOf<PropertyFilename>("file"_s).fileName(), "dropped.png"_s);
    }

    void refusedValuesGoBack()
    {
        // A text that refuses to be empty.
        class Tag : public PropertyString
        {
        public:
            using PropertyString::PropertyString;

        protected:
            void validate(const QString &value) const override
            {
                if (value.isEmpty())
                    throw Error("a tag may not be empty"_s);
            }
        };
        PropertyDescriptionList list;
        list.add<PropertyDescriptionString>("tag"_s, "Tag"_s, "tip"_s, "first"_s);
        PropertyStruct tagged(*m_project, "tagged"_s, &list);
        auto &tag = tagged.addField<Tag>("tag"_s);
        Panel panel;
        panel.edit.setStructs({&tagged});
        const auto isTold = [&panel] {
            const auto labels = panel.edit.findChildren<QLabel *>();
            return std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
                return label->isVisible() && label->text() == "a tag may not be empty"_s;
            });
        };
        panel.type<QLineEdit>("Tag"_s, QString());
        QCOMPARE(panel.at<QLineEdit>("Tag"_s).text(), "first"_s);
        QCOMPARE(steps().count(), 0);
        QVERIFY(isTold());
        panel.type<QLineEdit>("Tag"_s, "second"_s);
        QCOMPARE(tag.value(), "second"_s);
        QVERIFY(!isTold());
    }

private:
    GUndoStack &steps() const { return m_project->undoStack(); }

    std::unique_ptr<Project> m_project;
};

QTEST_MAIN(TestPropertyStructEdit)
#include "tst_PropertyStructEdit.moc"
