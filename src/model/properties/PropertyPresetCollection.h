#pragma once

#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyPreset.h"

/// The presets of one type.
class PropertyPresetCollection : public PropertyListT<PropertyPreset>
{
public:
    /// New presets get settings like those of @p prototype, which has the key "data".
    PropertyPresetCollection(UndoStackOwner &document,
                             const QString &type,
                             const std::shared_ptr<PropertyStruct> &prototype);

    void accept(PropertyVisitor &visitor) override;
    std::shared_ptr<Property> newInstance() const override;

    const QString &type() const { return m_type; }
    /// The preset of this name, null when there is none.
    std::shared_ptr<PropertyPreset> preset(const QString &name) const;

private:
    QString m_type;
    std::shared_ptr<PropertyStruct> m_prototype;
};
