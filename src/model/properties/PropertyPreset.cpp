#include "model/properties/PropertyPreset.h"

#include "model/properties/PropertyT.h"

PropertyPreset::PropertyPreset(UndoStackOwner &document,
                               const QString &type,
                               const std::shared_ptr<PropertyStruct> &data)
    : PropertyStruct(document, tag())
    , m_type(type)
{
    addField<PropertyString>(QStringLiteral("name"));
    addField(data);
}

QString PropertyPreset::tag()
{
    return QStringLiteral("preset");
}

void PropertyPreset::accept(PropertyVisitor &visitor)
{
    visitor.visit(*this);
}

std::shared_ptr<Property> PropertyPreset::newInstance() const
{
    return makeAlike<PropertyPreset>(
        m_type, std::static_pointer_cast<PropertyStruct>(data().newInstance()));
}

PropertyString &PropertyPreset::name() const
{
    return field<PropertyString>(QStringLiteral("name"));
}

PropertyStruct &PropertyPreset::data() const
{
    return field<PropertyStruct>(QStringLiteral("data"));
}
