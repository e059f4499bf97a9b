#pragma once

#include "model/properties/PropertyTypes.h"

/// One operation a type of property. Structs of the document dispatch to PropertyStruct's.
class PropertyVisitor
{
public:
    virtual ~PropertyVisitor() = default;
    virtual void visit(GProject &project) = 0;
    virtual void visit(PropertyList &property) = 0;
    virtual void visit(PropertyReference &property) = 0;
    virtual void visit(PropertyPresetCollection &property) = 0;
    virtual void visit(PropertyPreset &property) = 0;
    virtual void visit(PropertyStruct &property) = 0;
    virtual void visit(PropertyByteArray &property) = 0;
    virtual void visit(PropertyRect &property) = 0;
    virtual void visit(PropertyPolygon &property) = 0;
    virtual void visit(PropertyCircle &property) = 0;
    virtual void visit(PropertyFilename &property) = 0;
    virtual void visit(PropertyEnum &property) = 0;
    virtual void visit(PropertyColor &property) = 0;
    virtual void visit(PropertyVector3D &property) = 0;
    virtual void visit(PropertyPointF &property) = 0;
    virtual void visit(PropertyDouble &property) = 0;
    virtual void visit(PropertyUnsignedInt &property) = 0;
    virtual void visit(PropertyInt &property) = 0;
    virtual void visit(PropertyString &property) = 0;
    virtual void visit(PropertyBool &property) = 0;
};
