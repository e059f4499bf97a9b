#pragma once

#include <QObject>
#include <QVector>

#include <functional>

class GUndoStack;
class Property;

/// The one undo step of an edit that goes on, such as the drag of a slider. Every further change
/// takes the place of the one before, so that the step leads from what was there before the edit
/// to what is there now, for one property as for many, and two edits are two steps. The document
/// counts as modified all the while.
class ContinuousEdit : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Runs @p action, which changes @p properties by undo steps, beginning with their values from
    /// before the edit. Their observers hear of it once. When an Error flies from @p action, all is
    /// as before it.
    void change(GUndoStack &stack,
                const QString &undoText,
                const QVector<Property *> &properties,
                const std::function<void()> &action);
    /// The next change begins another edit.
    void finish();
    /// Undoes what the edit has changed so far.
    void cancel();

private:
    void loseStep();
    void keepStep(GUndoStack *stack);

    GUndoStack *m_stack = nullptr; // set as long as its newest step is the edit's
    bool m_isChanging = false;
};
