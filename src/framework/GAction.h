#pragma once

#include <QAction>

/// An action whose tool tip tells its shortcut, and whose widgets take no keyboard focus from the
/// document.
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
