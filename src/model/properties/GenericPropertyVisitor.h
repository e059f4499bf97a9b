#pragma once

#include "model/properties/GProject.h"
#include "model/properties/PropertyByteArray.h"
#include "model/properties/PropertyEnum.h"
#include "model/properties/PropertyReference.h"
#include "model/properties/PropertyVisitor.h"

/// A visitor that treats most types alike: every visit goes to the best overload of the derived
/// class's each(), which takes any Property at the least.
template <class Derived>
class GenericPropertyVisitor : public PropertyVisitor
{
public:
    void visit(GProject &project) override { derived().each(project); }
    void visit(PropertyList &property) override { derived().each(property); }
    void visit(PropertyReference &property) override { derived().each(property); }
    void visit(PropertyPresetCollection &property) override { derived().each(property); }
    void visit(PropertyPreset &property) override { derived().each(property); }
    void visit(PropertyStruct &property) override { derived().each(property); }
    void visit(PropertyByteArray &property) override { derived().each(property); }
    void visit(PropertyRect &property) override { derived().each(property); }
    void visit(PropertyPolygon &property) override { derived().each(property); }
    void visit(PropertyCircle &property) override { derived().each(property); }
    void visit(PropertyFilename &property) override { derived().each(property); }
    void visit(PropertyEnum &property) override { derived().each(property); }
    void visit(PropertyColor &property) override { derived().each(property); }
    void visit(PropertyVector3D &property) override { derived().each(property); }
    void visit(PropertyPointF &property) override { derived().each(property); }
    void visit(PropertyDouble &property) override { derived().each(property); }
    void visit(PropertyUnsignedInt &property) override { derived().each(property); }
    void visit(PropertyInt &property) override { derived().each(property); }
    void visit(PropertyString &property) override { derived().each(property); }
    void visit(PropertyBool &property) override { derived().each(property); }

private:
    Derived &derived() { return static_cast<Derived &>(*this); }
};
