#pragma once

#include "model/properties/PropertyEnumElement.h"
#include "model/properties/PropertyT.h"

/// One element of the enumeration that its description lists.
class PropertyEnum : public PropertyT<PropertyEnumElement>
{
public:
    using PropertyT::PropertyT;
    void accept(PropertyVisitor &visitor) override;
    std::shared_ptr<Property> newInstance() const override;

    /// The element of this name; one that no enumeration has when there is none.
    PropertyEnumElement element(const QString &name) const;

protected:
    void validate(const PropertyEnumElement &value) const override;

private:
    QVector<PropertyEnumElement> elements() const;
};
