#pragma once

#include "model/properties/PropertyDescriptionVisitor.h"

#include <QString>

#include <limits>

/// What is known of all properties of one key: the label beside its editor and the tool tip.
/// Without a label there is no editor.
class PropertyDescription
{
public:
    PropertyDescription(const QString &key, const QString &label, const QString &text);
    virtual ~PropertyDescription() = default;
    PropertyDescription(const PropertyDescription &) = delete;
    PropertyDescription &operator=(const PropertyDescription &) = delete;

    virtual void accept(PropertyDescriptionVisitor &visitor) const = 0;

    const QString &key() const { return m_key; }
    const QString &label() const { return m_label; }
    const QString &text() const { return m_text; }
    /// True when files do without a property that holds its default value. So it is with all that
    /// came later than the first files: who does not use it finds his file as it was.
    bool isLeftOutAtDefault() const { return m_isLeftOutAtDefault; }
    void leaveOutAtDefault() { m_isLeftOutAtDefault = true; }

private:
    QString m_key;
    QString m_label;
    QString m_text;
    bool m_isLeftOutAtDefault = false;
};

/// With the value of a new property.
template <class T>
class PropertyDescriptionT : public PropertyDescription
{
public:
    PropertyDescriptionT(const QString &key,
                         const QString &label,
                         const QString &text,
                         const T &defaultValue = T())
        : PropertyDescription(key, label, text)
        , m_defaultValue(defaultValue)
    {
    }

    const T &defaultValue() const { return m_defaultValue; }

private:
    T m_defaultValue;
};

/// With the range that editors and the command line keep to, both ends included, and the unit that
/// editors show behind the number.
template <class T>
class PropertyDescriptionNumber : public PropertyDescriptionT<T>
{
public:
    PropertyDescriptionNumber(const QString &key,
                              const QString &label,
                              const QString &text,
                              T minimum = std::numeric_limits<T>::lowest(),
                              T maximum = std::numeric_limits<T>::max(),
                              T defaultValue = T(),
                              const QString &unit = QString())
        : PropertyDescriptionT<T>(key, label, text, defaultValue)
        , m_minimum(minimum)
        , m_maximum(maximum)
        , m_unit(unit)
    {
    }

    T minimum() const { return m_minimum; }
    T maximum() const { return m_maximum; }
    const QString &unit() const { return m_unit; }

private:
    T m_minimum;
    T m_maximum;
    QString m_unit;
};

/// A description that visitors see as @p Derived.
template <class Derived, class Base>
class VisitedDescription : public Base
{
public:
    using Base::Base;

    void accept(PropertyDescriptionVisitor &visitor) const override
    {
        visitor.visit(static_cast<const Derived &>(*this));
    }
};
