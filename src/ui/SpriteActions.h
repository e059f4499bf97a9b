#pragma once

#include <QObject>
#include <QStringList>

class GAction;
class NormalMapEditor;
class Project;
class ProjectController;
class ShapeTreeView;
class SpriteReloading;
class WindowPrompts;
class QMenu;
class QWidget;

/// The commands on the list of sprites: add, remove, rename, reload, select all. Everything that is
/// passed in outlives this.
class SpriteActions : public QObject
{
    Q_OBJECT

public:
    SpriteActions(ProjectController &controller,
                  WindowPrompts &prompts,
                  ShapeTreeView &list,
                  NormalMapEditor &editor,
                  QWidget *window);

    GAction &addSprites() const { return *m_add; }
    GAction &removeSprites() const { return *m_remove; }
    GAction &selectAll() const { return *m_selectAll; }
    void addEditActions(QMenu &menu) const;
    /// Called before the former project goes.
    void setProject(Project *project);
    /// Adds the images among @p paths, folders with all that is below them.
    void add(const QStringList &paths);
    /// The selected sprites got other images: asks about those of another size.
    void checkSizes();
    /// Enables what can be done with the selection as it is.
    void update();
    /// None of the commands can be chosen while they are locked.
    void setLocked(bool isLocked);

Q_SIGNALS:
    /// There may be other bodies now.
    void bodiesChanged();
    /// A line for the status bar.
    void noticed(const QString &message);

private:
    void chooseAndAdd();
    void showFailure(const QString &failure);
    void remove();
    void runSelectAll();

    ProjectController &m_controller;
    WindowPrompts &m_prompts;
    ShapeTreeView &m_list;
    NormalMapEditor &m_editor;
    QWidget *m_window;
    GAction *m_add;
    GAction *m_remove;
    GAction *m_rename;
    GAction *m_selectAll;
    SpriteReloading *m_reloading;
    bool m_isLocked = false;
};
