#include "model/properties/PropertyPresetCollection.h"

#include "model/properties/PropertyT.h"

namespace {
auto presetFactory(UndoStackOwner &document,
                   const QString &type,
                   const std::shared_ptr<PropertyStruct> &prototype)
{
    return [&document, type, prototype](const QString &tag) -> std::shared_ptr<Property> {
        if (tag != PropertyPreset::tag())
            return nullptr;
        return std::make_shared<PropertyPreset>(
            document, type, std::static_pointer_cast<PropertyStruct>(prototype->newInstance()));
    };
}
} // namespace

PropertyPresetCollection::PropertyPresetCollection(UndoStackOwner &document,
                                                   const QString &type,
                                                   const std::shared_ptr<PropertyStruct> &prototype)
    : PropertyListT(
          document, type + QStringLiteral("_list"), presetFactory(document, type, prototype))
    , m_type(type)
    , m_prototype(prototype)
{
}

void PropertyPresetCollection::accept(PropertyVisitor &visitor)
{
    visitor.visit(*this);
}

std::shared_ptr<Property> PropertyPresetCollection::newInstance() const
{
    return makeAlike<PropertyPresetCollection>(m_type, m_prototype);
}

std::shared_ptr<PropertyPreset> PropertyPresetCollection::preset(const QString &name) const
{
    for (const auto &entry : entries()) {
        auto preset = std::dynamic_pointer_cast<PropertyPreset>(entry);
        if (preset && preset->name().value() == name)
            return preset;
    }
    return nullptr;
}
