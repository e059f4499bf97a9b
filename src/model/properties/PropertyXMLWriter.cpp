#include "model/properties/PropertyXMLWriter.h"

#include "model/properties/DataFiles.h"
#include "model/properties/GProject.h"
#include "model/properties/PropertyByteArray.h"
#include "model/properties/PropertyEnum.h"
#include "model/properties/PropertyReference.h"

#include <QUuid>

#include <algorithm>

namespace {
QString number(double value)
{
    return QString::number(value, 'g', 16);
}

QString shortNumber(double value)
{
    return QString::number(value, 'g', 6);
}

void setPoint(QDomElement element, const QPointF &point)
{
    element.setAttribute(QStringLiteral("x"), number(point.x()));
    element.setAttribute(QStringLiteral("y"), number(point.y()));
}

// An id that came from elsewhere may not do as a name in every archive.
bool isPlainId(const QString &id)
{
    constexpr int longest = 200;
    return !id.isEmpty() && id.size() <= longest && std::all_of(id.begin(), id.end(), [](QChar c) {
        return c.unicode() < 0x7F &&
               (c.isLetterOrNumber() || c == QLatin1Char('-') || c == QLatin1Char('_'));
    });
}
} // namespace

PropertyXMLWriter::PropertyXMLWriter(const QString &baseFolder, DataFiles &dataFiles)
    : m_baseFolder(baseFolder)
    , m_dataFiles(dataFiles)
{
}

QDomDocument PropertyXMLWriter::write(Property &property)
{
    // A document without a name takes no children, and does not say so.
    m_document = QDomDocument(property.key());
    m_current = m_document;
    property.accept(*this);
    return m_document;
}

void PropertyXMLWriter::visit(GProject &project)
{
    visit(static_cast<PropertyStruct &>(project));
}

void PropertyXMLWriter::visit(PropertyList &property)
{
    addChildren(addElement(property.key()), property.entries());
}

void PropertyXMLWriter::visit(PropertyReference &property)
{
    QDomElement element = addElement(property.key());
    element.setAttribute(QStringLiteral("type"), property.presetType());
    if (!property.value())
        return;
    const auto &preset = *property.value();
    const bool isMember = dynamic_cast<const PropertyPresetCollection *>(preset.parent());
    if (isMember && !preset.name().value().isEmpty())
        element.setAttribute(QStringLiteral("name"), preset.name().value());
    else
        addChildren(element, preset.fields());
}

void PropertyXMLWriter::visit(PropertyPresetCollection &property)
{
    visit(static_cast<PropertyList &>(property));
}

void PropertyXMLWriter::visit(PropertyPreset &property)
{
    visit(static_cast<PropertyStruct &>(property));
}

void PropertyXMLWriter::visit(PropertyStruct &property)
{
    addChildren(addElement(property.key()), property.fields());
}

void PropertyXMLWriter::visit(PropertyByteArray &property)
{
    const auto &file = property.dataFile();
    if (!isPlainId(property.dataFileId()))
        property.setDataFileId(QUuid::createUuid().toString(QUuid::WithoutBraces));
    addElement(property.key()).setAttribute(QStringLiteral("datafile"), property.dataFileId());
    // A data file that was missing stays missing, so that the next load tells of it again.
    if (!file->damaged || !file->packed.isEmpty())
        m_dataFiles.add(property.dataFileId(), file);
}

void PropertyXMLWriter::visit(PropertyRect &property)
{
    QDomElement element = addElement(property.key());
    setPoint(element, property.value().topLeft());
    element.setAttribute(QStringLiteral("width"), number(property.value().width()));
    element.setAttribute(QStringLiteral("height"), number(property.value().height()));
}

void PropertyXMLWriter::visit(PropertyPolygon &property)
{
    QDomElement element = addElement(property.key());
    for (const QPointF &point : property.value()) {
        QDomElement vertex = m_document.createElement(QStringLiteral("point"));
        setPoint(vertex, point);
        element.appendChild(vertex);
    }
}

void PropertyXMLWriter::visit(PropertyCircle &property)
{
    QDomElement element = addElement(property.key());
    setPoint(element, property.value().center);
    element.setAttribute(QStringLiteral("radius"), number(property.value().radius));
}

void PropertyXMLWriter::visit(PropertyFilename &property)
{
    addText(property, property.value().relativeTo(m_baseFolder));
}

void PropertyXMLWriter::visit(PropertyEnum &property)
{
    addText(property, property.value().name);
}

void PropertyXMLWriter::visit(PropertyColor &property)
{
    addText(property, property.value().name(QColor::HexRgb));
}

void PropertyXMLWriter::visit(PropertyVector3D &property)
{
    QDomElement element = addElement(property.key());
    element.setAttribute(QStringLiteral("x"), shortNumber(property.value().x()));
    element.setAttribute(QStringLiteral("y"), shortNumber(property.value().y()));
    element.setAttribute(QStringLiteral("z"), shortNumber(property.value().z()));
}

void PropertyXMLWriter::visit(PropertyPointF &property)
{
    setPoint(addElement(property.key()), property.value());
}

void PropertyXMLWriter::visit(PropertyDouble &property)
{
    addText(property, shortNumber(property.value()));
}

void PropertyXMLWriter::visit(PropertyUnsignedInt &property)
{
    addText(property, QString::number(property.value()));
}

void PropertyXMLWriter::visit(PropertyInt &property)
{
    addText(property, QString::number(property.value()));
}

void PropertyXMLWriter::visit(PropertyString &property)
{
    addText(property, property.value());
}

void PropertyXMLWriter::visit(PropertyBool &property)
{
    addText(property, property.value() ? QStringLiteral("true") : QStringLiteral("false"));
}

QDomElement PropertyXMLWriter::addElement(const QString &tag)
{
    QDomElement element = m_document.createElement(tag);
    m_current.appendChild(element);
    return element;
}

void PropertyXMLWriter::addText(const Property &property, const QString &text)
{
    // Reading drops text that is nothing but blanks, unless it is marked as meant.
    const bool isBlank = !text.isEmpty() && text.trimmed().isEmpty();
    addElement(property.key())
        .appendChild(isBlank ? m_document.createCDATASection(text)
                             : m_document.createTextNode(text));
}

void PropertyXMLWriter::addChildren(const QDomElement &element,
                                    const QVector<std::shared_ptr<Property>> &children)
{
    const QDomNode outer = std::exchange(m_current, element);
    for (const auto &child : children)
        child->accept(*this);
    m_current = outer;
}
