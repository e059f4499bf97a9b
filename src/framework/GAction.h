#pragma once

#include <QAction>

/// An action whose tool tip tells its shortcut.
class GAction : public QAction
{
    Q_OBJECT

public:
    explicit GAction(const QString &text, QObject *parent = nullptr);
    GAction(const QIcon &icon, const QString &text, QObject *parent = nullptr);

private:
    void updateToolTip();
};

/// The text of an action or a menu as a name: without the mark of its mnemonic and closing dots.
QString plainActionText(const QString &text);
