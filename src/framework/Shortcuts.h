#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>

class GSettings;

QT_BEGIN_NAMESPACE
class QAction;
class QMainWindow;
class QMenu;
QT_END_NAMESPACE

/// The keys of the commands in a window's menus, as the user has chosen them. A command is an
/// action with an object name, under which the settings keep its keys as far as they differ from
/// those that it was made with. Commands that come into the menus later get their keys by
/// themselves, after all that their maker does to them. Belongs to the window.
class Shortcuts : public QObject
{
    Q_OBJECT

public:
    struct Group
    {
        QString title;
        QList<QAction *> actions;
    };

    /// @p settings outlive the window.
    Shortcuts(GSettings &settings, QMainWindow &window);

    /// Gives all commands their keys. A key that the user has chosen for a command no other one
    /// has.
    void apply();

    /// The commands by their menus, then actions with keys that the user can't change.
    QList<Group> groups() const;
    /// Null when there is none of the name @p id.
    QAction *command(const QString &id) const;
    /// The command that has @p keys, null for none.
    QAction *holder(const QKeySequence &keys) const;
    /// True when a key of the window that is no action's has them.
    bool isFixed(const QKeySequence &keys) const;
    /// Why no command can have @p keys, in a sentence; empty when one can.
    QString refusal(const QKeySequence &keys) const;

    static QList<QKeySequence> defaultKeys(const QAction &command);
    static bool isChanged(const QAction &command);
    /// Gives @p command these keys only, at once and at every start. Who else has them loses them.
    void setKeys(const QAction &command, const QList<QKeySequence> &keys);
    /// Gives @p command the keys that it was made with, unless they were chosen for another one.
    void reset(const QAction &command);
    void resetAll();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// Commands have other keys, or there are others.
    void changed();

private:
    QList<QAction *> commands() const;
    void takeUp(QAction &command);
    void watchMenus();
    void store(const QAction &command, const QList<QKeySequence> &keys);

    GSettings &m_settings;
    QMainWindow &m_window;
    bool m_isWaiting = false;
};
