#include "base/Error.h"
#include "model/properties/ClonePropertyVisitor.h"
#include "model/properties/GProject.h"
#include "model/properties/PropertyEnum.h"
#include "model/properties/PropertyReference.h"
#include "model/properties/PropertyStructFactory.h"

#include <QTest>

#include <functional>

class TestProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusals_data();
    void refusals();
    void factoryTakesDefaults();
    void cloneIsDeep();
    void clonesOfNamedPresets();
    void listStepsRestoreChildren();
};

namespace {
enum class Kind { Plain, Exists, Missing, Conflict };

Kind kindOf(const Error &error)
{
    if (dynamic_cast<const ErrorAlreadyExists *>(&error))
        return Kind::Exists;
    if (dynamic_cast<const ErrorDoesNotExist *>(&error))
        return Kind::Missing;
    return dynamic_cast<const ErrorTypeConflict *>(&error) ? Kind::Conflict : Kind::Plain;
}

const QString size = QStringLiteral("size");
const QString data = QStringLiteral("data");
const QString brush = QStringLiteral("brush");

// A document with one of everything that refuses something.
struct Document
{
    Document()
    {
        descriptions.add<PropertyDescriptionInt>(size, size, size, 1, 500, 30);
        descriptions.add<PropertyDescriptionEnum>(
            QStringLiteral("mode"),
            QString(),
            QString(),
            QVector<PropertyEnumElement>{{1, QStringLiteral("up")}, {2, QStringLiteral("down")}});
        prototype = std::make_shared<PropertyStruct>(project, data, &descriptions);
        prototype->addField<PropertyInt>(size);
        mode = &prototype->addField<PropertyEnum>(QStringLiteral("mode"));
        project.addPresetCollection(brush, prototype);
    }

    std::shared_ptr<PropertyPreset> preset(const QString &type = brush)
    {
        return std::make_shared<PropertyPreset>(
            project, type, PropertyStructFactory().create(data, *prototype));
    }

    GProject project{QStringLiteral("project")};
    PropertyDescriptionList descriptions;
    std::shared_ptr<PropertyStruct> prototype;
    PropertyEnum *mode = nullptr;
    PropertyListT<PropertyPreset> list{project, QStringLiteral("list")};
    PropertyReference reference{project, QStringLiteral("reference"), brush};
};

using Action = std::function<void(Document &)>;
} // namespace

Q_DECLARE_METATYPE(Action)

void TestProperties::refusals_data()
{
    QTest::addColumn<Action>("action");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *message, Kind kind, const Action &action) {
        QTest::newRow(message) << action << int(kind) << QString::fromLatin1(message);
    };

    row("requested property 'size' has wrong type", Kind::Conflict, [](Document &document) {
        document.prototype->field<PropertyString>(size);
    });
    row("requested undefined property 'absent'", Kind::Missing, [](Document &document) {
        document.prototype->field<PropertyInt>(QStringLiteral("absent"));
    });
    row("property 'size' already exists in struct 'data'", Kind::Exists, [](Document &document) {
        document.prototype->addField<PropertyBool>(size);
    });
    row("property 'size' in list 'list' has wrong type'", Kind::Conflict, [](Document &document) {
        document.list.setEntries({std::make_shared<PropertyInt>(document.project, size)});
        document.list.at(0);
    });
    row("cannot add 'size' to list 'list', wrong type", Kind::Conflict, [](Document &document) {
        document.list.append(std::make_shared<PropertyInt>(document.project, size), size);
    });
    row("preset collection of type 'brush' already exists", Kind::Exists, [](Document &document) {
        document.project.addPresetCollection(brush, document.prototype);
    });
    row("preset collection of type 'pen' does not exist", Kind::Missing, [](Document &document) {
        document.project.presetCollection(QStringLiteral("pen"));
    });
    row("up (7) is not an element of enum mode", Kind::Conflict, [](Document &document) {
        document.mode->setValue({7, QStringLiteral("up")}, size);
    });
    row("cannot assign type 'pen' to reference property of type 'brush'",
        Kind::Conflict,
        [](Document &document) {
            document.reference.setValue(document.preset(QStringLiteral("pen")));
        });
    row("reference property may not be set to NULL", Kind::Plain, [](Document &document) {
        document.reference.setValue(document.preset());
        document.reference.setValue(nullptr, size);
    });
    row("PropertyStruct may not contain a preset property", Kind::Plain, [](Document &document) {
        PropertyStruct outer(document.project, data);
        outer.addField(document.preset());
        PropertyStructFactory().create(data, outer);
    });
    row("cloning complete Projects is not allowed", Kind::Plain, [](Document &document) {
        ClonePropertyVisitor().clone(document.project);
    });
    row("cloning PropertyPresetCollections is not allowed", Kind::Plain, [](Document &document) {
        ClonePropertyVisitor().clone(document.project.presetCollection(brush));
    });
}

void TestProperties::refusals()
{
    QFETCH(Action, action);
    QFETCH(int, kind);
    QFETCH(QString, message);
    Document document;
    const int before = document.project.undoStack().count();
    try {
        action(document);
        QFAIL("not refused");
    } catch (const Error &error) {
        QCOMPARE(error.message(), message);
        QCOMPARE(int(kindOf(error)), kind);
    }
    QCOMPARE(document.project.undoStack().count(), before);
    QCOMPARE(document.prototype->fields().size(), 2);
    QCOMPARE(document.mode->value().value, 1);
}

void TestProperties::factoryTakesDefaults()
{
    Document document;
    document.prototype->field<PropertyInt>(size).setValue(77);
    const auto made = PropertyStructFactory().create(data, *document.prototype);
    QCOMPARE(made->field<PropertyInt>(size).value(), 30);
    QCOMPARE(made->field<PropertyInt>(size).description(), document.descriptions.find(size));
    QCOMPARE(made->field<PropertyEnum>(QStringLiteral("mode")).value().name, QStringLiteral("up"));
}

void TestProperties::cloneIsDeep()
{
    Document document;
    auto &bytes = document.prototype->addField<PropertyByteArray>(QStringLiteral("bytes"));
    bytes.setValue(QByteArrayLiteral("abc"));
    bytes.setDataFileId(QStringLiteral("id"));
    auto &children =
        document.prototype->addField<PropertyListT<PropertyPreset>>(QStringLiteral("children"));
    children.setEntries({document.preset(), document.preset()});
    document.prototype->field<PropertyInt>(size).setValue(8);

    const auto copy = std::dynamic_pointer_cast<PropertyStruct>(
        ClonePropertyVisitor().clone(*document.prototype));
    QCOMPARE(copy->field<PropertyInt>(size).value(), 8);
    const auto &copiedBytes = copy->field<PropertyByteArray>(QStringLiteral("bytes"));
    QCOMPARE(copiedBytes.value(), QByteArrayLiteral("abc"));
    QVERIFY(copiedBytes.dataFileId().isEmpty());
    const auto &copied = copy->field<PropertyListT<PropertyPreset>>(QStringLiteral("children"));
    QCOMPARE(copied.size(), 2);
    QVERIFY(&copied.at(0) != &children.at(0));
    QCOMPARE(copied.at(1).parent(), &copied);
    QCOMPARE(children.at(1).parent(), &children);
}

void TestProperties::clonesOfNamedPresets()
{
    Document document;
    const auto preset = document.preset();
    const auto clonedName = [](Property &property) {
        const auto copy = ClonePropertyVisitor().clone(property);
        if (const auto *reference = dynamic_cast<PropertyReference *>(copy.get()))
            return reference->value()->name().value();
        return static_cast<PropertyPreset &>(*copy).name().value();
    };
    document.reference.setValue(preset);
    QCOMPARE(clonedName(*preset), QString());
    QCOMPARE(clonedName(document.reference), QString());
    preset->name().setValue(QStringLiteral("soft %2"));
    QCOMPARE(clonedName(*preset), QStringLiteral("copy 'soft %2'"));
    QCOMPARE(clonedName(document.reference), QStringLiteral("copy 'soft %2'"));
    QCOMPARE(preset->name().value(), QStringLiteral("soft %2"));
}

void TestProperties::listStepsRestoreChildren()
{
    Document document;
    const auto first = document.preset();
    std::weak_ptr<PropertyPreset> second;
    {
        const auto entry = document.preset();
        second = entry;
        document.list.append(first, size);
        document.list.append(entry, size);
    }
    document.list.remove(*first, size);
    QCOMPARE(document.list.size(), 1);
    QVERIFY(!first->parent());
    document.project.undoStack().undo();
    QCOMPARE(&document.list.at(0), first.get());
    QCOMPARE(first->parent(), &document.list);
    document.project.undoStack().undo();
    QVERIFY(!second.expired()); // the step that can be redone keeps it
    document.list.remove(*first, size);
    QVERIFY(second.expired());
}

QTEST_GUILESS_MAIN(TestProperties)

#include "tst_Properties.moc"
