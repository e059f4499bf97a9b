#pragma once

#include "base/GFileName.h"
#include "model/properties/PropertyDescription.h"
#include "model/properties/PropertyEnumElement.h"

#include <QColor>
#include <QPointF>
#include <QVector3D>
#include <QVector>

// A description for each type of property.

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

/// A point that is set where it is seen: it has neither label nor editor.
class PropertyDescriptionPointF : public PropertyDescriptionT<QPointF>
{
public:
    explicit PropertyDescriptionPointF(const QString &key, const QPointF &defaultValue = {})
        : PropertyDescriptionT(key, QString(), QString(), defaultValue)
    {
    }

    void accept(PropertyDescriptionVisitor & /*visitor*/) const override {}
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
