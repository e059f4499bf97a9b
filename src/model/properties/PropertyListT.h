#pragma once

#include "model/properties/PropertyList.h"

#include <functional>

/// A list whose children are all of type @p Type.
template <class Type>
class PropertyListT : public PropertyList
{
public:
    /// Makes what a tag of a file stands for, null for an unknown one.
    using Factory = std::function<std::shared_ptr<Property>(const QString &tag)>;

    PropertyListT(UndoStackOwner &document, const QString &key, const Factory &factory = {})
        : PropertyList(document, key)
        , m_factory(factory)
    {
    }

    std::shared_ptr<Property> newInstance() const override
    {
        return makeAlike<PropertyListT>(key(), m_factory);
    }

    std::shared_ptr<Property> createEntry(const QString &tag) const override
    {
        return m_factory ? m_factory(tag) : nullptr;
    }

    /// The child at @p index. Throws ErrorTypeConflict when another type got there untyped.
    Type &at(int index) const { return typed(*entries().at(index)); }

    /// All children in order. Throws like at().
    QVector<Type *> all() const
    {
        QVector<Type *> result;
        for (const auto &entry : entries())
            result.append(&typed(*entry));
        return result;
    }

protected:
    bool accepts(const Property &entry) const override
    {
        return dynamic_cast<const Type *>(&entry) != nullptr;
    }

private:
    Type &typed(Property &entry) const
    {
        auto *result = dynamic_cast<Type *>(&entry);
        if (!result)
            refuseEntryType(entry);
        return *result;
    }

    Factory m_factory;
};
