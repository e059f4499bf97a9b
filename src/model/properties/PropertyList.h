#pragma once

#include "model/properties/Property.h"

#include <QVector>

#include <memory>

/// Ordered children. Undo steps hold the whole list of shared children, so that a removed child
/// lives on in the step that removed it.
class PropertyList : public Property
{
public:
    using Entries = QVector<std::shared_ptr<Property>>;
    using Property::Property;
    ~PropertyList() override;

    void accept(PropertyVisitor &visitor) override;
    /// Shares the children of @p other.
    void assign(const Property &other) override;
    std::shared_ptr<Property> newInstance() const override;
    /// What the tag @p tag of a file stands for, not yet in the list and perhaps of a type that it
    /// does not take; null for an unknown tag.
    virtual std::shared_ptr<Property> createEntry(const QString &tag) const;

    const Entries &entries() const { return m_entries; }
    int size() const { return m_entries.size(); }

    /// Stores @p entries and tells the observers. No undo step.
    void setEntries(const Entries &entries);
    /// Pushes an undo step that stores @p entries, unless they are the present ones.
    void setEntries(const Entries &entries, const QString &undoText, bool mergeable = false);
    /// Appends by an undo step. Throws ErrorTypeConflict for an entry of another type.
    void append(const std::shared_ptr<Property> &entry, const QString &undoText);
    /// Removes by an undo step; what is not in the list is passed over.
    void remove(const Property &entry, const QString &undoText);

    /// Throws ErrorTypeConflict for an entry that can't be added.
    void requireType(const Property &entry) const;

protected:
    virtual bool accepts(const Property &entry) const;
    [[noreturn]] void refuseEntryType(const Property &entry) const;

private:
    Entries m_entries;
};
