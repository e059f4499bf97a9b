#pragma once

#include <QIcon>
#include <QObject>
#include <QString>
#include <QVector>

class GAction;
struct ToolSetting;

/// Whatever the user chooses to change a surface with, tool or effect: the holder of its action.
class AngleImageTool : public QObject
{
    Q_OBJECT

public:
    /// The action's text is @p label, its icon text @p shortLabel unless that is empty; an empty
    /// @p shortcut is none.
    AngleImageTool(const QIcon &icon,
                   const QString &label,
                   const QString &shortLabel,
                   const QString &shortcut,
                   QObject *parent = nullptr);

    /// Checkable.
    GAction &action() const { return *m_action; }
    /// Without one it has no button, only its action.
    bool hasShortLabel() const { return m_hasShortLabel; }
    /// Whether it can be used while several bodies are selected.
    virtual bool worksOnSeveralBodies() const { return false; }
    /// What is kept between runs.
    virtual QVector<ToolSetting> settings() const;

private:
    GAction *m_action;
    bool m_hasShortLabel;
};
