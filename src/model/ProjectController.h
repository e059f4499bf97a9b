#pragma once

#include "model/ItemSelectionModel.h"

#include <QCoreApplication>
#include <QImage>
#include <QStringList>

#include <functional>
#include <memory>

class GFileName;
class GSettings;
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
    /// Opens a project file; damaged surfaces are told. Its sprites are loaded by checkTextures()
    /// or loadTextures(). Throws Error when it can't be read, the present project stays then.
    void openProject(const QString &fileName);
    /// Takes @p project, which comes from no file as it stands, as a modified one;
    /// @p damagedBodies are told. Its sprites are loaded as after openProject().
    void installRecovered(const std::shared_ptr<Project> &project,
                          const QStringList &damagedBodies);
    /// Saves to the project's file. Throws Error; the file on disk is then as it was.
    void save();
    /// Saves under another name. Throws Error; the project keeps its former name then.
    void saveAs(const GFileName &fileName);

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
    /// Writes the normal maps of all bodies as the project's settings tell; false when the user
    /// cancels. Throws Error at the first failure. Maps that were written before stay.
    bool saveNormalMaps();
    /// Writes @p image in the format that the extension of @p path names; false when that fails.
    bool writeImage(const QImage &image, const QString &path);

    /// The export settings that the project holds.
    NormalMapExport exportSettings() const;

    /// The folder of the sprites that were added last.
    QString lastSpriteImportPath() const;
    /// The folder that was last used for @p key, such as "normalMap".
    QString imagePath(const QString &key) const;
    void setImagePath(const QString &key, const QString &path);

private:
    void install(const std::shared_ptr<Project> &project);
    void tellDamaged(const QStringList &bodies);
    void loadSprites(const QVector<Body *> &bodies);
    void loadOutdatedSprites();
    QVector<Body *> missingBodies() const;
    void resolveMissing(QStringList &changes);
    void searchMissing(const QString &folder, QStringList &changes);
    void resolveResized(QStringList &changes);

    GSettings &m_settings;
    ProjectPrompts &m_prompts;
    std::shared_ptr<Project> m_project;
    std::function<void()> m_installed;
    ItemSelectionModel m_selection;
};
