#include "model/properties/Property.h"

#include "base/Error.h"
#include "model/properties/ChangeManager.h"
#include "model/properties/UndoStackOwner.h"

#include <QCoreApplication>

namespace {
// Properties change on the interface thread only.
quint64 nextRevision()
{
    static quint64 last = 0;
    return ++last;
}
} // namespace

Property::Property(UndoStackOwner &document, const QString &key)
    : m_document(document)
    , m_key(key)
    , m_revision(nextRevision())
{
}

void Property::setDescription(const PropertyDescription *description)
{
    m_description = description;
}

GUndoStack &Property::undoStack() const
{
    return m_document.undoStack();
}

void Property::leaveParent(const Property &parent)
{
    if (m_parent == &parent)
        m_parent = nullptr;
}

void Property::notify()
{
    m_revision = nextRevision();
    ChangeManager::instance().notify(*this);
}

void Property::refuseType() const
{
    throw ErrorTypeConflict(
        QCoreApplication::translate("Property", "requested property '%1' has wrong type")
            .arg(m_key));
}
