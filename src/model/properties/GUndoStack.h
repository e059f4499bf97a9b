#pragma once

#include <QUndoStack>
#include <QVector>

#include <memory>

class Observable;

/// What the undo stack asks a step besides what the toolkit asks.
class UndoStep
{
public:
    virtual ~UndoStep() = default;
    /// True when the step changes what a project file holds; false for selections.
    virtual bool changesDocument() const = 0;
    /// Another step was pushed after it: it shall take little room.
    virtual void rest() = 0;
    /// The same, and it takes no further step up.
    virtual void close() = 0;
};

/// The undo steps of one document. A macro starts with its first step, so that a macro in which
/// nothing happens leaves no step.
class GUndoStack : public QUndoStack
{
    Q_OBJECT

public:
    using QUndoStack::QUndoStack;

    /// Lets what is unfinished become a step before the next one is made, which needs to know the
    /// values that it finds.
    void announcePush();
    /// Runs @p step and keeps it, inside the macros that are open.
    void push(std::unique_ptr<QUndoCommand> step);
    /// True while a step is being done, undone or done again: who hears of a change then must push
    /// none, as the toolkit is about to count on its place.
    bool isStepping() const { return m_isStepping; }
    /// True between two states of the document: in a step, or in a macro with a step.
    bool isUnsettled() const { return m_isStepping || m_startedMacros > 0; }

    void beginMacro(const QString &text);
    void endMacro();
    /// A macro that holds the notifications of @p observables back until its end, so that each is
    /// heard of once, when all values are set.
    void beginHoldingMacro(const QString &text, const QVector<Observable *> &observables);
    void endHoldingMacro();

    /// Ends a gesture: the newest step takes no further one up, however it goes on from it.
    void closeStep();

    /// True when a step that changes the document lies between the saved place and now.
    bool isModified() const;
    /// The document as it stands now is what was saved.
    void markSaved();

public Q_SLOTS:
    // As in the toolkit, knowing of isStepping(). Not to be called through the base.
    void undo();
    void redo();
    void setIndex(int index);

Q_SIGNALS:
    /// Somebody is about to push a step or to begin a macro: the last moment for what is unfinished
    /// to become a step of its own, which then lies below.
    void aboutToPush();
    /// The document was saved as it stands.
    void saved();

private:
    void keepSavedPlace(bool wasModified);

    QStringList m_waitingMacros; // begun, but without a step so far
    int m_startedMacros = 0;
    bool m_modifiedBeforeMacro = false;
    bool m_isStepping = false;
};

/// A macro for as long as it lives, also when an Error flies.
class UndoMacro
{
public:
    UndoMacro(GUndoStack &stack, const QString &text);
    /// Holds the notifications of @p held back until then.
    UndoMacro(GUndoStack &stack, const QString &text, const QVector<Observable *> &held);
    ~UndoMacro();
    UndoMacro(const UndoMacro &) = delete;
    UndoMacro &operator=(const UndoMacro &) = delete;

private:
    GUndoStack &m_stack;
    bool m_isHolding = false;
};
