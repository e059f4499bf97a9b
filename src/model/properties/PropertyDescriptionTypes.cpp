#include "model/properties/PropertyDescriptionTypes.h"

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
