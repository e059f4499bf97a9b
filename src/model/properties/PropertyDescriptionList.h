#pragma once

#include "model/properties/PropertyDescription.h"

#include <memory>
#include <utility>
#include <vector>

/// The descriptions of one document class, made once and shared by all its instances.
class PropertyDescriptionList
{
public:
    bool isEmpty() const { return m_descriptions.empty(); }
    /// Null when there is none of this key.
    const PropertyDescription *find(const QString &key) const;

    template <class Description, class... Arguments>
    Description &add(Arguments &&...arguments)
    {
        auto description = std::make_unique<Description>(std::forward<Arguments>(arguments)...);
        Description &added = *description;
        m_descriptions.push_back(std::move(description));
        return added;
    }

private:
    std::vector<std::unique_ptr<PropertyDescription>> m_descriptions;
};
