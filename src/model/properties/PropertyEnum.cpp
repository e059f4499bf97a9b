#include "model/properties/PropertyEnum.h"

#include "base/Error.h"
#include "model/properties/PropertyDescriptionTypes.h"

#include <QCoreApplication>

#include <algorithm>

void PropertyEnum::accept(PropertyVisitor &visitor)
{
    visitor.visit(*this);
}

std::shared_ptr<Property> PropertyEnum::newInstance() const
{
    return makeAlike<PropertyEnum>(key());
}

PropertyEnumElement PropertyEnum::element(const QString &name) const
{
    const auto known = elements();
    const auto found = std::find_if(
        known.begin(), known.end(), [&name](const auto &entry) { return entry.name == name; });
    return found == known.end() ? PropertyEnumElement{-1, name} : *found;
}

void PropertyEnum::validate(const PropertyEnumElement &value) const
{
    if (!elements().contains(value))
        throw ErrorTypeConflict(
            QCoreApplication::translate("PropertyEnum", "%1 (%2) is not an element of enum %3")
                .arg(value.name, QString::number(value.value), key()));
}

QVector<PropertyEnumElement> PropertyEnum::elements() const
{
    const auto *typed = dynamic_cast<const PropertyDescriptionEnum *>(description());
    return typed ? typed->elements() : QVector<PropertyEnumElement>();
}
