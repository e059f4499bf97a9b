#pragma once

#include "framework/ShortcutGroup.h"

#include <QDialog>

class KeyEdit;
class Shortcuts;

QT_BEGIN_NAMESPACE
class QAction;
class QKeySequence;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
QT_END_NAMESPACE

/// All commands with their keys, which the user changes here, and what mouse and keys do besides.
/// Changes count at once.
class ShortcutsDialog : public QDialog
{
    Q_OBJECT

public:
    /// @p shortcuts outlive the dialog. @p gestures are shown only.
    ShortcutsDialog(Shortcuts &shortcuts,
                    const QList<ShortcutGroup> &gestures,
                    QWidget *parent = nullptr);

private:
    QWidget *createEditor();
    void connectEditor();
    void fill();
    void addGestures();
    QTreeWidgetItem *addGroup(const QString &title);
    void filter();
    void chooseFirst();
    void goToFirst();
    void showKeys(QTreeWidgetItem &row, const QAction &command);
    void showCurrent();
    void take(const QKeySequence &keys);
    void takeOver();
    void reset();
    void askAndResetAll();
    QString gestureAt(const QKeySequence &keys) const;
    void tell(const QString &text, bool isTrouble = false);
    QAction *current() const;

    Shortcuts &m_shortcuts;
    const QList<ShortcutGroup> m_gestures;
    QLineEdit *m_search;
    QTreeWidget *m_list;
    QLabel *m_command;
    KeyEdit *m_edit;
    QPushButton *m_remove;
    QPushButton *m_reset;
    QPushButton *m_takeOver;
    QLabel *m_message;
};
