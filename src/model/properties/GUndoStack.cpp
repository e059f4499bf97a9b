#include "model/properties/GUndoStack.h"

#include "model/properties/ChangeManager.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace {
bool changesDocument(const QUndoCommand &command)
{
    const auto *step = dynamic_cast<const UndoStep *>(&command);
    if (step && step->changesDocument())
        return true;
    for (int i = 0; i < command.childCount(); ++i) {
        if (changesDocument(*command.child(i)))
            return true;
    }
    return false;
}

// The toolkit lends its steps for reading only, though all of them came here by push().
UndoStep *writable(const QUndoCommand *command)
{
    return dynamic_cast<UndoStep *>(const_cast<QUndoCommand *>(command));
}

void letRest(const QUndoCommand *command)
{
    if (!command)
        return;
    if (UndoStep *step = writable(command))
        step->rest();
    for (int i = 0; i < command->childCount(); ++i)
        letRest(command->child(i));
}
} // namespace

void GUndoStack::push(std::unique_ptr<QUndoCommand> step)
{
    announcePush();
    const bool wasModified = isModified();
    const int followed = index();
    if (m_startedMacros == 0)
        m_modifiedBeforeMacro = wasModified;
    for (const QString &text : std::as_const(m_waitingMacros))
        QUndoStack::beginMacro(text);
    m_startedMacros += m_waitingMacros.size();
    m_waitingMacros.clear();
    {
        const QScopedValueRollback stepping(m_isStepping, true);
        QUndoStack::push(step.release());
    }
    if (index() > followed)
        letRest(command(followed - 1));
    if (m_startedMacros == 0)
        keepSavedPlace(wasModified);
}

void GUndoStack::beginMacro(const QString &text)
{
    announcePush();
    m_waitingMacros.append(text);
}

// Inside a macro it would be too late.
void GUndoStack::announcePush()
{
    if (!m_isStepping && m_startedMacros == 0 && m_waitingMacros.isEmpty())
        Q_EMIT aboutToPush();
}

void GUndoStack::endMacro()
{
    if (!m_waitingMacros.isEmpty()) {
        m_waitingMacros.removeLast();
        return;
    }
    QUndoStack::endMacro();
    if (--m_startedMacros > 0)
        return;
    letRest(command(index() - 1));
    letRest(command(index() - 2));
    keepSavedPlace(m_modifiedBeforeMacro);
}

void GUndoStack::beginHoldingMacro(const QString &text, const QVector<Observable *> &observables)
{
    beginMacro(text);
    ChangeManager::instance().hold(observables);
}

void GUndoStack::endHoldingMacro()
{
    ChangeManager::instance().release();
    endMacro();
}

void GUndoStack::closeStep()
{
    if (UndoStep *step = writable(command(index() - 1)))
        step->close();
}

void GUndoStack::undo()
{
    const QScopedValueRollback stepping(m_isStepping, true);
    QUndoStack::undo();
}

void GUndoStack::redo()
{
    const QScopedValueRollback stepping(m_isStepping, true);
    QUndoStack::redo();
}

void GUndoStack::setIndex(int index)
{
    const QScopedValueRollback stepping(m_isStepping, true);
    QUndoStack::setIndex(index);
}

bool GUndoStack::isModified() const
{
    if (cleanIndex() < 0)
        return true;
    const auto [from, to] = std::minmax({cleanIndex(), index()});
    for (int i = from; i < to; ++i) {
        if (changesDocument(*command(i)))
            return true;
    }
    return false;
}

void GUndoStack::markSaved()
{
    setClean();
    Q_EMIT saved();
}

// A selection made after undoing selections cuts the saved place off; the document is still the
// saved one.
void GUndoStack::keepSavedPlace(bool wasModified)
{
    const bool changed = index() > 0 && changesDocument(*command(index() - 1));
    if (!wasModified && !changed && cleanIndex() < 0)
        setClean();
}

UndoMacro::UndoMacro(GUndoStack &stack, const QString &text)
    : m_stack(stack)
{
    m_stack.beginMacro(text);
}

UndoMacro::UndoMacro(GUndoStack &stack, const QString &text, const QVector<Observable *> &held)
    : m_stack(stack)
    , m_isHolding(true)
{
    m_stack.beginHoldingMacro(text, held);
}

UndoMacro::~UndoMacro()
{
    if (m_isHolding)
        m_stack.endHoldingMacro();
    else
        m_stack.endMacro();
}
