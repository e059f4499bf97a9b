#include "model/properties/PropertyXMLWriter.h"

#include "model/properties/DataFiles.h"
#include "model/properties/GProject.h"
#include "model/properties/PropertyByteArray.h"
#include "model/properties/PropertyEnum.h"
#include "model/properties/PropertyReference.h"

#include <QRegularExpression>
#include <QUuid>

#include <algorithm>
#include <utility>

namespace {
QString number(double value)
{
    return QString::number(value, 'g', 16);
}

QString shortNumber(double value)
{
    return QString::number(value, 'g', 6);
}

void setPoint(XmlElement &element, const QPointF &point)
{
    element.attributes.append({QStringLiteral("x"), number(point.x())});
    element.attributes.append({QStringLiteral("y"), number(point.y())});
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

QDomNode textNode(QDomDocument &document, const QString &text)
{
    // Reading drops text that is nothing but blanks, unless it is marked as meant.
    if (!text.isEmpty() && text.trimmed().isEmpty())
        return document.createCDATASection(text);
    return document.createTextNode(text);
}
} // namespace

QDomDocument toDocument(const XmlElements &elements)
{
    // A document without a name takes no children, and does not say so.
    QDomDocument document(elements.first().tag);
    QVector<QDomNode> path{document};
    for (const XmlElement &element : elements) {
        QDomElement node = document.createElement(element.tag);
        for (const auto &[name, value] : element.attributes)
            node.setAttribute(name, value);
        if (element.hasText)
            node.appendChild(textNode(document, element.text));
        path.resize(element.depth + 1);
        path.last().appendChild(node);
        path.append(node);
    }
    return document;
}

QString textOf(const QDomDocument &document, int indentation)
{
    // The toolkit writes the attributes of an element in another order in every run. It leaves ">"
    // in texts as it is, but escapes every "<", so that nothing else looks like an element.
    static const QRegularExpression several(
        QStringLiteral(R"(<[^\s<>]+((?: [^\s=<>]+="[^"]*"){2,})/?>)"));
    static const QRegularExpression single(QStringLiteral(R"( [^\s=]+="[^"]*")"));
    const QString text = document.toString(indentation);
    QString sorted;
    int done = 0;
    for (auto element = several.globalMatch(text); element.hasNext();) {
        const auto match = element.next();
        QStringList attributes;
        for (auto each = single.globalMatch(match.captured(1)); each.hasNext();)
            attributes.append(each.next().captured());
        attributes.sort();
        sorted += text.mid(done, match.capturedStart(1) - done) + attributes.join(QString());
        done = match.capturedEnd(1);
    }
    return sorted + text.mid(done);
}

PropertyXMLWriter::PropertyXMLWriter(const QString &baseFolder, DataFiles &dataFiles)
    : m_baseFolder(baseFolder)
    , m_dataFiles(dataFiles)
{
}

XmlElements PropertyXMLWriter::elementsOf(Property &property)
{
    m_depth = 0;
    property.accept(*this);
    return std::exchange(m_elements, {});
}

void PropertyXMLWriter::visit(GProject &project)
{
    visit(static_cast<PropertyStruct &>(project));
}

void PropertyXMLWriter::visit(PropertyList &property)
{
    addElement(property.key());
    addChildren(property.entries());
}

void PropertyXMLWriter::visit(PropertyReference &property)
{
    XmlElement &element = addElement(property.key());
    element.attributes.append({QStringLiteral("type"), property.presetType()});
    if (!property.value())
        return;
    const auto &preset = *property.value();
    const bool isMember = dynamic_cast<const PropertyPresetCollection *>(preset.parent());
    if (isMember && !preset.name().value().isEmpty())
        element.attributes.append({QStringLiteral("name"), preset.name().value()});
    else
        addChildren(preset.fields());
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
    addElement(property.key());
    addChildren(property.fields());
}

void PropertyXMLWriter::visit(PropertyByteArray &property)
{
    if (!isPlainId(property.dataFileId()))
        property.setDataFileId(QUuid::createUuid().toString(QUuid::WithoutBraces));
    addElement(property.key())
        .attributes.append({QStringLiteral("datafile"), property.dataFileId()});
    m_dataFiles.add(property);
}

void PropertyXMLWriter::visit(PropertyRect &property)
{
    XmlElement &element = addElement(property.key());
    setPoint(element, property.value().topLeft());
    element.attributes.append({QStringLiteral("width"), number(property.value().width())});
    element.attributes.append({QStringLiteral("height"), number(property.value().height())});
}

void PropertyXMLWriter::visit(PropertyPolygon &property)
{
    addElement(property.key());
    ++m_depth;
    for (const QPointF &point : property.value())
        setPoint(addElement(QStringLiteral("point")), point);
    --m_depth;
}

void PropertyXMLWriter::visit(PropertyCircle &property)
{
    XmlElement &element = addElement(property.key());
    setPoint(element, property.value().center);
    element.attributes.append({QStringLiteral("radius"), number(property.value().radius)});
}

void PropertyXMLWriter::visit(PropertyFilename &property)
{
    const GFileName &name = property.value();
    addText(property, m_baseFolder.isEmpty() ? name.path() : name.relativeTo(m_baseFolder));
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
    XmlElement &element = addElement(property.key());
    element.attributes.append({QStringLiteral("x"), shortNumber(property.value().x())});
    element.attributes.append({QStringLiteral("y"), shortNumber(property.value().y())});
    element.attributes.append({QStringLiteral("z"), shortNumber(property.value().z())});
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

XmlElement &PropertyXMLWriter::addElement(const QString &tag)
{
    m_elements.append({tag, {}, {}, m_depth, false});
    return m_elements.last();
}

void PropertyXMLWriter::addText(const Property &property, const QString &text)
{
    XmlElement &element = addElement(property.key());
    element.text = text;
    element.hasText = true;
}

void PropertyXMLWriter::addChildren(const QVector<std::shared_ptr<Property>> &children)
{
    ++m_depth;
    for (const auto &child : children) {
        if (!child->isLeftOut())
            child->accept(*this);
    }
    --m_depth;
}
