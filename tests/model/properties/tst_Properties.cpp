#include "model/properties/ClonePropertyVisitor.h"
#include "model/properties/GProject.h"
#include "model/properties/PropertyByteArray.h"
#include "model/properties/PropertyStructFactory.h"

#include <QTest>

class TestProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cloneIsDeep();
    void listStepsRestoreChildren();
};

namespace {
const QString size = QStringLiteral("size");
const QString data = QStringLiteral("data");
const QString brush = QStringLiteral("brush");

// A document of presets with a number each.
struct Document
{
    Document()
    {
        prototype->addField<PropertyInt>(size);
        project.addPresetCollection(brush, prototype);
    }

    std::shared_ptr<PropertyPreset> preset()
    {
        return std::make_shared<PropertyPreset>(
            project, brush, PropertyStructFactory().create(data, *prototype));
    }

    GProject project{QStringLiteral("project")};
    std::shared_ptr<PropertyStruct> prototype = std::make_shared<PropertyStruct>(project, data);
    PropertyListT<PropertyPreset> list{project, QStringLiteral("list")};
};
} // namespace

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
