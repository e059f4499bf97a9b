#include "ui/UndoActions.h"

#include "framework/GAction.h"
#include "framework/ThemedIcon.h"
#include "model/properties/GUndoStack.h"
#include "tools/PaintTool.h"

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
    m_undo->setObjectName(QStringLiteral("undo"));
    m_redo->setObjectName(QStringLiteral("redo"));
    m_undo->setShortcuts(QKeySequence::Undo);
    m_redo->setShortcuts(QKeySequence::Redo);

    disconnect(m_undoButton, &QAction::triggered, nullptr, nullptr);
    disconnect(m_redoButton, &QAction::triggered, nullptr, nullptr);
    if (m_stack)
        m_stack->disconnect(this);
    m_stack = &stack;
    disconnect(m_undo, nullptr, &stack, nullptr);
    const auto undo = [this, &stack] { toolText().isEmpty() ? stack.undo() : m_tool->stepBack(); };
    connect(m_undo, &QAction::triggered, &stack, undo);
    connect(m_undoButton, &QAction::triggered, &stack, undo);
    connect(m_redoButton, &QAction::triggered, &stack, &GUndoStack::redo);
    // After the menu's actions, which the toolkit enables by itself.
    connect(&stack, &QUndoStack::canUndoChanged, this, &UndoActions::update);
    connect(&stack, &QUndoStack::canRedoChanged, this, &UndoActions::update);
    connect(&stack, &QUndoStack::undoTextChanged, this, [this] {
        m_stackText = m_undo->text();
        showText();
    });
    m_stackText = m_undo->text();
    update();
}

void UndoActions::setTool(PaintTool *tool)
{
    if (m_tool)
        m_tool->disconnect(this);
    m_tool = tool;
    if (tool)
        connect(tool, &PaintTool::stepBackTextChanged, this, &UndoActions::update);
    if (m_stack)
        update();
}

void UndoActions::setLocked(bool isLocked)
{
    m_isLocked = isLocked;
    update();
}

QString UndoActions::toolText() const
{
    return m_tool ? m_tool->stepBackText() : QString();
}

// A step that is done again would change what the tool's open work is based on.
void UndoActions::update()
{
    const bool hasTool = !toolText().isEmpty();
    const bool canUndo = !m_isLocked && (hasTool || m_stack->canUndo());
    const bool canRedo = !m_isLocked && !hasTool && m_stack->canRedo();
    for (QAction *action : {m_undo.data(), static_cast<QAction *>(m_undoButton)})
        action->setEnabled(canUndo);
    for (QAction *action : {m_redo.data(), static_cast<QAction *>(m_redoButton)})
        action->setEnabled(canRedo);
    showText();
}

void UndoActions::showText()
{
    const QString text = toolText();
    m_undo->setText(text.isEmpty() ? m_stackText : text);
}
