#pragma once

#include "model/properties/GenericPropertyVisitor.h"

/// Copies a property with all that it holds, for the same document. Copies of named presets, taken
/// directly or through a reference, are named "copy '%1'".
class ClonePropertyVisitor final : public GenericPropertyVisitor<ClonePropertyVisitor>
{
public:
    /// Throws Error for a whole project and for a preset collection.
    std::shared_ptr<Property> clone(Property &property);

    void each(Property &property);
    void each(GProject &project);
    void each(PropertyPresetCollection &property);
    void each(PropertyPreset &property);
    void each(PropertyList &property);
    void each(PropertyStruct &property);
    void each(PropertyReference &property);

private:
    std::shared_ptr<Property> m_result;
};
