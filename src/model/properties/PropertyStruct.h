#pragma once

#include "model/properties/Property.h"

#include <QVector>

#include <memory>

class PropertyDescriptionList;

/// Named fields in the order in which they were added, which is also their order in a file.
class PropertyStruct : public Property
{
public:
    /// The fields find their descriptions in @p descriptions, which outlives the struct.
    PropertyStruct(UndoStackOwner &document,
                   const QString &key,
                   const PropertyDescriptionList *descriptions = nullptr);
    ~PropertyStruct() override;

    void accept(PropertyVisitor &visitor) override;
    void assign(const Property &other) override;
    std::shared_ptr<Property> newInstance() const override;

    const QVector<std::shared_ptr<Property>> &fields() const { return m_fields; }
    /// Null when there is no field of this key.
    Property *find(const QString &key) const;

    /// The field of this key. Throws ErrorDoesNotExist, or ErrorTypeConflict when it is no @p Type.
    template <class Type>
    Type &field(const QString &key) const
    {
        auto *typed = dynamic_cast<Type *>(&existingField(key));
        if (!typed)
            refuseFieldType(key);
        return *typed;
    }

    /// Appends a field. Throws ErrorAlreadyExists when the key is taken.
    void addField(const std::shared_ptr<Property> &field);

    template <class Type, class... Arguments>
    Type &addField(const QString &key, Arguments &&...arguments)
    {
        auto field = std::make_shared<Type>(document(), key, std::forward<Arguments>(arguments)...);
        addField(field);
        return *field;
    }

private:
    Property &existingField(const QString &key) const;
    [[noreturn]] static void refuseFieldType(const QString &key);

    const PropertyDescriptionList *m_descriptions;
    QVector<std::shared_ptr<Property>> m_fields;
};
