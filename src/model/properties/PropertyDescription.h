#pragma once

#include "base/GFileName.h"
#include "model/properties/PropertyDescriptionVisitor.h"
#include "model/properties/PropertyEnumElement.h"

#include <QColor>
#include <QString>
#include <QVector3D>
#include <QVector>

#include <limits>
#include <memory>
#include <vector>

/// What is known of all properties of one key: the label beside its editor and the tool tip.
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

private:
    QString m_key;
    QString m_label;
    QString m_text;
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

/// With the range that editors and the command line keep to, both ends included.
template <class T>
class PropertyDescriptionNumber : public PropertyDescriptionT<T>
{
public:
    PropertyDescriptionNumber(const QString &key,
                              const QString &label,
                              const QString &text,
                              T minimum = std::numeric_limits<T>::lowest(),
                              T maximum = std::numeric_limits<T>::max(),
                              T defaultValue = T())
        : PropertyDescriptionT<T>(key, label, text, defaultValue)
        , m_minimum(minimum)
        , m_maximum(maximum)
    {
    }

    T minimum() const { return m_minimum; }
    T maximum() const { return m_maximum; }

private:
    T m_minimum;
    T m_maximum;
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

class PropertyDescriptionInt
    : public VisitedDescription<PropertyDescriptionInt, PropertyDescriptionNumber<int>>
{
public:
    using VisitedDescription::VisitedDescription;
};

class PropertyDescriptionUnsignedInt
    : public VisitedDescription<PropertyDescriptionUnsignedInt,
                                PropertyDescriptionNumber<unsigned int>>
{
public:
    using VisitedDescription::VisitedDescription;
};

class PropertyDescriptionDouble
    : public VisitedDescription<PropertyDescriptionDouble, PropertyDescriptionNumber<double>>
{
public:
    using VisitedDescription::VisitedDescription;
};

class PropertyDescriptionBool
    : public VisitedDescription<PropertyDescriptionBool, PropertyDescriptionT<bool>>
{
public:
    using VisitedDescription::VisitedDescription;
};

class PropertyDescriptionString
    : public VisitedDescription<PropertyDescriptionString, PropertyDescriptionT<QString>>
{
public:
    using VisitedDescription::VisitedDescription;
};

class PropertyDescriptionColor
    : public VisitedDescription<PropertyDescriptionColor, PropertyDescriptionT<QColor>>
{
public:
    using VisitedDescription::VisitedDescription;
};

class PropertyDescriptionVector3D
    : public VisitedDescription<PropertyDescriptionVector3D, PropertyDescriptionT<QVector3D>>
{
public:
    using VisitedDescription::VisitedDescription;
};

class PropertyDescriptionFilename
    : public VisitedDescription<PropertyDescriptionFilename, PropertyDescriptionT<GFileName>>
{
public:
    PropertyDescriptionFilename(const QString &key,
                                const QString &label,
                                const QString &text,
                                bool namesFolder);

    bool namesFolder() const { return m_namesFolder; }

private:
    bool m_namesFolder;
};

/// The first element is the value of a new property.
class PropertyDescriptionEnum
    : public VisitedDescription<PropertyDescriptionEnum, PropertyDescriptionT<PropertyEnumElement>>
{
public:
    PropertyDescriptionEnum(const QString &key,
                            const QString &label,
                            const QString &text,
                            const QVector<PropertyEnumElement> &elements);

    const QVector<PropertyEnumElement> &elements() const { return m_elements; }

private:
    QVector<PropertyEnumElement> m_elements;
};

/// Names the type of the presets that the reference may point at.
class PropertyDescriptionReference
    : public VisitedDescription<PropertyDescriptionReference, PropertyDescription>
{
public:
    PropertyDescriptionReference(const QString &key,
                                 const QString &label,
                                 const QString &text,
                                 const QString &presetType);

    const QString &presetType() const { return m_presetType; }

private:
    QString m_presetType;
};

/// The descriptions of one document class, made once and shared by all its instances.
class PropertyDescriptionList
{
public:
    bool isEmpty() const { return m_descriptions.empty(); }
    /// Null when there is none of this key.
    const PropertyDescription *find(const QString &key) const;

    template <class Description, class... Arguments>
    void add(Arguments &&...arguments)
    {
        m_descriptions.push_back(
            std::make_unique<Description>(std::forward<Arguments>(arguments)...));
    }

private:
    std::vector<std::unique_ptr<PropertyDescription>> m_descriptions;
};
