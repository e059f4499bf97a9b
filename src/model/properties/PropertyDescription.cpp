#include "model/properties/PropertyDescription.h"

PropertyDescription::PropertyDescription(const QString &key,
                                         const QString &label,
                                         const QString &text)
    : m_key(key)
    , m_label(label)
    , m_text(text)
{
}
