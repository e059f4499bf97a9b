#pragma once

#include <QObject>

#include <functional>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QWidget;
QT_END_NAMESPACE

/// Ends an edit the same way in all editors: Enter keeps what is there, Escape takes it back, and
/// both give up the focus, which the main window then hands to the document. The wheel passes over
/// an editor without the focus, so that it scrolls the panel. A member of the editor: a widget that
/// is destroyed loses the focus when the editor is no longer whole.
class EditorKeys : public QObject
{
    Q_OBJECT

public:
    /// @p finish is called at Enter and when the focus leaves. @p cancel is called at Escape and
    /// tells whether it took something back; if not, Escape goes on to the widget around. A dialog
    /// around gets Escape in any case.
    EditorKeys(QWidget &editor,
               std::function<void()> finish,
               std::function<bool()> cancel,
               QObject *parent = nullptr);

    /// @p part of the editor, or the editor itself, can have the focus.
    void watch(QWidget &part);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool hasFocus() const;
    bool pressed(QWidget &part, QKeyEvent &event);

    QWidget &m_editor;
    std::function<void()> m_finish;
    std::function<bool()> m_cancel;
};
