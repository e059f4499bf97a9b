#pragma once

#include "framework/ShortcutGroup.h"

#include <QDialog>

class QMainWindow;
class QTreeWidget;

/// The actions of @p window that have shortcuts, by the menus that hold them, then those outside
/// of menus; then @p gestures.
QList<ShortcutGroup> shortcutGroups(const QMainWindow &window,
                                    const QList<ShortcutGroup> &gestures);

/// The list of all shortcuts, with a line to search in it.
class ShortcutsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ShortcutsDialog(const QList<ShortcutGroup> &groups, QWidget *parent = nullptr);

private:
    void filter(const QString &text);

    QTreeWidget *m_list;
};
