#pragma once

#include "model/properties/PropertyVisitor.h"

#include <QDomDocument>
#include <QPair>
#include <QString>
#include <QVector>

#include <memory>

class DataFiles;

/// An element of an XML text as a plain value.
struct XmlElement
{
    QString tag;
    QString text;
    QVector<QPair<QString, QString>> attributes;
    int depth = 0; ///< elements around it
    bool hasText = false;

    bool operator==(const XmlElement &) const = default;
};

/// The elements of one root, each before those inside it: made in little time, compared, and handed
/// to other threads.
using XmlElements = QVector<XmlElement>;

/// The document of @p elements, named by its root.
QDomDocument toDocument(const XmlElements &elements);
/// The text of @p document, attributes in alphabetical order, so that equal documents have equal
/// texts.
QString textOf(const QDomDocument &document, int indentation);

/// Writes a property and all that it holds as XML: an element a property, named by its key, but
/// none for what is to be left out.
class PropertyXMLWriter final : public PropertyVisitor
{
public:
    /// File names are written relative to @p baseFolder (canonical), as they stand when it is
    /// empty; byte arrays go to @p dataFiles.
    PropertyXMLWriter(const QString &baseFolder, DataFiles &dataFiles);

    /// The document with @p property as its root.
    QDomDocument write(Property &property) { return toDocument(elementsOf(property)); }
    XmlElements elementsOf(Property &property);

    void visit(GProject &project) override;
    void visit(PropertyList &property) override;
    void visit(PropertyReference &property) override;
    void visit(PropertyPresetCollection &property) override;
    void visit(PropertyPreset &property) override;
    void visit(PropertyStruct &property) override;
    void visit(PropertyByteArray &property) override;
    void visit(PropertyRect &property) override;
    void visit(PropertyPolygon &property) override;
    void visit(PropertyCircle &property) override;
    void visit(PropertyFilename &property) override;
    void visit(PropertyEnum &property) override;
    void visit(PropertyColor &property) override;
    void visit(PropertyVector3D &property) override;
    void visit(PropertyPointF &property) override;
    void visit(PropertyDouble &property) override;
    void visit(PropertyUnsignedInt &property) override;
    void visit(PropertyInt &property) override;
    void visit(PropertyString &property) override;
    void visit(PropertyBool &property) override;

private:
    XmlElement &addElement(const QString &tag);
    void addText(const Property &property, const QString &text);
    void addChildren(const QVector<std::shared_ptr<Property>> &children);

    QString m_baseFolder;
    DataFiles &m_dataFiles;
    XmlElements m_elements;
    int m_depth = 0;
};
