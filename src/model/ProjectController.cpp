#include "model/ProjectController.h"

#include "base/Error.h"
#include "base/GSettings.h"
#include "base/PlainText.h"
#include "model/DataModelReader.h"
#include "model/DataModelWriter.h"
#include "model/NormalMapExport.h"
#include "model/Project.h"
#include "model/ProjectLock.h"
#include "model/ProjectPrompts.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/SpriteFiles.h"
#include "model/SpriteLoading.h"
#include "model/SurfaceFitting.h"
#include "model/properties/PropertyT.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

namespace {
QString lastSpriteImportKey()
{
    return QStringLiteral("lastSpriteImportPath");
}

QString bodyName(const QString &path)
{
    const QFileInfo file(path);
    return plainText(file.baseName().isEmpty() ? file.fileName() : file.baseName());
}

QString oneALine(QStringList files)
{
    for (QString &file : files)
        file = shownText(file);
    return files.join(QLatin1Char('\n'));
}
} // namespace

ProjectController::ProjectController(GSettings &settings, ProjectPrompts &prompts)
    : m_settings(settings)
    , m_prompts(prompts)
{
    createProject();
}

ProjectController::~ProjectController() = default;

void ProjectController::createProject()
{
    m_file = {};
    install(std::make_shared<Project>());
}

bool ProjectController::openProject(const QString &fileName, Lock lock)
{
    ProjectFile file;
    if (lock == Lock::OnOpening) {
        file.lock = holds(fileName) ? m_file.lock : std::make_shared<ProjectLock>(fileName);
        if (!file.lock->mayWrite() && !m_prompts.askReadOnly(fileName, file.lock->otherHolder()))
            return false;
    }
    // Before it is read: what changes meanwhile is noticed.
    file.path = GFileName(fileName).canonicalPath();
    file.stamp = stampOf(file.path);
    DataModelReader reader(QStringLiteral(".vep"), QStringLiteral(".vexml"));
    const auto project = reader.read(fileName);
    m_file = file;
    install(project);
    tellSurfaceTrouble(reader.damagedBodies());
    return true;
}

void ProjectController::installRecovered(const std::shared_ptr<Project> &project,
                                         const QStringList &damagedBodies,
                                         const FileStamp &file)
{
    const GFileName &fileName = project->filename().value();
    m_file = {}; // gives the lock up, which may be the one to take
    if (!fileName.isEmpty())
        m_file.lock = std::make_shared<ProjectLock>(fileName.path());
    m_file.path = fileName.canonicalPath();
    m_file.stamp = file;
    install(project);
    project->undoStack().resetClean();
    tellSurfaceTrouble(damagedBodies);
}

void ProjectController::tellSurfaceTrouble(const QStringList &damagedBodies)
{
    if (!damagedBodies.isEmpty())
        m_prompts.tell(tr("The painted surfaces of these bodies are damaged, they count as not "
                          "painted: %1")
                           .arg(damagedBodies.join(QStringLiteral(", "))));
    QStringList empty;
    for (const Body *body : m_project->bodies().all()) {
        if (body->paintedNormalMap().hasEmptySide())
            empty.append(body->name().value());
    }
    if (!empty.isEmpty())
        m_prompts.tell(tr("The painted surfaces of these bodies have a side of 0 pixels, they "
                          "count as not painted: %1")
                           .arg(empty.join(QStringLiteral(", "))));
}

bool ProjectController::isReadOnly() const
{
    return m_file.lock && !m_file.lock->mayWrite();
}

bool ProjectController::isLockKept() const
{
    return !m_file.lock || m_file.lock->isKept();
}

bool ProjectController::isChangedOnDisk(const GFileName &fileName) const
{
    const QString file = fileName.canonicalPath();
    if (file != m_file.path)
        return false;
    const FileStamp present = stampOf(file);
    return present.exists() && present != m_file.stamp;
}

void ProjectController::saveAs(const GFileName &fileName, Changed changed)
{
    const auto lock = lockForSaving(fileName.path());
    if (changed == Changed::Refuse && isChangedOnDisk(fileName))
        throw Error(tr("'%1' was changed by another program since it was opened. Save under "
                       "another name, or open it again.")
                        .arg(fileName.path()));
    const GFileName former = m_project->filename().value();
    m_project->filename().setValue(fileName);
    try {
        write();
    } catch (...) {
        m_project->filename().setValue(former);
        throw;
    }
    const QString path = fileName.canonicalPath();
    m_file = {lock, path, stampOf(path)};
}

void ProjectController::write()
{
    // Showing the progress lets other things happen, which the file does not hold then.
    const auto project = m_project;
    bool isAsWritten = true;
    const QObject watching;
    QObject::connect(&project->undoStack(), &GUndoStack::indexChanged, &watching, [&isAsWritten] {
        isAsWritten = false;
    });
    DataModelWriter(*project).write(
        [this](int done, int total) { m_prompts.showProgress(done, total); });
    if (isAsWritten)
        project->undoStack().markSaved();
}

bool ProjectController::holds(const QString &fileName) const
{
    return m_file.lock && m_file.lock->isOf(fileName) && m_file.lock->mayWrite();
}

std::shared_ptr<ProjectLock> ProjectController::lockForSaving(const QString &fileName) const
{
    if (fileName.isEmpty() || holds(fileName))
        return m_file.lock;
    auto lock = std::make_shared<ProjectLock>(fileName);
    if (!lock->mayWrite())
        throw Error(
            tr("'%1' is open in %2. Save under another name.").arg(fileName, lock->otherHolder()));
    return lock;
}

void ProjectController::addSprites(const QStringList &paths)
{
    const QString stored = m_project->publishNormalmapPostfix().value();
    const auto found = findSpriteFiles(paths, stored.isEmpty() ? QStringLiteral("_n") : stored);
    for (const QString &path : found.skipped)
        m_prompts.tell(tr("Skipped '%1': it is the normal map of another sprite").arg(path));

    QVector<std::shared_ptr<Body>> bodies;
    QStringList failures = found.unreadable;
    auto images = readImages(found.files);
    for (int i = 0; i < found.files.size(); ++i) {
        const QString &path = found.files[i];
        auto body = std::make_shared<Body>(*m_project);
        body->sprite().filename().setValue(GFileName(path));
        body->name().setValue(bodyName(path));
        body->sprite().load(images.next(), QSize(), false);
        // A project file has no way to write such a path.
        if (body->sprite().isLoaded() && isPlainText(path))
            bodies.append(body);
        else
            failures.append(path);
        if (!m_prompts.showProgress(i + 1, found.files.size()))
            return;
    }
    if (!bodies.isEmpty()) {
        QList<Body *> added;
        {
            const UndoMacro macro(m_project->undoStack(), tr("add bodies"));
            for (const auto &body : std::as_const(bodies)) {
                const QSize size = body->sprite().image().size();
                body->paintedNormalMap().setAngleImage(AngleImage(size.width(), size.height()),
                                                       tr("init normalmap"));
                m_project->bodies().append(body, tr("add body"));
                added.append(body.get());
            }
        }
        m_selection.setSelection(added);
        m_settings.setValue(lastSpriteImportKey(),
                            QFileInfo(added.first()->sprite().filename().value().path()).path());
    }
    if (!failures.isEmpty())
        throw Error(tr("Failed to add following files:\n\n") + oneALine(failures));
}

void ProjectController::removeBodies(const QVector<Body *> &bodies)
{
    const UndoMacro macro(m_project->undoStack(), tr("remove bodies"));
    QList<Body *> rest = m_selection.selection();
    for (Body *body : bodies)
        rest.removeAll(body);
    m_selection.setSelection(rest);
    for (Body *body : bodies)
        m_project->bodies().remove(*body, tr("remove body"));
}

void ProjectController::loadTextures()
{
    loadSprites(m_project->bodies().all());
}

void ProjectController::checkTextures()
{
    loadTextures();
    resolveTextures();
}

void ProjectController::resolveTextures()
{
    QStringList changes;
    resolveMissing(changes);
    changes += resolveResized(m_project->bodies().all());
    if (!changes.isEmpty())
        m_prompts.showSummary(changes);
}

QStringList ProjectController::foreignMaps() const
{
    return foreignFiles(*m_project, m_project->bodies().all(), exportSettings());
}

bool ProjectController::saveNormalMaps(Foreign foreign)
{
    const auto bodies = m_project->bodies().all();
    NormalMapExport settings = exportSettings();
    settings.replacesForeign = foreign == Foreign::Replace;
    settings.progress = [this, &bodies](int done) {
        return m_prompts.showProgress(done, bodies.size());
    };
    const auto result = exportNormalMaps(*m_project, bodies, settings);
    if (!result.failures.isEmpty())
        throw Error(result.failures.first());
    return !result.cancelled;
}

bool ProjectController::writeImage(const QImage &image, const QString &path)
{
    const KnownFiles sources = sourceFiles(*m_project);
    if (sources.contains(path))
        throw Error(tr("'%1' is a sprite of the project or the project itself and stays as it is: "
                       "choose another name")
                        .arg(path));
    return writeImageFile(image, path, sources);
}

NormalMapExport ProjectController::exportSettings() const
{
    NormalMapExport settings;
    settings.directory = m_project->publishDirectory().value();
    settings.suffix = m_project->publishNormalmapPostfix().value();
    return settings;
}

QString ProjectController::lastSpriteImportPath() const
{
    return m_settings.value(lastSpriteImportKey()).toString();
}

QString ProjectController::imagePath(const QString &key) const
{
    return m_settings.value(QStringLiteral("imagePath/") + key).toString();
}

void ProjectController::setImagePath(const QString &key, const QString &path)
{
    m_settings.setValue(QStringLiteral("imagePath/") + key, path);
}

// The undo stack is emptied last: a project is installed unmodified, its first body selected.
void ProjectController::install(const std::shared_ptr<Project> &project)
{
    m_selection.setProject(project.get());
    const auto former = std::exchange(m_project, project);
    if (m_installed)
        m_installed();
    const auto bodies = project->bodies().all();
    if (!bodies.isEmpty())
        m_selection.setSelection({bodies.first()});
    project->undoStack().clear();
    // Undo and redo give a sprite another file, or its surface another size.
    QObject::connect(&project->undoStack(), &GUndoStack::indexChanged, &m_selection, [this] {
        loadOutdatedSprites(*m_project);
    });
}

void ProjectController::resolveMissing(QStringList &changes)
{
    for (auto missing = bodiesWithoutSprite(*m_project); !missing.isEmpty();
         missing = bodiesWithoutSprite(*m_project)) {
        switch (m_prompts.askMissingTextures(spritePaths(missing))) {
        case ProjectPrompts::MissingTextures::Search:
            searchMissing(m_prompts.askSearchFolder(), changes);
            break;
        case ProjectPrompts::MissingTextures::Remove:
            removeMissing(missing, changes);
            return;
        case ProjectPrompts::MissingTextures::Continue:
            return;
        }
    }
}

// What is there and can't be read now may be read another time.
void ProjectController::removeMissing(const QVector<Body *> &unloaded, QStringList &changes)
{
    QVector<Body *> missing;
    for (Body *body : unloaded) {
        const Sprite &sprite = body->sprite();
        if (!sprite.problem().isEmpty()) {
            m_prompts.tell(
                tr("'%1' stays in the project: its file '%2' is there and can't be "
                   "read: %3")
                    .arg(body->name().value(), sprite.filename().value().path(), sprite.problem()));
            continue;
        }
        changes.append(tr("Removed sprite: ") + body->name().value());
        missing.append(body);
    }
    if (!missing.isEmpty())
        removeBodies(missing);
}

void ProjectController::searchMissing(const QString &folder, QStringList &changes)
{
    if (folder.isEmpty())
        return;
    const UndoMacro macro(m_project->undoStack(), tr("update file paths"));
    for (Body *body : bodiesWithoutSprite(*m_project)) {
        auto &filename = body->sprite().filename();
        const GFileName path(QDir(folder).filePath(filename.value().fileName()));
        if (path == filename.value() || !QFileInfo(path.path()).isFile())
            continue;
        changes.append(tr("Updated file path:") + QLatin1Char('\n') +
                       shownText(filename.value().path()) + QStringLiteral("\n-->\n") +
                       shownText(path.path()));
        filename.setValue(path, tr("update file path"), false);
    }
}

// Asked again when a file changes once more before its surface has its size.
QStringList ProjectController::resolveResized(const QVector<Body *> &bodies)
{
    QStringList changes;
    for (auto resized = resizedAmong(bodies); !resized.isEmpty(); resized = resizedAmong(resized)) {
        const ResizedAnswer answer = m_prompts.askResized(spritePaths(resized));
        if (answer.action == ResizedAnswer::Action::Keep)
            break;
        changes += fitSurfaces(
            resized, answer, [&](int done) { m_prompts.showProgress(done, resized.size()); });
    }
    return changes;
}
