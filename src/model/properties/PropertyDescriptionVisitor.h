#pragma once

class PropertyDescriptionBool;
class PropertyDescriptionColor;
class PropertyDescriptionDouble;
class PropertyDescriptionEnum;
class PropertyDescriptionFilename;
class PropertyDescriptionInt;
class PropertyDescriptionReference;
class PropertyDescriptionString;
class PropertyDescriptionUnsignedInt;
class PropertyDescriptionVector3D;

/// One operation a type of description; editors are made by it.
class PropertyDescriptionVisitor
{
public:
    virtual ~PropertyDescriptionVisitor() = default;
    virtual void visit(const PropertyDescriptionInt &description) = 0;
    virtual void visit(const PropertyDescriptionUnsignedInt &description) = 0;
    virtual void visit(const PropertyDescriptionDouble &description) = 0;
    virtual void visit(const PropertyDescriptionBool &description) = 0;
    virtual void visit(const PropertyDescriptionString &description) = 0;
    virtual void visit(const PropertyDescriptionFilename &description) = 0;
    virtual void visit(const PropertyDescriptionColor &description) = 0;
    virtual void visit(const PropertyDescriptionEnum &description) = 0;
    virtual void visit(const PropertyDescriptionVector3D &description) = 0;
    virtual void visit(const PropertyDescriptionReference &description) = 0;
};
