#include "model/properties/ClonePropertyVisitor.h"

#include "base/Error.h"

#include <QCoreApplication>

std::shared_ptr<Property> ClonePropertyVisitor::clone(Property &property)
{
    property.accept(*this);
    return std::exchange(m_result, nullptr);
}

void ClonePropertyVisitor::each(Property &property)
{
    auto copy = property.newInstance();
    copy->assign(property);
    m_result = copy;
}

void ClonePropertyVisitor::each(GProject &)
{
    throw Error(QCoreApplication::translate("ClonePropertyVisitor",
                                            "cloning complete Projects is not allowed"));
}

void ClonePropertyVisitor::each(PropertyPresetCollection &)
{
    throw Error(QCoreApplication::translate("ClonePropertyVisitor",
                                            "cloning PropertyPresetCollections is not allowed"));
}

void ClonePropertyVisitor::each(PropertyPreset &property)
{
    each(static_cast<PropertyStruct &>(property));
    auto &name = static_cast<PropertyPreset &>(*m_result).name();
    if (!name.value().isEmpty())
        name.setValue(
            QCoreApplication::translate("ClonePropertyVisitor", "copy '%1'").arg(name.value()));
}

void ClonePropertyVisitor::each(PropertyList &property)
{
    PropertyList::Entries entries;
    for (const auto &entry : property.entries())
        entries.append(clone(*entry));
    auto copy = std::static_pointer_cast<PropertyList>(property.newInstance());
    copy->setEntries(entries);
    m_result = copy;
}

void ClonePropertyVisitor::each(PropertyStruct &property)
{
    const auto copy = std::static_pointer_cast<PropertyStruct>(property.newInstance());
    for (const auto &field : property.fields())
        copy->find(field->key())->assign(*clone(*field));
    m_result = copy;
}

void ClonePropertyVisitor::each(PropertyReference &property)
{
    auto copy = std::static_pointer_cast<PropertyReference>(property.newInstance());
    if (property.value())
        copy->setValue(std::static_pointer_cast<PropertyPreset>(clone(*property.value())));
    m_result = copy;
}
