#include "base/Error.h"
#include "model/properties/ClonePropertyVisitor.h"
#include "model/properties/GProject.h"
#include "model/properties/PropertyDescriptionList.h"
#include "model/properties/PropertyDescriptionTypes.h"
#include "model/properties/PropertyEnum.h"
#include "model/properties/PropertyReference.h"
#include "model/properties/PropertyStructFactory.h"

#include <QTest>

#include <functional>
#include <typeindex>

class TestProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusals();
    void factoryTakesDefaults();
    void cloneIsDeep();
    void clonesOfNamedPresets();
    void listStepsRestoreChildren();
};

namespace {
const QString size = QStringLiteral("size");
const QString data = QStringLiteral("data");
const QString mode = QStringLiteral("mode");
const QString brush = QStringLiteral("brush");
const QVector<PropertyEnumElement> modes{{1, QStringLiteral("up")}, {2, QStringLiteral("down")}};

// A document with one of everything that refuses something.
struct Document
{
    Document()
    {
        descriptions.add<PropertyDescriptionInt>(size, size, size, 1, 500, 30);
        descriptions.add<PropertyDescriptionEnum>(mode, QString(), QString(), modes);
        prototype->addField<PropertyInt>(size);
        prototype->addField<PropertyEnum>(mode);
        project.addPresetCollection(brush, prototype);
    }

    std::shared_ptr<PropertyPreset> preset(const QString &type = brush)
    {
        return std::make_shared<PropertyPreset>(
            project, type, PropertyStructFactory().create(data, *prototype));
    }

    PropertyEnum &element() { return prototype->field<PropertyEnum>(mode); }

    GProject project{QStringLiteral("project")};
    PropertyDescriptionList descriptions;
    std::shared_ptr<PropertyStruct> prototype =
        std::make_shared<PropertyStruct>(project, data, &descriptions);
    PropertyListT<PropertyPreset> list{project, QStringLiteral("list")};
    PropertyReference reference{project, QStringLiteral("reference"), brush};
    std::shared_ptr<PropertyInt> number = std::make_shared<PropertyInt>(project, size);
};
} // namespace

void TestProperties::refusals()
{
    const QString pen = QStringLiteral("pen");
    const std::type_index plain = typeid(Error);
    const std::type_index exists = typeid(ErrorAlreadyExists);
    const std::type_index missing = typeid(ErrorDoesNotExist);
    const std::type_index conflict = typeid(ErrorTypeConflict);
    const struct
    {
        const char *message;
        std::type_index type;
        std::function<void(Document &)> action;
    } cases[] = {
        {"requested property 'size' has wrong type",
         conflict,
         [](Document &in) { in.prototype->field<PropertyString>(size); }},
        {"requested undefined property 'pen'",
         missing,
         [&](Document &in) { in.prototype->field<PropertyInt>(pen); }},
        {"property 'size' already exists in struct 'data'",
         exists,
         [](Document &in) { in.prototype->addField<PropertyBool>(size); }},
        {"property 'size' in list 'list' has wrong type'",
         conflict,
         [](Document &in) {
             in.list.setEntries({in.number});
             in.list.at(0);
         }},
        {"cannot add 'size' to list 'list', wrong type",
         conflict,
         [](Document &in) { in.list.append(in.number, size); }},
        {"preset collection of type 'brush' already exists",
         exists,
         [](Document &in) { in.project.addPresetCollection(brush, in.prototype); }},
        {"preset collection of type 'pen' does not exist",
         missing,
         [&](Document &in) { in.project.presetCollection(pen); }},
        {"up (7) is not an element of enum mode",
         conflict,
         [](Document &in) {
             in.element().setValue({7, QStringLiteral("up")}, size);
         }},
        {"cannot assign type 'pen' to reference property of type 'brush'",
         conflict,
         [&](Document &in) { in.reference.setValue(in.preset(pen)); }},
        {"reference property may not be set to NULL",
         plain,
         [](Document &in) {
             in.reference.setValue(in.preset());
             in.reference.setValue(nullptr, size);
         }},
        {"PropertyStruct may not contain a preset property",
         plain,
         [](Document &in) {
             PropertyStruct outer(in.project, data);
             outer.addField(in.preset());
             PropertyStructFactory().create(data, outer);
         }},
        {"cloning complete Projects is not allowed",
         plain,
         [](Document &in) { ClonePropertyVisitor().clone(in.project); }},
        {"cloning PropertyPresetCollections is not allowed",
         plain,
         [](Document &in) { ClonePropertyVisitor().clone(in.project.presetCollection(brush)); }},
    };
    for (const auto &[message, type, action] : cases) {
        Document document;
        try {
            action(document);
            QFAIL(message);
        } catch (const Error &error) {
            QCOMPARE(error.message(), QLatin1String(message));
            QVERIFY2(type == typeid(error), message);
        }
        QVERIFY2(document.project.undoStack().count() == 0, message);
        QVERIFY2(document.prototype->fields().size() == 2, message);
        QVERIFY2(document.element().value().value == 1, message);
    }
}

void TestProperties::factoryTakesDefaults()
{
    Document document;
    document.prototype->field<PropertyInt>(size).setValue(77);
    const auto made = PropertyStructFactory().create(data, *document.prototype);
    QCOMPARE(made->field<PropertyInt>(size).value(), 30);
    QCOMPARE(made->field<PropertyInt>(size).description(), document.descriptions.find(size));
    QCOMPARE(made->field<PropertyEnum>(mode).value().name, QStringLiteral("up"));
}

void TestProperties::cloneIsDeep()
{
    Document document;
    auto &bytes = document.prototype->addField<PropertyByteArray>(brush);
    bytes.setValue(QByteArrayLiteral("abc"));
    bytes.setDataFileId(QStringLiteral("id"));
    auto &children = document.prototype->addField<PropertyListT<PropertyPreset>>(data);
    children.setEntries({document.preset(), document.preset()});
    document.prototype->field<PropertyInt>(size).setValue(8);

    const auto clone = ClonePropertyVisitor().clone(*document.prototype);
    const auto &copy = dynamic_cast<PropertyStruct &>(*clone);
    QCOMPARE(copy.field<PropertyInt>(size).value(), 8);
    QCOMPARE(copy.field<PropertyByteArray>(brush).value(), bytes.value());
    QVERIFY(copy.field<PropertyByteArray>(brush).dataFileId().isEmpty());
    const auto &copied = copy.field<PropertyListT<PropertyPreset>>(data);
    QCOMPARE(copied.size(), 2);
    QVERIFY(&copied.at(0) != &children.at(0));
    QCOMPARE(copied.at(1).parent(), &copied);
    QCOMPARE(children.at(1).parent(), &children);
}

void TestProperties::clonesOfNamedPresets()
{
    Document document;
    const auto preset = document.preset();
    document.reference.setValue(preset);
    for (const auto &[name, expected] : {std::pair("", ""), {"soft %2", "copy 'soft %2'"}}) {
        preset->name().setValue(QLatin1String(name));
        const auto copy = ClonePropertyVisitor().clone(*preset);
        QCOMPARE(dynamic_cast<PropertyPreset &>(*copy).name().value(), QLatin1String(expected));
        const auto user = ClonePropertyVisitor().clone(document.reference);
        QCOMPARE(dynamic_cast<PropertyReference &>(*user).value()->name().value(),
                 QLatin1String(expected));
        QCOMPARE(preset->name().value(), QLatin1String(name));
    }
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
