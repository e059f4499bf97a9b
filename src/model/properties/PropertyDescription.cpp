#include "model/properties/PropertyDescription.h"

#include "model/properties/PropertyDescriptionVisitor.h"

#include <algorithm>

PropertyDescription::PropertyDescription(const QString &key,
                                         const QString &label,
                                         const QString &text)
    : m_key(key)
    , m_label(label)
    , m_text(text)
{
}

void PropertyDescriptionInt::accept(PropertyDescriptionVisitor &visitor) const
{
    visitor.visit(*this);
}

void PropertyDescriptionUnsignedInt::accept(PropertyDescriptionVisitor &visitor) const
{
    visitor.visit(*this);
}

void PropertyDescriptionDouble::accept(PropertyDescriptionVisitor &visitor) const
{
    visitor.visit(*this);
}

void PropertyDescriptionBool::accept(PropertyDescriptionVisitor &visitor) const
{
    visitor.visit(*this);
}

void PropertyDescriptionString::accept(PropertyDescriptionVisitor &visitor) const
{
    visitor.visit(*this);
}

void PropertyDescriptionColor::accept(PropertyDescriptionVisitor &visitor) const
{
    visitor.visit(*this);
}

void PropertyDescriptionVector3D::accept(PropertyDescriptionVisitor &visitor) const
{
    visitor.visit(*this);
}

PropertyDescriptionFilename::PropertyDescriptionFilename(const QString &key,
                                                         const QString &label,
                                                         const QString &text,
                                                         bool namesFolder)
    : PropertyDescriptionT(key, label, text)
    , m_namesFolder(namesFolder)
{
}

void PropertyDescriptionFilename::accept(PropertyDescriptionVisitor &visitor) const
{
    visitor.visit(*this);
}

PropertyDescriptionEnum::PropertyDescriptionEnum(const QString &key,
                                                 const QString &label,
                                                 const QString &text,
                                                 const QVector<PropertyEnumElement> &elements)
    : PropertyDescriptionT(key, label, text, elements.value(0))
    , m_elements(elements)
{
}

void PropertyDescriptionEnum::accept(PropertyDescriptionVisitor &visitor) const
{
    visitor.visit(*this);
}

PropertyDescriptionReference::PropertyDescriptionReference(const QString &key,
                                                           const QString &label,
                                                           const QString &text,
                                                           const QString &presetType)
    : PropertyDescription(key, label, text)
    , m_presetType(presetType)
{
}

void PropertyDescriptionReference::accept(PropertyDescriptionVisitor &visitor) const
{
    visitor.visit(*this);
}

const PropertyDescription *PropertyDescriptionList::find(const QString &key) const
{
    const auto found = std::find_if(m_descriptions.begin(),
                                    m_descriptions.end(),
                                    [&key](const auto &entry) { return entry->key() == key; });
    return found == m_descriptions.end() ? nullptr : found->get();
}
