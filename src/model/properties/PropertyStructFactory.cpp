#include "model/properties/PropertyStructFactory.h"

#include "base/Error.h"

#include <QCoreApplication>

std::shared_ptr<PropertyStruct> PropertyStructFactory::create(const QString &key,
                                                              const PropertyStruct &prototype)
{
    m_result = std::make_shared<PropertyStruct>(prototype.document(), key);
    for (const auto &field : prototype.fields())
        field->accept(*this);
    return std::exchange(m_result, nullptr);
}

void PropertyStructFactory::each(Property &property)
{
    m_result->addField(property.newInstance());
}

void PropertyStructFactory::each(PropertyPreset &)
{
    throw Error(QCoreApplication::translate("PropertyStructFactory",
                                            "PropertyStruct may not contain a preset property"));
}
