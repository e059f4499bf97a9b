#include "ui/UndoActions.h"

#include "framework/GAction.h"
#include "framework/ThemedIcon.h"
#include "model/properties/GUndoStack.h"

#include <QMenu>

namespace {
QIcon undoIcon()
{
    return themedIcon(QStringLiteral(":/qrv_tools/icons/Icons_Undo.svg"));
}

QIcon redoIcon()
{
    return themedIcon(QStringLiteral(":/qrv_tools/icons/Icons_Redo.svg"));
}

// Replaces @p former in @p menu.
QAction *replace(QMenu &menu, QAction *former, QAction *action, const QIcon &icon)
{
    action->setIcon(icon);
    QAction *next = former ? former : menu.actions().value(0);
    menu.insertAction(next, action);
    delete former;
    return action;
}
} // namespace

UndoActions::UndoActions(QMenu &menu, QObject *parent)
    : QObject(parent)
    , m_menu(menu)
    , m_undoButton(new GAction(undoIcon(), tr("Undo"), this))
    , m_redoButton(new GAction(redoIcon(), tr("Redo"), this))
{
}

void UndoActions::setStack(GUndoStack &stack)
{
    // Taken from the bottom up, so that each stands before the one that follows.
    m_redo = replace(m_menu, m_redo, stack.createRedoAction(this), redoIcon());
    m_undo = replace(m_menu, m_undo, stack.createUndoAction(this), undoIcon());
    m_menu.insertAction(m_redo, m_undo);
    m_undo->setShortcuts(QKeySequence::Undo);
    m_redo->setShortcuts(QKeySequence::Redo);

    disconnect(m_undoButton, &QAction::triggered, nullptr, nullptr);
    disconnect(m_redoButton, &QAction::triggered, nullptr, nullptr);
    connect(m_undoButton, &QAction::triggered, &stack, &GUndoStack::undo);
    connect(m_redoButton, &QAction::triggered, &stack, &GUndoStack::redo);
    connect(&stack, &QUndoStack::canUndoChanged, m_undoButton, &QAction::setEnabled);
    connect(&stack, &QUndoStack::canRedoChanged, m_redoButton, &QAction::setEnabled);
    m_undoButton->setEnabled(stack.canUndo());
    m_redoButton->setEnabled(stack.canRedo());
}
