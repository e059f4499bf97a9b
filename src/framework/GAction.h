#pragma once

#include <QAction>

/// An action whose tool tip tells its shortcut, and a hint where it has one.
class GAction : public QAction
{
    Q_OBJECT

public:
    explicit GAction(const QString &text, QObject *parent = nullptr);
    GAction(const QIcon &icon, const QString &text, QObject *parent = nullptr);

    /// A further line of the tool tip.
    void setHint(const QString &hint);

private:
    void updateToolTip();

    QString m_hint;
};

/// The text of an action or a menu as a name: without the mark of its mnemonic and closing dots.
QString plainActionText(const QString &text);
