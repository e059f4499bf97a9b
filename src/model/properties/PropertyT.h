#pragma once

#include "model/properties/GenericUndoCommand.h"
#include "model/properties/Property.h"
#include "model/properties/PropertyDescription.h"
#include "model/properties/PropertyTypes.h"
#include "model/properties/PropertyVisitor.h"

#include "base/GCircle.h"
#include "base/GFileName.h"
#include "base/GPolygonF.h"

#include <QColor>
#include <QRectF>
#include <QVector3D>

/// A property that holds one value.
template <class T>
class PropertyT : public Property
{
public:
    PropertyT(UndoStackOwner &document, const QString &key, const T &value = T())
        : Property(document, key)
        , m_value(value)
    {
    }

    const T &value() const { return m_value; }

    /// Stores @p value and tells the observers. No undo step; for loading and for the steps.
    void setValue(const T &value)
    {
        validate(value);
        m_value = value;
        notify();
    }

    /// Pushes an undo step that stores @p value, unless the property holds it already. Steps of one
    /// continuous edit merge when they are @p mergeable.
    void setValue(const T &value, const QString &undoText, bool mergeable = true)
    {
        if (value == m_value)
            return;
        validate(value);
        pushUndoStep<PropertyT, void (PropertyT::*)(const T &), T>(
            undoStack(), *this, &PropertyT::setValue, m_value, value, undoText, mergeable);
    }

    void assign(const Property &other) override { setValue(sameType<PropertyT>(other).value()); }

    void setDescription(const PropertyDescription *description) override
    {
        Property::setDescription(description);
        if (const auto *typed = dynamic_cast<const PropertyDescriptionT<T> *>(description))
            m_value = typed->defaultValue();
    }

    bool isLeftOut() const override
    {
        const auto *typed = dynamic_cast<const PropertyDescriptionT<T> *>(description());
        return typed && typed->isLeftOutAtDefault() && m_value == typed->defaultValue();
    }

protected:
    /// Throws when @p value is none that the property may hold.
    virtual void validate(const T &value) const { Q_UNUSED(value) }

private:
    T m_value;
};

/// A leaf without rules of its own; PropertyTypes.h names its forms.
template <class T>
class PropertyValue : public PropertyT<T>
{
public:
    using PropertyT<T>::PropertyT;
    void accept(PropertyVisitor &visitor) override { visitor.visit(*this); }

    std::shared_ptr<Property> newInstance() const override
    {
        return this->template makeAlike<PropertyValue>(this->key());
    }
};
