#pragma once

#include "model/properties/PropertyVisitor.h"

#include <QDomElement>
#include <QSet>
#include <QString>
#include <QVector>

class DataFiles;

/// Fills a project from XML as PropertyXMLWriter writes it. Fields without an element keep the
/// value that they have, elements without a field are ignored. Pushes no undo steps.
class PropertyXMLReader final : public PropertyVisitor
{
public:
    /// File names count from @p baseFolder (canonical); byte arrays come from @p dataFiles and,
    /// when it is null, stay empty.
    PropertyXMLReader(const QString &baseFolder, const DataFiles *dataFiles);

    /// Fills @p project from @p root. Throws Error for lists or references that it can't read.
    void read(GProject &project, const QDomElement &root);

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
    double attribute(const QString &name) const;
    void readFrom(const QDomElement &element, Property &property);
    void loadDataFiles();

    QString m_baseFolder;
    const DataFiles *m_dataFiles;
    GProject *m_project = nullptr;
    QDomElement m_current;
    QVector<PropertyByteArray *> m_byteArrays;
    QSet<QString> m_usedIds;
};
