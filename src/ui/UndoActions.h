#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>

class GAction;
class GUndoStack;
class PaintTool;
class QAction;
class QMenu;
class QUndoStack;

/// Undo and redo of the present project: at the top of a menu, made anew for each project's stack,
/// and as two lasting buttons. What the active tool has open goes before the document's steps.
class UndoActions : public QObject
{
    Q_OBJECT

public:
    explicit UndoActions(QMenu &menu, QObject *parent = nullptr);

    GAction &undoButton() const { return *m_undoButton; }
    GAction &redoButton() const { return *m_redoButton; }
    void setStack(GUndoStack &stack);
    /// The active tool, null for none.
    void setTool(PaintTool *tool);
    /// Nothing can be undone nor done again while it is locked.
    void setLocked(bool isLocked);

private:
    /// What the tool takes back; empty for nothing.
    QString toolText() const;
    void update();
    void showText();

    QMenu &m_menu;
    GAction *m_undoButton;
    GAction *m_redoButton;
    QPointer<QUndoStack> m_stack; // no more than that when its destructor signals
    QPointer<PaintTool> m_tool;
    QString m_stackText; ///< of undo, without a tool's
    QPointer<QAction> m_undo;
    QPointer<QAction> m_redo;
    bool m_isLocked = false;
};
