#pragma once

#include "model/FileStamp.h"
#include "model/ItemSelectionModel.h"

#include <QCoreApplication>
#include <QImage>
#include <QStringList>

#include <functional>
#include <memory>

class GFileName;
class GSettings;
class ProjectLock;
class ProjectPrompts;
struct NormalMapExport;

/// Carries out the document operations that menus and the command line ask for, by undoable steps.
/// Owns the selection of bodies and a share of the project; settings and prompts outlive it.
class ProjectController
{
    Q_DECLARE_TR_FUNCTIONS(ProjectController)

public:
    ProjectController(GSettings &settings, ProjectPrompts &prompts);
    ~ProjectController();
    ProjectController(const ProjectController &) = delete;
    ProjectController &operator=(const ProjectController &) = delete;

    Project &project() const { return *m_project; }
    ItemSelectionModel &selection() { return m_selection; }

    /// Called whenever another project takes the place of the present one, which lives on until
    /// the call returns. Nothing is selected at that time.
    void setInstalled(std::function<void()> installed) { m_installed = std::move(installed); }
    /// Starts with an empty project.
    void createProject();
    /// When a project's file is locked against other writers.
    enum class Lock { OnOpening, OnSaving };
    /// Opens a project file; damaged surfaces are told. Its sprites are loaded by checkTextures()
    /// or loadTextures(). False when another program has it and the user would rather not read it
    /// only. Throws Error when it can't be read. The present project stays in both cases.
    bool openProject(const QString &fileName, Lock lock);
    /// Takes @p project, which a program had changed since @p file, as a modified one under its own
    /// file name; @p damagedBodies are told. A file in another state counts as changed by others,
    /// one that another program has may only be read. Its sprites are loaded as after
    /// openProject().
    void installRecovered(const std::shared_ptr<Project> &project,
                          const QStringList &damagedBodies,
                          const FileStamp &file);
    /// True when another program had the project when it was opened: it is not to be saved there.
    bool isReadOnly() const;
    /// False where the project's drive keeps no locks: another program may come to write it, too.
    bool isLockKept() const;
    /// The project's file as this controller read or left it.
    const FileStamp &fileStamp() const { return m_file.stamp; }
    /// True when @p fileName is the project's file and other than this controller read or left it.
    bool isChangedOnDisk(const GFileName &fileName) const;
    /// What becomes of a file that another program has changed since it was opened.
    enum class Changed { Refuse, Replace };
    /// Saves under @p fileName and keeps the file locked. Throws Error, also when another program
    /// has the file or has changed it; file and project are then as they were, under their names.
    void saveAs(const GFileName &fileName, Changed changed = Changed::Refuse);

    /// Adds a body for each image among @p paths, folders with all that is below them, and selects
    /// the new ones. Throws Error that names those that could not be added; the others are.
    void addSprites(const QStringList &paths);
    /// Removes @p bodies, from the selection too.
    void removeBodies(const QVector<Body *> &bodies);
    /// Loads every sprite, its size checked against the painted surface.
    void loadTextures();
    /// Asks what to do with sprites that are missing or have another size than their surface.
    void resolveTextures();
    /// Both in turn.
    void checkTextures();
    /// Asks what to do with the surfaces of those of @p bodies whose sprites have another size.
    /// Returns the changes that were made.
    QStringList resolveResized(const QVector<Body *> &bodies);
    /// The files that saveNormalMaps() would replace and that are no normal maps of this program.
    /// Throws Error when maps would take each other's place, or that of a sprite.
    QStringList foreignMaps() const;
    /// What becomes of such files.
    enum class Foreign { Refuse, Replace };
    /// Writes the normal maps of all bodies as the project's settings tell; false when the user
    /// cancels. Throws Error at the first failure. Maps that were written before stay.
    bool saveNormalMaps(Foreign foreign = Foreign::Refuse);
    /// Writes @p image in the format that the extension of @p path names; false when that fails.
    /// Throws Error when that would replace the project's file or a sprite.
    bool writeImage(const QImage &image, const QString &path);

    /// The export settings that the project holds.
    NormalMapExport exportSettings() const;

    /// The folder of the sprites that were added last.
    QString lastSpriteImportPath() const;
    /// The folder that was last used for @p key, such as "normalMap".
    QString imagePath(const QString &key) const;
    void setImagePath(const QString &key, const QString &path);

private:
    /// What is known of the project's file, where it has one.
    struct ProjectFile
    {
        std::shared_ptr<ProjectLock> lock; ///< null without one
        QString path;                      ///< behind all links
        FileStamp stamp;                   ///< as it was read or left
    };

    void install(const std::shared_ptr<Project> &project);
    void tellSurfaceTrouble(const QStringList &damagedBodies);
    void write();
    /// True when this controller may write @p fileName by the lock that it has.
    bool holds(const QString &fileName) const;
    /// The lock to save @p fileName under; throws Error when another program has it.
    std::shared_ptr<ProjectLock> lockForSaving(const QString &fileName) const;
    void resolveMissing(QStringList &changes);
    void removeMissing(const QVector<Body *> &unloaded, QStringList &changes);
    void searchMissing(const QString &folder, QStringList &changes);

    GSettings &m_settings;
    ProjectPrompts &m_prompts;
    std::shared_ptr<Project> m_project;
    std::function<void()> m_installed;
    ItemSelectionModel m_selection;
    ProjectFile m_file;
};
