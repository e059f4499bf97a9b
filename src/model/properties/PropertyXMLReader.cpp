#include "model/properties/PropertyXMLReader.h"

#include "base/Error.h"
#include "model/properties/DataFiles.h"
#include "model/properties/GProject.h"
#include "model/properties/PropertyByteArray.h"
#include "model/properties/PropertyEnum.h"
#include "model/properties/PropertyReference.h"

#include <QCoreApplication>

namespace {
QPointF pointOf(const QDomElement &element)
{
    return {element.attribute(QStringLiteral("x")).toDouble(),
            element.attribute(QStringLiteral("y")).toDouble()};
}
} // namespace

PropertyXMLReader::PropertyXMLReader(const QString &baseFolder, const DataFiles *dataFiles)
    : m_baseFolder(baseFolder)
    , m_dataFiles(dataFiles)
{
}

void PropertyXMLReader::read(GProject &project, const QDomElement &root)
{
    m_project = &project;
    readFrom(root, project);
    loadDataFiles();
}

void PropertyXMLReader::visit(GProject &project)
{
    visit(static_cast<PropertyStruct &>(project));
}

void PropertyXMLReader::visit(PropertyList &property)
{
    PropertyList::Entries entries;
    const QDomElement list = m_current;
    for (QDomElement element = list.firstChildElement(); !element.isNull();
         element = element.nextSiblingElement()) {
        const QString tag = element.tagName();
        if (tag.endsWith(QLatin1String("_list")))
            throw Error(QCoreApplication::translate("PropertyXMLReader",
                                                    "Preset collections not supported (%1)")
                            .arg(tag));
        const auto entry = property.createEntry(tag);
        if (!entry)
            throw Error(
                QCoreApplication::translate("PropertyXMLReader", "Unknown list element '%1'")
                    .arg(tag));
        property.requireType(*entry);
        readFrom(element, *entry);
        entries.append(entry);
    }
    property.setEntries(entries);
}

void PropertyXMLReader::visit(PropertyReference &property)
{
    const QString name = m_current.attribute(QStringLiteral("name"));
    if (name.isEmpty()) {
        if (property.value())
            visit(static_cast<PropertyStruct &>(*property.value()));
        return;
    }
    const QString type = m_current.attribute(QStringLiteral("type"));
    const auto preset = m_project->presetCollection(type).preset(name);
    if (!preset)
        throw Error(QCoreApplication::translate("PropertyXMLReader",
                                                "property preset '%1' not found in '%2'")
                        .arg(name, type));
    property.setValue(preset);
}

void PropertyXMLReader::visit(PropertyPresetCollection &property)
{
    visit(static_cast<PropertyList &>(property));
}

void PropertyXMLReader::visit(PropertyPreset &property)
{
    visit(static_cast<PropertyStruct &>(property));
}

void PropertyXMLReader::visit(PropertyStruct &property)
{
    const QDomElement element = m_current;
    for (const auto &field : property.fields()) {
        const QDomElement child = element.firstChildElement(field->key());
        if (!child.isNull())
            readFrom(child, *field);
    }
}

void PropertyXMLReader::visit(PropertyByteArray &property)
{
    const QString id = m_current.attribute(QStringLiteral("datafile"));
    if (id.isEmpty() || !m_dataFiles)
        return;
    property.setDataFileId(id);
    m_byteArrays.append(&property);
}

void PropertyXMLReader::visit(PropertyRect &property)
{
    property.setValue(
        {pointOf(m_current),
         QSizeF(attribute(QStringLiteral("width")), attribute(QStringLiteral("height")))});
}

void PropertyXMLReader::visit(PropertyPolygon &property)
{
    GPolygonF polygon;
    const QString tag = QStringLiteral("point");
    for (QDomElement vertex = m_current.firstChildElement(tag); !vertex.isNull();
         vertex = vertex.nextSiblingElement(tag))
        polygon.append(pointOf(vertex));
    property.setValue(polygon);
}

void PropertyXMLReader::visit(PropertyCircle &property)
{
    property.setValue({pointOf(m_current), attribute(QStringLiteral("radius"))});
}

void PropertyXMLReader::visit(PropertyFilename &property)
{
    property.setValue(GFileName::fromRelative(m_current.text(), m_baseFolder));
}

void PropertyXMLReader::visit(PropertyEnum &property)
{
    property.setValue(property.element(m_current.text()));
}

void PropertyXMLReader::visit(PropertyColor &property)
{
    const QString text = m_current.text();
    if (QColor::isValidColor(text))
        property.setValue(QColor(text));
    else
        qWarning("'%s' is no color, '%s' keeps its value",
                 qUtf8Printable(text),
                 qUtf8Printable(property.key()));
}

void PropertyXMLReader::visit(PropertyVector3D &property)
{
    property.setValue(QVector3D(float(attribute(QStringLiteral("x"))),
                                float(attribute(QStringLiteral("y"))),
                                float(attribute(QStringLiteral("z")))));
}

void PropertyXMLReader::visit(PropertyPointF &property)
{
    bool hasX = false;
    bool hasY = false;
    const QPointF point(m_current.attribute(QStringLiteral("x")).toDouble(&hasX),
                        m_current.attribute(QStringLiteral("y")).toDouble(&hasY));
    if (hasX && hasY && qIsFinite(point.x()) && qIsFinite(point.y()))
        property.setValue(point);
    else
        qWarning("'%s' is no point and keeps its value", qUtf8Printable(property.key()));
}

void PropertyXMLReader::visit(PropertyDouble &property)
{
    property.setValue(m_current.text().toDouble());
}

void PropertyXMLReader::visit(PropertyUnsignedInt &property)
{
    property.setValue(m_current.text().toUInt());
}

void PropertyXMLReader::visit(PropertyInt &property)
{
    property.setValue(m_current.text().toInt());
}

void PropertyXMLReader::visit(PropertyString &property)
{
    property.setValue(m_current.text());
}

void PropertyXMLReader::visit(PropertyBool &property)
{
    property.setValue(m_current.text() == QLatin1String("true"));
}

double PropertyXMLReader::attribute(const QString &name) const
{
    return m_current.attribute(name).toDouble();
}

void PropertyXMLReader::readFrom(const QDomElement &element, Property &property)
{
    const QDomElement outer = std::exchange(m_current, element);
    property.accept(*this);
    m_current = outer;
}

void PropertyXMLReader::loadDataFiles()
{
    QVector<std::shared_ptr<DataFile>> files;
    for (auto *property : std::as_const(m_byteArrays)) {
        auto file = m_dataFiles->find(property->dataFileId());
        if (!file) {
            file = std::make_shared<DataFile>();
            file->damaged = true;
        }
        files.append(file);
    }
    if (!files.isEmpty())
        m_dataFiles->unpack(files);
    for (int i = 0; i < files.size(); ++i) {
        PropertyByteArray &property = *m_byteArrays[i];
        property.setDataFile(files[i]);
        // Two properties of one data file: the second is saved as another one.
        if (m_usedIds.contains(property.dataFileId()))
            property.setDataFileId({});
        m_usedIds.insert(property.dataFileId());
    }
}
