#include "framework/Shortcuts.h"

#include "base/GSettings.h"
#include "framework/GAction.h"
#include "framework/QuotedName.h"
#include "framework/ReservedKeys.h"

#include <QActionEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>

#include <algorithm>

namespace {

constexpr const char *defaultsProperty = "defaultKeys";

QString keyOf(const QAction &command)
{
    return QStringLiteral("shortcuts/") + command.objectName();
}

QString textOf(const QList<QKeySequence> &keys)
{
    return QKeySequence::listToString(keys, QKeySequence::PortableText);
}

QList<QKeySequence> without(QList<QKeySequence> keys, const QList<QKeySequence> &taken)
{
    const auto isTaken = [&taken](const QKeySequence &key) { return taken.contains(key); };
    keys.erase(std::remove_if(keys.begin(), keys.end(), isTaken), keys.end());
    return keys;
}

// A main window makes a missing menu bar when it is asked for one.
QMenuBar *menuBarOf(const QMainWindow &window)
{
    return window.findChild<QMenuBar *>(QString(), Qt::FindDirectChildrenOnly);
}

template <class Visit>
void visitMenu(QMenu &menu, const Visit &visit)
{
    visit(menu);
    for (const QAction *action : menu.actions()) {
        if (action->menu())
            visitMenu(*action->menu(), visit);
    }
}

bool isListed(const QAction &action)
{
    return !action.isSeparator() && !action.menu() &&
           (!action.objectName().isEmpty() || !action.shortcuts().isEmpty());
}

void append(QList<QAction *> &list, const QList<QAction *> &actions)
{
    for (QAction *action : actions) {
        if (isListed(*action) && !list.contains(action))
            list.append(action);
    }
}

QList<Shortcuts::Group> menuGroups(const QMainWindow &window)
{
    QList<Shortcuts::Group> groups;
    const QMenuBar *bar = menuBarOf(window);
    for (const QAction *title : bar ? bar->actions() : QList<QAction *>()) {
        if (!title->menu())
            continue;
        Shortcuts::Group group{plainActionText(title->text()), {}};
        visitMenu(*title->menu(),
                  [&](const QMenu &menu) { append(group.actions, menu.actions()); });
        groups.append(group);
    }
    return groups;
}

} // namespace

Shortcuts::Shortcuts(GSettings &settings, QMainWindow &window)
    : QObject(&window)
    , m_settings(settings)
    , m_window(window)
{
}

QList<Shortcuts::Group> Shortcuts::groups() const
{
    QList<Group> groups = menuGroups(m_window);
    QList<QAction *> inMenus;
    for (const Group &group : std::as_const(groups))
        inMenus += group.actions;
    Group others{tr("Further keys"), {}};
    for (QAction *action : m_window.findChildren<QAction *>()) {
        if (!inMenus.contains(action) && !action->shortcuts().isEmpty())
            others.actions.append(action);
    }
    groups.append(others);
    const auto isEmpty = [](const Group &group) { return group.actions.isEmpty(); };
    groups.erase(std::remove_if(groups.begin(), groups.end(), isEmpty), groups.end());
    return groups;
}

QList<QAction *> Shortcuts::commands() const
{
    QList<QAction *> found;
    for (const Group &group : menuGroups(m_window)) {
        for (QAction *action : group.actions) {
            if (!action->objectName().isEmpty())
                found.append(action);
        }
    }
    return found;
}

QAction *Shortcuts::command(const QString &id) const
{
    for (QAction *command : commands()) {
        if (command->objectName() == id)
            return command;
    }
    return nullptr;
}

QAction *Shortcuts::holder(const QKeySequence &keys) const
{
    for (const Group &group : groups()) {
        for (QAction *action : group.actions) {
            if (action->shortcuts().contains(keys))
                return action;
        }
    }
    return nullptr;
}

bool Shortcuts::isFixed(const QKeySequence &keys) const
{
    const auto shortcuts = m_window.findChildren<QShortcut *>();
    return std::any_of(shortcuts.begin(), shortcuts.end(), [&keys](const QShortcut *shortcut) {
        return shortcut->key() == keys;
    });
}

QString Shortcuts::refusal(const QKeySequence &keys) const
{
    const QMenuBar *bar = menuBarOf(m_window);
    for (const QAction *title : bar ? bar->actions() : QList<QAction *>()) {
        if (QKeySequence::mnemonic(title->text()) == keys)
            return tr("%1 opens the menu %2.")
                .arg(keys.toString(QKeySequence::NativeText),
                     quoted(plainActionText(title->text())));
    }
    return reservedFor(keys);
}

QList<QKeySequence> Shortcuts::defaultKeys(const QAction &command)
{
    const QVariant kept = command.property(defaultsProperty);
    return kept.isValid() ? kept.value<QList<QKeySequence>>() : command.shortcuts();
}

bool Shortcuts::isChanged(const QAction &command)
{
    return command.shortcuts() != defaultKeys(command);
}

void Shortcuts::setKeys(const QAction &command, const QList<QKeySequence> &keys)
{
    for (const QAction *other : commands()) {
        // Keys that another one was made with give way by themselves.
        const QList<QKeySequence> rest = without(other->shortcuts(), keys);
        if (other != &command && rest != other->shortcuts() &&
            m_settings.value(keyOf(*other)).isValid())
            store(*other, rest);
    }
    store(command, keys);
    apply();
}

void Shortcuts::store(const QAction &command, const QList<QKeySequence> &keys)
{
    if (keys == defaultKeys(command))
        m_settings.remove(keyOf(command));
    else
        m_settings.setValue(keyOf(command), textOf(keys));
}

void Shortcuts::reset(const QAction &command)
{
    m_settings.remove(keyOf(command));
    apply();
}

void Shortcuts::resetAll()
{
    m_settings.remove(QStringLiteral("shortcuts"));
    apply();
}

void Shortcuts::apply()
{
    m_isWaiting = false;
    watchMenus();
    const QList<QAction *> present = commands();
    QHash<const QAction *, QList<QKeySequence>> chosen;
    QList<QKeySequence> taken;
    for (QAction *command : present) {
        takeUp(*command);
        const QVariant kept = m_settings.value(keyOf(*command));
        if (!kept.isValid())
            continue;
        chosen[command] = QKeySequence::listFromString(kept.toString(), QKeySequence::PortableText);
        taken += chosen[command];
    }
    for (QAction *command : present) {
        const auto keys = chosen.constFind(command);
        command->setShortcuts(keys == chosen.cend() ? without(defaultKeys(*command), taken)
                                                    : keys.value());
    }
    Q_EMIT changed();
}

void Shortcuts::takeUp(QAction &command)
{
    if (command.property(defaultsProperty).isValid())
        return;
    command.setProperty(defaultsProperty, QVariant::fromValue(command.shortcuts()));
    connect(&command, &QAction::triggered, this, [&command] {
        qDebug("Command: %s", qUtf8Printable(command.objectName()));
    });
}

void Shortcuts::watchMenus()
{
    QMenuBar *bar = menuBarOf(m_window);
    if (!bar)
        return;
    bar->installEventFilter(this);
    for (const QAction *title : bar->actions()) {
        if (title->menu())
            visitMenu(*title->menu(), [this](QMenu &menu) { menu.installEventFilter(this); });
    }
}

bool Shortcuts::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ActionAdded && !m_isWaiting) {
        // Who adds an action may not have given it its name and keys yet.
        m_isWaiting = true;
        QMetaObject::invokeMethod(this, &Shortcuts::apply, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}
