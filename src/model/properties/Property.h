#pragma once

#include "model/properties/Observable.h"

#include <QString>

#include <memory>

class GUndoStack;
class PropertyDescription;
class PropertyVisitor;
class UndoStackOwner;

/// A named, typed piece of document data: a leaf with one value, or a list or struct of others.
/// Owned by its parent through shared pointers, which undo steps hold too; never outlives its
/// document.
class Property : public Observable
{
public:
    /// @p key names the property in its parent and is its tag in a project file.
    Property(UndoStackOwner &document, const QString &key);

    virtual void accept(PropertyVisitor &visitor) = 0;
    /// Takes over the value of @p other. Throws ErrorTypeConflict for one of another type.
    virtual void assign(const Property &other) = 0;
    /// A property of the same class, key, description and document with the value of a new one.
    virtual std::shared_ptr<Property> newInstance() const = 0;
    /// Takes over what is known of all properties of this key, its default value included.
    virtual void setDescription(const PropertyDescription *description);

    const QString &key() const { return m_key; }
    UndoStackOwner &document() const { return m_document; }
    GUndoStack &undoStack() const;
    Property *parent() const { return m_parent; }
    void setParent(Property *parent) { m_parent = parent; }
    /// Has no parent any more, unless it got another one meanwhile.
    void leaveParent(const Property &parent);
    /// Null where nothing is known.
    const PropertyDescription *description() const { return m_description; }
    /// True when files do without the property as it is now.
    virtual bool isLeftOut() const { return false; }
    /// Another number whenever a value was set, never one of another property: who has seen it need
    /// not keep a large value to know it again.
    quint64 revision() const { return m_revision; }

protected:
    void notify();
    [[noreturn]] void refuseType() const;

    /// A @p Type made of @p arguments with this property's description, for newInstance().
    template <class Type, class... Arguments>
    std::shared_ptr<Type> makeAlike(Arguments &&...arguments) const
    {
        auto result = std::make_shared<Type>(m_document, std::forward<Arguments>(arguments)...);
        result->setDescription(m_description);
        return result;
    }

    /// @p other as a @p Type, for assign().
    template <class Type>
    const Type &sameType(const Property &other) const
    {
        const auto *typed = dynamic_cast<const Type *>(&other);
        if (!typed)
            refuseType();
        return *typed;
    }

private:
    UndoStackOwner &m_document;
    QString m_key;
    Property *m_parent = nullptr;
    const PropertyDescription *m_description = nullptr;
    quint64 m_revision;
};
