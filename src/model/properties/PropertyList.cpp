#include "model/properties/PropertyList.h"

#include "base/Error.h"
#include "model/properties/GenericUndoCommand.h"
#include "model/properties/PropertyVisitor.h"

#include <QCoreApplication>

#include <algorithm>

PropertyList::~PropertyList()
{
    for (const auto &entry : std::as_const(m_entries))
        entry->leaveParent(*this);
}

void PropertyList::accept(PropertyVisitor &visitor)
{
    visitor.visit(*this);
}

void PropertyList::assign(const Property &other)
{
    setEntries(sameType<PropertyList>(other).entries());
}

std::shared_ptr<Property> PropertyList::newInstance() const
{
    return makeAlike<PropertyList>(key());
}

std::shared_ptr<Property> PropertyList::createEntry(const QString &) const
{
    return nullptr;
}

void PropertyList::setEntries(const Entries &entries)
{
    for (const auto &entry : std::as_const(m_entries))
        entry->leaveParent(*this);
    m_entries = entries;
    for (const auto &entry : std::as_const(m_entries))
        entry->setParent(this);
    notify();
}

void PropertyList::setEntries(const Entries &entries, const QString &undoText, bool mergeable)
{
    if (entries == m_entries)
        return;
    pushUndoStep<PropertyList, void (PropertyList::*)(const Entries &), Entries>(
        undoStack(), *this, &PropertyList::setEntries, m_entries, entries, undoText, mergeable);
}

void PropertyList::append(const std::shared_ptr<Property> &entry, const QString &undoText)
{
    requireType(*entry);
    setEntries(m_entries + Entries{entry}, undoText);
}

void PropertyList::remove(const Property &entry, const QString &undoText)
{
    Entries rest = m_entries;
    rest.erase(std::remove_if(rest.begin(),
                              rest.end(),
                              [&entry](const auto &other) { return other.get() == &entry; }),
               rest.end());
    setEntries(rest, undoText);
}

void PropertyList::requireType(const Property &entry) const
{
    if (!accepts(entry))
        throw ErrorTypeConflict(
            QCoreApplication::translate("PropertyList", "cannot add '%1' to list '%2', wrong type")
                .arg(entry.key(), key()));
}

bool PropertyList::accepts(const Property &) const
{
    return true;
}

void PropertyList::refuseEntryType(const Property &entry) const
{
    // The apostrophe at the end is part of the message as users know it.
    throw ErrorTypeConflict(
        QCoreApplication::translate("PropertyList", "property '%1' in list '%2' has wrong type'")
            .arg(entry.key(), key()));
}
