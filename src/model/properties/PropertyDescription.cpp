#include "model/properties/PropertyDescription.h"

#include <algorithm>

PropertyDescription::PropertyDescription(const QString &key,
                                         const QString &label,
                                         const QString &text)
    : m_key(key)
    , m_label(label)
    , m_text(text)
{
}

PropertyDescriptionFilename::PropertyDescriptionFilename(const QString &key,
                                                         const QString &label,
                                                         const QString &text,
                                                         bool namesFolder)
    : VisitedDescription(key, label, text)
    , m_namesFolder(namesFolder)
{
}

PropertyDescriptionEnum::PropertyDescriptionEnum(const QString &key,
                                                 const QString &label,
                                                 const QString &text,
                                                 const QVector<PropertyEnumElement> &elements)
    : VisitedDescription(key, label, text, elements.value(0))
    , m_elements(elements)
{
}

PropertyDescriptionReference::PropertyDescriptionReference(const QString &key,
                                                           const QString &label,
                                                           const QString &text,
                                                           const QString &presetType)
    : VisitedDescription(key, label, text)
    , m_presetType(presetType)
{
}

const PropertyDescription *PropertyDescriptionList::find(const QString &key) const
{
    const auto found = std::find_if(m_descriptions.begin(),
                                    m_descriptions.end(),
                                    [&key](const auto &entry) { return entry->key() == key; });
    return found == m_descriptions.end() ? nullptr : found->get();
}
