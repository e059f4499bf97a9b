#include "base/Error.h"
#include "framework/GColorButton.h"
#include "framework/GIntEdit.h"
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
#include "ui/properties/PropertyStructEdit.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QTest>

#include <deque>

class TestPropertyStructEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheFieldsThatAreAskedFor();
    void aDragIsOneStep_data();
    void aDragIsOneStep();
    void savingInADragKeepsThePlace();
    void severalBodies();
    void colorDialogIsOneStep();
    void everyTypeHasAnEditor();
    void refusedValuesGoBack();
};

namespace {
QString latin1(const char *text)
{
    return QString::fromLatin1(text);
}

/// A struct with a field of every type.
class Everything : public PropertyStruct
{
public:
    explicit Everything(GProject &project)
        : PropertyStruct(project, latin1("everything"), &descriptions())
    {
        addField<PropertyBool>(latin1("bool"));
        addField<PropertyInt>(latin1("int"));
        addField<PropertyUnsignedInt>(latin1("unsigned"));
        addField<PropertyDouble>(latin1("double"));
        addField<PropertyString>(latin1("string"));
        addField<PropertyEnum>(latin1("enum"));
        addField<PropertyFilename>(latin1("file"));
        addField<PropertyColor>(latin1("color"));
        addField<PropertyVector3D>(latin1("vector"));
        addField<PropertyReference>(latin1("preset"), latin1("brush"));
        addField<PropertyInt>(latin1("undescribed"));
    }

    template <class Type>
    auto valueOf(const char *name) const
    {
        return field<Type>(latin1(name)).value();
    }

private:
    static const PropertyDescriptionList &descriptions()
    {
        static PropertyDescriptionList list;
        if (!list.isEmpty())
            return list;
        const auto add = [](auto tag, const char *name, auto... rest) {
            list.add<typename decltype(tag)::type>(
                latin1(name), latin1(name), latin1("tip"), rest...);
        };
        using std::type_identity;
        add(type_identity<PropertyDescriptionBool>(), "bool");
        add(type_identity<PropertyDescriptionInt>(), "int", 5, 50, 10);
        add(type_identity<PropertyDescriptionUnsignedInt>(), "unsigned", 1U, 4000000000U, 2U);
        add(type_identity<PropertyDescriptionDouble>(), "double", 0.0, 1.0, 0.25);
        add(type_identity<PropertyDescriptionString>(), "string");
        const QVector<PropertyEnumElement> contours{{0, latin1("round")}, {1, latin1("flat")}};
        add(type_identity<PropertyDescriptionEnum>(), "enum", contours);
        add(type_identity<PropertyDescriptionFilename>(), "file", false);
        add(type_identity<PropertyDescriptionColor>(), "color", QColor(Qt::red));
        add(type_identity<PropertyDescriptionVector3D>(), "vector", QVector3D(1, 2, 3));
        add(type_identity<PropertyDescriptionReference>(), "preset", latin1("brush"));
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
        edit.show();
        edit.activateWindow();
        if (!QTest::qWaitForWindowActive(&edit))
            qFatal("The window does not become active");
    }

    template <class Widget>
    Widget &at(const char *label) const
    {
        for (auto *widget : edit.findChildren<Widget *>()) {
            if (widget->accessibleName() == latin1(label) && widget->isVisible())
                return *widget;
        }
        qFatal("There is no editor '%s'", label);
    }

    void drag(const char *label, const QVector<double> &shares) const
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

    void type(const char *label, const QString &text) const
    {
        auto &line = at<QLineEdit>(label);
        line.setFocus();
        line.selectAll();
        QTest::keyClicks(&line, text);
        QTest::keyClick(&line, Qt::Key_Return);
    }

    void number(const char *label, const QString &text) const
    {
        auto &spinBox = at<NumberSpinBox>(label);
        spinBox.setFocus();
        spinBox.selectAll();
        QTest::keyClicks(&spinBox, text);
        QTest::keyClick(&spinBox, Qt::Key_Return);
    }

    PropertyStructEdit edit;
};
} // namespace

void TestPropertyStructEdit::showsTheFieldsThatAreAskedFor()
{
    Project project;
    Panel panel;
    const auto labels = [&panel] {
        QStringList result;
        for (const auto *label : panel.edit.findChildren<QLabel *>()) {
            if (label->buddy() && label->isVisible())
                result.append(label->text());
        }
        return result;
    };
    panel.edit.setStructs({&project}, latin1("light"));
    QCOMPARE(labels(),
             QStringList({latin1("Z position"),
                          latin1("Brightness"),
                          latin1("Light color"),
                          latin1("Ambient light")}));
    QCOMPARE(panel.at<NumberSpinBox>("Brightness").minimum(), 10.0);
    QCOMPARE(panel.at<NumberSpinBox>("Brightness").maximum(), 400.0);
    auto &body = addBody(project, latin1("knight"));
    panel.edit.setStructs({&body});
    QCOMPARE(labels(), QStringList({latin1("Name"), latin1("Image")}));
    panel.edit.setStructs({});
    QCOMPARE(labels(), QStringList());
}

void TestPropertyStructEdit::aDragIsOneStep_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("one struct") << 1;
    QTest::newRow("three structs") << 3;
}

void TestPropertyStructEdit::aDragIsOneStep()
{
    QFETCH(int, count);
    GProject project(latin1("project"));
    project.addPresetCollection(latin1("brush"), std::make_shared<Everything>(project));
    std::deque<Everything> structs;
    QVector<PropertyStruct *> edited;
    for (int i = 0; i < count; ++i) {
        edited.append(&structs.emplace_back(project));
        structs.back().field<PropertyInt>(latin1("int")).setValue(10 + i);
    }
    const auto values = [&structs] {
        QVector<int> result;
        for (const auto &each : structs)
            result.append(each.valueOf<PropertyInt>("int"));
        return result;
    };
    const auto before = values();
    auto &stack = project.undoStack();
    Panel panel;
    panel.edit.setStructs(edited);
    RecordingObserver observer(structs.front().field<PropertyInt>(latin1("int")));

    panel.drag("int", {0.9, 0.7, 0.5});
    const auto after = values();
    QVERIFY(after != before && after.count(after.first()) == count);
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.undoText(), latin1("change int"));
    // The press and two moves; the values from before are never shown in between.
    QCOMPARE(observer.calls, 3);
    panel.drag("int", {0.2, 1.0});
    QCOMPARE(values(), QVector<int>(count, 50));
    QCOMPARE(stack.count(), 2);
    stack.undo();
    QCOMPARE(values(), after);
    QCOMPARE(panel.at<NumberSpinBox>("int").value(), double(after.first()));
    stack.undo();
    QCOMPARE(values(), before);
    QCOMPARE(panel.at<NumberSpinBox>("int").text(),
             count == 1 ? latin1("10") : QStringLiteral("\u2014"));
    stack.redo();
    QCOMPARE(values(), after);

    // Escape leaves neither a change nor a step.
    auto &slider = panel.at<GSlider>("int");
    QTest::mousePress(&slider, Qt::LeftButton, {}, {slider.width() - 10, 12});
    dragTo(slider, {slider.width() - 20, 12});
    QVERIFY(values() != after);
    QTest::keyClick(&slider, Qt::Key_Escape);
    QTest::mouseRelease(&slider, Qt::LeftButton);
    QCOMPARE(values(), after);
    QCOMPARE(stack.index(), 1);
    // Neither do the values that are there.
    panel.number("int", QString::number(after.first()));
    QCOMPARE(stack.index(), 1);
}

void TestPropertyStructEdit::savingInADragKeepsThePlace()
{
    Project project;
    auto &stack = project.undoStack();
    Panel panel;
    panel.edit.setStructs({&project}, latin1("light"));
    auto &slider = panel.at<GSlider>("Brightness");
    QTest::mousePress(&slider, Qt::LeftButton, {}, {slider.width() - 40, 12});
    QVERIFY(stack.isModified());
    stack.markSaved();
    const int saved = project.lightBrightness().value();
    dragTo(slider, {slider.width() - 10, 12});
    QVERIFY(stack.isModified());
    dragTo(slider, {slider.width() - 20, 12});
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, {slider.width() - 20, 12});
    QVERIFY(stack.isModified());
    stack.undo();
    QVERIFY(!stack.isModified());
    QCOMPARE(project.lightBrightness().value(), saved);
}

void TestPropertyStructEdit::severalBodies()
{
    Project project;
    auto &knight = addBody(project, latin1("knight"));
    auto &dragon = addBody(project, latin1("dragon"));
    auto &stack = project.undoStack();
    Panel panel;
    panel.edit.setStructs({&knight, &dragon});
    const auto &line = panel.at<GLineEdit>("Name");
    QCOMPARE(line.text(), QString());
    QCOMPARE(line.placeholderText(), QStringLiteral("\u2014"));
    panel.type("Name", latin1("hero"));
    QCOMPARE(knight.name().value() + dragon.name().value(), latin1("herohero"));
    QCOMPARE(line.text(), latin1("hero"));
    QCOMPARE(stack.count(), 1);
    stack.undo();
    QCOMPARE(dragon.name().value(), latin1("dragon"));
    QCOMPARE(line.text(), QString());
    dragon.name().setValue(latin1("knight"));
    QCOMPARE(line.text(), latin1("knight"));

    // What is being typed is lost with its row, not pushed into another one.
    auto &typing = panel.at<QLineEdit>("Name");
    typing.setFocus();
    QTest::keyClicks(&typing, latin1("half"));
    panel.edit.setStructs({&dragon});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(stack.index(), 0);
}

void TestPropertyStructEdit::colorDialogIsOneStep()
{
    Project project;
    auto &stack = project.undoStack();
    Panel panel;
    panel.edit.setStructs({&project}, latin1("light"));
    auto &button = panel.at<GColorButton>("Light color");
    for (const bool accepts : {false, true}) {
        QTest::mouseClick(&button, Qt::LeftButton);
        auto *dialog = panel.edit.findChild<QColorDialog *>();
        QVERIFY(dialog);
        for (const Qt::GlobalColor color : {Qt::red, Qt::green, Qt::blue})
            dialog->setCurrentColor(color);
        QCOMPARE(project.lightColor().value(), QColor(Qt::blue));
        QTest::keyClick(dialog, accepts ? Qt::Key_Return : Qt::Key_Escape);
        QCOMPARE(project.lightColor().value(), QColor(accepts ? Qt::blue : Qt::white));
        QCOMPARE(stack.index(), accepts ? 1 : 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QCOMPARE(button.toolTip(), latin1("#0000ff"));
}

void TestPropertyStructEdit::everyTypeHasAnEditor()
{
    GProject project(latin1("project"));
    auto prototype = std::make_shared<PropertyStruct>(project, latin1("data"));
    auto &presets = project.addPresetCollection(latin1("brush"), prototype);
    Everything all(project);
    Panel panel;
    panel.edit.setStructs({&all});
    auto preset = std::make_shared<PropertyPreset>(project, latin1("brush"), prototype);
    preset->name().setValue(latin1("fine"));
    presets.append(preset, latin1("add preset"));
    const int first = project.undoStack().count();

    QTest::mouseClick(&panel.at<QCheckBox>("bool"), Qt::LeftButton, {}, {8, 12});
    panel.number("int", latin1("42"));
    panel.number("unsigned", latin1("3000000000"));
    panel.number("double", QLocale().toString(0.125));
    panel.type("string", latin1("text"));
    panel.type("file", latin1("/some/file.png"));
    QTest::keyClick(&panel.at<QComboBox>("enum"), Qt::Key_Down);
    panel.number("vector Y", QLocale().toString(7.5));
    QTest::keyClick(&panel.at<QComboBox>("preset"), Qt::Key_Down);
    QCOMPARE(project.undoStack().count() - first, 9);
    QCOMPARE(all.valueOf<PropertyBool>("bool"), true);
    QCOMPARE(all.valueOf<PropertyInt>("int"), 42);
    QCOMPARE(all.valueOf<PropertyUnsignedInt>("unsigned"), 3000000000U);
    QCOMPARE(all.valueOf<PropertyDouble>("double"), 0.125);
    QCOMPARE(all.valueOf<PropertyString>("string"), latin1("text"));
    QCOMPARE(all.valueOf<PropertyFilename>("file").path(), latin1("/some/file.png"));
    QCOMPARE(all.valueOf<PropertyEnum>("enum").name, latin1("flat"));
    QCOMPARE(all.valueOf<PropertyVector3D>("vector"), QVector3D(1, 7.5F, 3));
    QCOMPARE(all.valueOf<PropertyReference>("preset"), preset);
    QCOMPARE(panel.at<GColorButton>("color").color(), QColor(Qt::red));

    Folder folder;
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(folder.write(latin1("dropped.png"), {}))});
    auto *pathEdit = panel.edit.findChild<GPathEdit *>();
    QDragEnterEvent enter({}, Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QCoreApplication::sendEvent(pathEdit, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop({}, Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QCoreApplication::sendEvent(pathEdit, &drop);
    QCOMPARE(all.valueOf<PropertyFilename>("file").fileName(), latin1("dropped.png"));
    panel.number("int", latin1("999"));
    QCOMPARE(all.valueOf<PropertyInt>("int"), 50);
}

void TestPropertyStructEdit::refusedValuesGoBack()
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
                throw Error(latin1("a tag may not be empty"));
        }
    };
    GProject project(latin1("project"));
    PropertyDescriptionList list;
    list.add<PropertyDescriptionString>(
        latin1("tag"), latin1("Tag"), latin1("tip"), latin1("first"));
    PropertyStruct tagged(project, latin1("tagged"), &list);
    auto &tag = tagged.addField<Tag>(latin1("tag"));
    Panel panel;
    panel.edit.setStructs({&tagged});
    auto &line = panel.at<QLineEdit>("Tag");
    line.setFocus();
    line.selectAll();
    QTest::keyClick(&line, Qt::Key_Delete);
    QTest::keyClick(&line, Qt::Key_Return);
    QCOMPARE(line.text(), latin1("first"));
    QCOMPARE(project.undoStack().count(), 0);
    const auto isTold = [&panel] {
        const auto labels = panel.edit.findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
            return label->isVisible() && label->text() == latin1("a tag may not be empty");
        });
    };
    QVERIFY(isTold());
    panel.type("Tag", latin1("second"));
    QCOMPARE(tag.value(), latin1("second"));
    QVERIFY(!isTold());
}

QTEST_MAIN(TestPropertyStructEdit)
#include "tst_PropertyStructEdit.moc"
