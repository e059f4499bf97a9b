#pragma once

#include "model/properties/GenericPropertyVisitor.h"

/// Makes structs by the pattern of another: fields of the same keys, types and descriptions, each
/// with the default value of its description.
class PropertyStructFactory final : public GenericPropertyVisitor<PropertyStructFactory>
{
public:
    /// A struct of this @p key, like @p prototype. Throws Error when a field of it is a preset.
    std::shared_ptr<PropertyStruct> create(const QString &key, const PropertyStruct &prototype);

    void each(Property &property);
    void each(PropertyPreset &property);

private:
    std::shared_ptr<PropertyStruct> m_result;
};
