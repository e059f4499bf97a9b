#pragma once

#include "model/properties/PropertyStruct.h"
#include "model/properties/PropertyTypes.h"

/// Named settings of one type: the fields "name" and "data". A preset without a name belongs to
/// the one reference that holds it.
class PropertyPreset : public PropertyStruct
{
public:
    /// @p data holds the settings and has the key "data".
    PropertyPreset(UndoStackOwner &document,
                   const QString &type,
                   const std::shared_ptr<PropertyStruct> &data);
    static QString tag();

    void accept(PropertyVisitor &visitor) override;
    std::shared_ptr<Property> newInstance() const override;

    const QString &type() const { return m_type; }
    PropertyString &name() const;
    PropertyStruct &data() const;

private:
    QString m_type;
};
