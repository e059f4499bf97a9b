#include "model/properties/PropertyDescriptionList.h"

#include <algorithm>

const PropertyDescription *PropertyDescriptionList::find(const QString &key) const
{
    const auto found = std::find_if(m_descriptions.begin(),
                                    m_descriptions.end(),
                                    [&key](const auto &entry) { return entry->key() == key; });
    return found == m_descriptions.end() ? nullptr : found->get();
}
