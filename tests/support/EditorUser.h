#pragma once

#include "support/Widgets.h"

#include <QKeySequence>
#include <QPoint>
#include <QVector>

class EditorGraphicsViewVesperine;
class MainWindow;
class NormalMapEditorScene;
QT_BEGIN_NAMESPACE
class QAction;
QT_END_NAMESPACE

/// Does in the editor's window what a user does there, by mouse and keys. Places are pixels of the
/// sprite that is selected, or of the first one. The window outlives it.
class EditorUser
{
public:
    explicit EditorUser(MainWindow &window);

    NormalMapEditorScene &scene() const;
    EditorGraphicsViewVesperine &view() const;
    QWidget &viewport() const;

    /// Where the middle of a pixel lies in the viewport.
    QPoint at(const QPoint &pixel) const;
    void key(int key, Qt::KeyboardModifiers modifiers = {}) const;
    void press(const QPoint &pixel, Qt::KeyboardModifiers modifiers = {}) const;
    void moveTo(const QPoint &pixel) const;
    void release(const QPoint &pixel, Qt::KeyboardModifiers modifiers = {}) const;
    void paint(const QVector<QPoint> &pixels, Qt::KeyboardModifiers modifiers = {}) const;

    /// Clicks the button of a tool, named by its short label.
    void chooseTool(const char *label) const;
    /// Clicks a button of the active tool's panel; named by its object's name.
    void command(const char *name) const;

    /// Named by its text without mnemonics; ends the test when the window has none.
    QAction &action(const QString &text) const;
    /// Drops files on the view, as from a file manager that would rather move them.
    void drop(const QStringList &paths) const;

private:
    MainWindow &m_window;
};
