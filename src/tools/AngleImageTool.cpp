#include "tools/AngleImageTool.h"

#include "framework/GAction.h"
#include "tools/ToolPanel.h"

#include <QKeySequence>

AngleImageTool::AngleImageTool(const QIcon &icon,
                               const QString &label,
                               const QString &shortLabel,
                               const QString &shortcut,
                               QObject *parent)
    : QObject(parent)
    , m_action(new GAction(icon, label, this))
    , m_hasShortLabel(!shortLabel.isEmpty())
{
    m_action->setCheckable(true);
    if (!shortLabel.isEmpty())
        m_action->setIconText(shortLabel);
    if (!shortcut.isEmpty())
        m_action->setShortcut(QKeySequence(shortcut));
}

QVector<ToolSetting> AngleImageTool::settings() const
{
    return {};
}
