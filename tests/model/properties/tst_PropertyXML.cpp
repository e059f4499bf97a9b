#include "base/Error.h"
#include "model/properties/DataFiles.h"
#include "model/properties/GProject.h"
#include "model/properties/PropertyByteArray.h"
#include "model/properties/PropertyDescriptionList.h"
#include "model/properties/PropertyDescriptionTypes.h"
#include "model/properties/PropertyEnum.h"
#include "model/properties/PropertyReference.h"
#include "model/properties/PropertyXMLReader.h"
#include "model/properties/PropertyXMLWriter.h"

#include <QDir>
#include <QTest>

#include <cmath>

class TestPropertyXML : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textOfEachType();
    void everyTypeComesBack();
    void references();
};

namespace {
const QString brush = QStringLiteral("brush");

class NoDataFiles : public DataFiles
{
public:
    void add(PropertyByteArray &) override {}
    std::shared_ptr<DataFile> find(const QString &) const override { return nullptr; }
    void unpack(const QVector<std::shared_ptr<DataFile>> &) const override {}
};

PropertyDescriptionList describeEnum()
{
    const QVector<PropertyEnumElement> elements{{1, QStringLiteral("up")},
                                                {2, QStringLiteral("down")}};
    PropertyDescriptionList list;
    list.add<PropertyDescriptionEnum>(QStringLiteral("enum"), QString(), QString(), elements);
    return list;
}

const PropertyDescriptionList descriptions = describeEnum();

// A document with one field of each type.
struct Document : GProject
{
    Document()
        : GProject(QStringLiteral("document"), &descriptions)
    {
    }

    QString xml()
    {
        return textOf(PropertyXMLWriter(QStringLiteral("/art"), files).write(*this), 4);
    }

    void read(const QString &xml)
    {
        QDomDocument document;
        document.setContent(xml);
        PropertyXMLReader(QStringLiteral("/art"), &files).read(*this, document.documentElement());
    }

    NoDataFiles files;
    PropertyRect &rect = addField<PropertyRect>(QStringLiteral("rect"));
    PropertyPolygon &polygon = addField<PropertyPolygon>(QStringLiteral("polygon"));
    PropertyCircle &circle = addField<PropertyCircle>(QStringLiteral("circle"));
    PropertyFilename &filename = addField<PropertyFilename>(QStringLiteral("file"));
    PropertyEnum &element = addField<PropertyEnum>(QStringLiteral("enum"));
    PropertyColor &color = addField<PropertyColor>(QStringLiteral("color"));
    PropertyVector3D &vector = addField<PropertyVector3D>(QStringLiteral("vector"));
    PropertyPointF &point = addField<PropertyPointF>(QStringLiteral("point"));
    PropertyDouble &real = addField<PropertyDouble>(QStringLiteral("real"));
    PropertyUnsignedInt &natural = addField<PropertyUnsignedInt>(QStringLiteral("natural"));
    PropertyInt &whole = addField<PropertyInt>(QStringLiteral("whole"));
    PropertyBool &flag = addField<PropertyBool>(QStringLiteral("flag"));
};
} // namespace

void TestPropertyXML::textOfEachType()
{
    Document document;
    document.real.setValue(0.123456789);
    document.color.setValue(QColor(255, 128, 0, 40));
    document.whole.setValue(-7);
    document.filename.setValue(GFileName(QStringLiteral("/art")));
    document.circle.setValue({{0.1, 0}, 1.0 / 3.0});
    document.vector.setValue({1.0F / 3.0F, 0, 1e10F});
    const QString xml = document.xml();
    for (const char *part : {"<preset_collections/>",
                             "<real>0.123457</real>",
                             "<color>#ff8000</color>",
                             "\n    <whole>-7</whole>",
                             "<file>./</file>",
                             "<polygon/>",
                             "<enum>up</enum>",
                             "<flag>false</flag>",
                             R"(<circle radius="0.3333333333333333" x="0.1" y="0"/>)",
                             R"(<vector x="0.333333" y="0" z="1e+10"/>)"})
        QVERIFY2(xml.contains(QLatin1String(part)), part);
}

void TestPropertyXML::everyTypeComesBack()
{
    Document document;
    document.rect.setValue({0.1, -2, 3e-9, 4});
    document.polygon.setValue({{0.1, 2}, {M_PI, -1e300}});
    document.circle.setValue({{1, 2}, M_PI});
    document.filename.setValue(GFileName(QStringLiteral("/other/a.png")));
    document.element.setValue({2, QStringLiteral("down")});
    document.color.setValue(QColor(1, 2, 3));
    document.vector.setValue({1, -2, 0.5F});
    document.point.setValue({-0.1, 1e17});
    document.real.setValue(-2.5e-7);
    document.natural.setValue(4294967295U);
    document.whole.setValue(-2147483647 - 1);
    document.flag.setValue(true);
    Document read;
    read.polygon.setValue({{5, 5}});
    read.read(document.xml());
    QCOMPARE(read.xml(), document.xml());
    QVERIFY(read.rect.value() == document.rect.value());
    QCOMPARE(read.polygon.value(), document.polygon.value());
    QVERIFY(read.circle.value() == document.circle.value());
    QCOMPARE(read.filename.value().path(), QStringLiteral("/other/a.png"));
    QCOMPARE(read.natural.value(), 4294967295U);
    QCOMPARE(read.undoStack().count(), 0);

    read.read(QStringLiteral("<document><flag>True</flag><whole>x</whole></document>"));
    QCOMPARE(read.flag.value(), false);
    QCOMPARE(read.whole.value(), 0);
    QVERIFY_EXCEPTION_THROWN(read.read(QStringLiteral("<document><enum>x</enum></document>")),
                             ErrorTypeConflict);
    QCOMPARE(read.element.value().value, 2);
}

void TestPropertyXML::references()
{
    Document document;
    auto prototype = std::make_shared<PropertyStruct>(document, QStringLiteral("data"));
    prototype->addField<PropertyInt>(QStringLiteral("size"));
    auto &collection = document.addPresetCollection(brush, prototype);
    const auto preset =
        std::static_pointer_cast<PropertyPreset>(collection.createEntry(QStringLiteral("preset")));
    preset->name().setValue(QStringLiteral("soft"));
    auto &reference = document.addField<PropertyReference>(QStringLiteral("tip"), brush, preset);
    QVERIFY(document.xml().contains(QStringLiteral("<size>0</size>"))); // its own settings
    collection.append(preset, QString());
    QVERIFY(document.xml().contains(QStringLiteral("name=\"soft\"")));
    QVERIFY(document.xml().contains(QStringLiteral("<brush_list>")));

    const QString tip = QStringLiteral("<document><tip type=\"brush\"%1</tip></document>");
    reference.setValue(std::static_pointer_cast<PropertyPreset>(preset->newInstance()));
    document.read(tip.arg(QStringLiteral("><data><size>9</size></data>")));
    QCOMPARE(reference.value()->data().field<PropertyInt>(QStringLiteral("size")).value(), 9);
    document.read(tip.arg(QStringLiteral(" name=\"soft\">")));
    QCOMPARE(reference.value(), preset);
    try {
        document.read(tip.arg(QStringLiteral(" name=\"hard\">")));
        QFAIL("not refused");
    } catch (const Error &error) {
        QCOMPARE(error.message(), QStringLiteral("property preset 'hard' not found in 'brush'"));
    }
}

QTEST_GUILESS_MAIN(TestPropertyXML)

#include "tst_PropertyXML.moc"
