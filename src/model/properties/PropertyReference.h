#pragma once

#include "model/properties/PropertyPreset.h"
#include "model/properties/PropertyT.h"

/// Points at a preset of one type: a named one of the project's collection, or one of its own.
class PropertyReference : public PropertyT<std::shared_ptr<PropertyPreset>>
{
public:
    /// Null only until the first assignment.
    PropertyReference(UndoStackOwner &document,
                      const QString &key,
                      const QString &presetType,
                      const std::shared_ptr<PropertyPreset> &preset = nullptr);

    void accept(PropertyVisitor &visitor) override;
    std::shared_ptr<Property> newInstance() const override;

    const QString &presetType() const { return m_presetType; }

protected:
    void validate(const std::shared_ptr<PropertyPreset> &value) const override;

private:
    QString m_presetType;
};
