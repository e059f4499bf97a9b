#include "model/properties/PropertyReference.h"

#include "base/Error.h"

#include <QCoreApplication>

PropertyReference::PropertyReference(UndoStackOwner &document,
                                     const QString &key,
                                     const QString &presetType,
                                     const std::shared_ptr<PropertyPreset> &preset)
    : PropertyT(document, key, preset)
    , m_presetType(presetType)
{
}

void PropertyReference::accept(PropertyVisitor &visitor)
{
    visitor.visit(*this);
}

std::shared_ptr<Property> PropertyReference::newInstance() const
{
    const auto preset = value() ? std::static_pointer_cast<PropertyPreset>(value()->newInstance())
                                : std::shared_ptr<PropertyPreset>();
    return makeAlike<PropertyReference>(key(), m_presetType, preset);
}

void PropertyReference::validate(const std::shared_ptr<PropertyPreset> &value) const
{
    if (!value)
        throw Error(QCoreApplication::translate("PropertyReference",
                                                "reference property may not be set to NULL"));
    if (value->type() != m_presetType)
        throw ErrorTypeConflict(
            QCoreApplication::translate(
                "PropertyReference", "cannot assign type '%1' to reference property of type '%2'")
                .arg(value->type(), m_presetType));
}
