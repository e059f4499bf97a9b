#pragma once

#include "model/properties/PropertyVisitor.h"

#include <QDomDocument>
#include <QDomElement>
#include <QString>
#include <QVector>

#include <memory>

class DataFiles;

/// Writes a property and all that it holds as XML: an element a property, named by its key.
class PropertyXMLWriter final : public PropertyVisitor
{
public:
    /// File names are written relative to @p baseFolder (canonical); byte arrays go to
    /// @p dataFiles.
    PropertyXMLWriter(const QString &baseFolder, DataFiles &dataFiles);

    /// The document with @p property as its root.
    QDomDocument write(Property &property);

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
    QDomElement addElement(const QString &tag);
    void addText(const Property &property, const QString &text);
    void addChildren(const QDomElement &element,
                     const QVector<std::shared_ptr<Property>> &children);

    QString m_baseFolder;
    DataFiles &m_dataFiles;
    QDomDocument m_document;
    QDomNode m_current;
};
