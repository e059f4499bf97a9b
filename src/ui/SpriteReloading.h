#pragma once

#include "model/SpriteWatcher.h"

#include <QObject>
#include <QTimer>

class Body;
class GAction;
class NormalMapEditor;
class ProjectController;
class WindowPrompts;

/// Shows what other programs make of the sprites' files, as soon as nothing is under way that it
/// could disturb, and asks what becomes of surfaces whose sprites have another size then. The
/// surfaces stay; so does the undo stack, but for what the user answers. What is passed in outlives
/// this.
class SpriteReloading : public QObject
{
    Q_OBJECT

public:
    SpriteReloading(ProjectController &controller,
                    WindowPrompts &prompts,
                    NormalMapEditor &editor,
                    QObject *parent);

    /// Called before the former project goes.
    void setProject(Project *project);
    /// Reads all sprites, and asks about those of another size once more.
    GAction &reloadSprites() const { return *m_reload; }
    /// Asks about those of @p bodies whose sprites have another size, as soon as nothing is under
    /// way.
    void askAbout(const QVector<Body *> &bodies);

Q_SIGNALS:
    /// Sprites show something else now.
    void reloaded();
    /// A line for the status bar.
    void noticed(const QString &message);

private:
    void reloadAll();
    void goOn();
    bool isFree() const;
    void showChanges();
    void finishReload();
    void ask();

    ProjectController &m_controller;
    WindowPrompts &m_prompts;
    NormalMapEditor &m_editor;
    GAction *m_reload;
    SpriteWatcher m_watcher;
    QTimer m_waiting;           ///< for what is under way
    QVector<Body *> m_resized;  ///< that are to be asked about
    bool m_isReloading = false; ///< all, since the user asked for it
    bool m_hasReloaded = false; ///< since then
};
