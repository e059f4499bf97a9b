#include "ui/properties/ContinuousEdit.h"

#include "base/Error.h"
#include "model/properties/GUndoStack.h"
#include "model/properties/Property.h"

#include <QScopedValueRollback>

namespace {
QVector<Observable *> asObservables(const QVector<Property *> &properties)
{
    return {properties.begin(), properties.end()};
}

void undoQuietly(GUndoStack &stack)
{
    const QSignalBlocker quiet(stack);
    stack.undo();
}

void redoQuietly(GUndoStack &stack)
{
    const QSignalBlocker quiet(stack);
    stack.redo();
}
} // namespace

void ContinuousEdit::change(GUndoStack &stack,
                            const QString &undoText,
                            const QVector<Property *> &properties,
                            const std::function<void()> &action)
{
    // What that pushes must not be taken for the edit's own step.
    Q_EMIT stack.aboutToPush();
    const QScopedValueRollback isChanging(m_isChanging, true);
    // What was saved in the middle of the edit stays a place to return to.
    const bool replaces = m_stack == &stack && !stack.isClean();
    const int firstStep = stack.index() - (replaces ? 1 : 0);
    {
        const UndoMacro macro(stack, undoText, asObservables(properties));
        if (replaces)
            undoQuietly(stack);
        try {
            action();
        } catch (const Error &) {
            if (replaces)
                redoQuietly(stack);
            throw;
        }
        // Back at the values from before the edit: nothing took the place of the step.
        if (replaces && stack.canRedo()) {
            redoQuietly(stack);
            stack.undo();
        }
    }
    keepStep(stack.index() > firstStep ? &stack : nullptr);
}

void ContinuousEdit::finish()
{
    keepStep(nullptr);
}

void ContinuousEdit::cancel()
{
    GUndoStack *stack = m_stack;
    keepStep(nullptr);
    if (stack)
        stack->undo();
}

void ContinuousEdit::keepStep(GUndoStack *stack)
{
    if (m_stack == stack)
        return;
    if (m_stack)
        m_stack->disconnect(this);
    m_stack = stack;
    if (!m_stack)
        return;
    connect(m_stack, &QUndoStack::indexChanged, this, &ContinuousEdit::loseStep);
    connect(m_stack, &QObject::destroyed, this, &ContinuousEdit::loseStep);
}

// Somebody else pushed, undid or redid a step.
void ContinuousEdit::loseStep()
{
    if (!m_isChanging)
        finish();
}
