#include "model/properties/GProject.h"

#include "base/Error.h"
#include "model/properties/PropertyVisitor.h"

#include <QCoreApplication>

GProject::GProject(const QString &key, const PropertyDescriptionList *descriptions)
    : PropertyStruct(*this, key, descriptions)
    , m_presetCollections(
          addField<PropertyListT<PropertyPresetCollection>>(QStringLiteral("preset_collections")))
{
}

void GProject::accept(PropertyVisitor &visitor)
{
    visitor.visit(*this);
}

std::shared_ptr<Property> GProject::newInstance() const
{
    return std::make_shared<GProject>(key());
}

PropertyPresetCollection &GProject::presetCollection(const QString &type) const
{
    auto *collection = findCollection(type);
    if (!collection)
        throw ErrorDoesNotExist(
            QCoreApplication::translate("GProject", "preset collection of type '%1' does not exist")
                .arg(type));
    return *collection;
}

PropertyPresetCollection &
GProject::addPresetCollection(const QString &type, const std::shared_ptr<PropertyStruct> &prototype)
{
    if (findCollection(type))
        throw ErrorAlreadyExists(
            QCoreApplication::translate("GProject", "preset collection of type '%1' already exists")
                .arg(type));
    auto collection = std::make_shared<PropertyPresetCollection>(*this, type, prototype);
    m_presetCollections.setEntries(m_presetCollections.entries() +
                                   PropertyList::Entries{collection});
    return *collection;
}

PropertyPresetCollection *GProject::findCollection(const QString &type) const
{
    for (auto *collection : m_presetCollections.all()) {
        if (collection->type() == type)
            return collection;
    }
    return nullptr;
}
