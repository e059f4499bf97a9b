#include "model/properties/PropertyStruct.h"

#include "base/Error.h"
#include "model/properties/PropertyDescriptionList.h"
#include "model/properties/PropertyVisitor.h"

#include <QCoreApplication>

#include <algorithm>

PropertyStruct::PropertyStruct(UndoStackOwner &document,
                               const QString &key,
                               const PropertyDescriptionList *descriptions)
    : Property(document, key)
    , m_descriptions(descriptions)
{
}

PropertyStruct::~PropertyStruct()
{
    // An undo step may keep a field alive that its struct does not outlive.
    for (const auto &field : std::as_const(m_fields))
        field->leaveParent(*this);
}

void PropertyStruct::accept(PropertyVisitor &visitor)
{
    visitor.visit(*this);
}

void PropertyStruct::assign(const Property &other)
{
    const auto &fields = sameType<PropertyStruct>(other).m_fields;
    const bool alike =
        std::equal(fields.begin(),
                   fields.end(),
                   m_fields.begin(),
                   m_fields.end(),
                   [](const auto &a, const auto &b) { return a->key() == b->key(); });
    if (!alike)
        refuseType();
    for (int i = 0; i < fields.size(); ++i)
        m_fields[i]->assign(*fields[i]);
}

std::shared_ptr<Property> PropertyStruct::newInstance() const
{
    auto result = makeAlike<PropertyStruct>(key(), m_descriptions);
    for (const auto &field : m_fields)
        result->addField(field->newInstance());
    return result;
}

Property *PropertyStruct::find(const QString &key) const
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(), [&key](const auto &field) {
        return field->key() == key;
    });
    return found == m_fields.end() ? nullptr : found->get();
}

void PropertyStruct::addField(const std::shared_ptr<Property> &field)
{
    if (find(field->key()))
        throw ErrorAlreadyExists(
            QCoreApplication::translate("PropertyStruct",
                                        "property '%1' already exists in struct '%2'")
                .arg(field->key(), key()));
    if (m_descriptions)
        field->setDescription(m_descriptions->find(field->key()));
    field->setParent(this);
    m_fields.append(field);
}

Property &PropertyStruct::existingField(const QString &key) const
{
    Property *field = find(key);
    if (!field)
        throw ErrorDoesNotExist(
            QCoreApplication::translate("PropertyStruct", "requested undefined property '%1'")
                .arg(key));
    return *field;
}

void PropertyStruct::refuseFieldType(const QString &key)
{
    throw ErrorTypeConflict(
        QCoreApplication::translate("PropertyStruct", "requested property '%1' has wrong type")
            .arg(key));
}
