#include "model/SpriteWatcher.h"

#include "model/Body.h"
#include "model/Project.h"
#include "model/Sprite.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"

#include <QFileInfo>

#include <algorithm>

namespace {
constexpr int quietTime = 200;    // milliseconds after the last event
constexpr int longestWait = 1000; // after the first
// A file that is not there, or no image, may be about to be written: about a second's worth.
constexpr int mostTries = 5;

QString pathOf(const Body &body)
{
    return body.sprite().filename().value().path();
}

QString nearestFolder(const QString &path)
{
    QString folder = QFileInfo(path).path();
    while (!QFileInfo(folder).isDir() && QFileInfo(folder).path() != folder)
        folder = QFileInfo(folder).path();
    return folder;
}

QSet<QString> toSet(const QStringList &list)
{
    return {list.begin(), list.end()};
}
} // namespace

SpriteWatcher::SpriteWatcher(QObject *parent)
    : QObject(parent)
{
    m_following.setSingleShot(true);
    m_quiet.setSingleShot(true);
    connect(
        this, &SpriteWatcher::finished, this, &SpriteWatcher::takeResults, Qt::QueuedConnection);
    connect(&m_following, &QTimer::timeout, this, &SpriteWatcher::follow);
    connect(&m_quiet, &QTimer::timeout, this, &SpriteWatcher::look);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &SpriteWatcher::fileTouched);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &SpriteWatcher::folderTouched);
}

void SpriteWatcher::setProject(Project *project)
{
    m_project = project;
    m_observations.clear();
    m_files.clear();
    m_toRead.clear();
    m_touched.clear();
    m_doubtful.clear();
    m_tries.clear();
    m_changes.clear();
    if (project)
        m_following.start(0);
}

void SpriteWatcher::check()
{
    for (auto file = m_files.cbegin(); file != m_files.cend(); ++file)
        m_doubtful.insert(file.key());
    look();
}

void SpriteWatcher::readAll()
{
    for (auto file = m_files.cbegin(); file != m_files.cend(); ++file)
        m_touched.insert(file.key());
    look();
}

QHash<QString, ReadImage> SpriteWatcher::takeChanges()
{
    return std::exchange(m_changes, {});
}

bool SpriteWatcher::isIdle() const
{
    return !m_following.isActive() && !m_quiet.isActive() && !m_looking.isValid() &&
           m_toRead.isEmpty() && m_reading.empty();
}

// Many may come at once, such as those of all sprites that are added.
void SpriteWatcher::observableChanged(Observable & /*observable*/)
{
    m_following.start(0);
}

// A file that is new here may have changed between its loading and now.
void SpriteWatcher::follow()
{
    if (!m_project)
        return;
    observeSprites();
    Stamps files;
    for (const Body *body : m_project->bodies().all()) {
        const QString path = pathOf(*body);
        if (path.isEmpty() || files.contains(path))
            continue;
        const bool isNew = !m_files.contains(path);
        files.insert(path, isNew ? body->sprite().stamp() : m_files.value(path));
        if (isNew)
            m_doubtful.insert(path);
    }
    m_files = files;
    look();
}

void SpriteWatcher::observeSprites()
{
    ChangeManager &changes = ChangeManager::instance();
    m_observations.clear();
    m_observations.push_back(changes.observe(m_project->bodies(), *this));
    for (const Body *body : m_project->bodies().all())
        m_observations.push_back(changes.observe(body->sprite().filename(), *this));
}

QSet<QString> SpriteWatcher::wantedWatches(const QSet<QString> &watched) const
{
    QSet<QString> wanted;
    QHash<QString, QString> nearest; // many sprites have one folder
    for (auto file = m_files.cbegin(); file != m_files.cend(); ++file) {
        const QString &path = file.key();
        QString &folder = nearest[path.left(path.lastIndexOf(QLatin1Char('/')))];
        if (folder.isEmpty())
            folder = nearestFolder(path);
        wanted.insert(folder);
        wanted.insert(QFileInfo(folder).path()); // which tells when the folder gets another name
        if (watched.contains(path) || QFileInfo::exists(path))
            wanted.insert(path);
    }
    return wanted;
}

// A file that was replaced is watched no more, though the watcher may not know that yet: the former
// one may still be open somewhere.
void SpriteWatcher::keepWatches(const QSet<QString> &anew)
{
    const QSet<QString> all = toSet(m_watcher.files()) + toSet(m_watcher.directories());
    const QSet<QString> watched = all - anew;
    const QSet<QString> wanted = wantedWatches(watched);
    const QSet<QString> kept = watched & wanted;
    if (kept.size() < all.size())
        m_watcher.removePaths((all - kept).values());
    const QSet<QString> added = wanted - kept;
    QSet<QString> refused;
    if (!added.isEmpty()) {
        for (const QString &path : m_watcher.addPaths(added.values())) {
            if (QFileInfo::exists(path))
                refused.insert(path);
        }
    }
    if (!m_unwatched.contains(refused))
        qWarning("The system watches no more files: what happens to %d sprites and folders is "
                 "seen when the window becomes active",
                 int(refused.size()));
    m_unwatched = refused;
}

void SpriteWatcher::fileTouched(const QString &path)
{
    m_tries.remove(path); // it is being written
    m_touched.insert(path);
    schedule();
}

void SpriteWatcher::folderTouched(const QString &folder)
{
    const QString start = folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
    for (auto file = m_files.cbegin(); file != m_files.cend(); ++file) {
        if (file.key().startsWith(start))
            m_doubtful.insert(file.key());
    }
    schedule();
}

void SpriteWatcher::schedule()
{
    if (!m_sinceFirst.isValid())
        m_sinceFirst.start();
    m_quiet.start(int(std::clamp<qint64>(longestWait - m_sinceFirst.elapsed(), 0, quietTime)));
}

void SpriteWatcher::look()
{
    if (m_looking.isValid())
        return; // goes on when that is done
    m_quiet.stop();
    m_sinceFirst.invalidate();
    read(std::exchange(m_touched, {}));
    lookAtDoubtful();
    settle();
}

void SpriteWatcher::lookAtDoubtful()
{
    QVector<QPair<QString, FileStamp>> known;
    for (const QString &path : std::exchange(m_doubtful, {})) {
        if (m_files.contains(path) && !m_toRead.contains(path))
            known.append({path, m_files.value(path)});
    }
    if (known.isEmpty())
        return;
    const auto differing = [known] {
        QStringList paths;
        for (const auto &[path, stamp] : known) {
            if (stampOf(path) != stamp)
                paths.append(path);
        }
        return paths;
    };
    m_looking = PoolTask<QStringList>(differing, [this] { Q_EMIT finished(QPrivateSignal()); });
}

void SpriteWatcher::takeResults()
{
    if (m_looking.isValid() && m_looking.isFinished())
        takeLooked();
    takeRead();
}

void SpriteWatcher::takeLooked()
{
    const QSet<QString> differing = toSet(m_looking.take());
    if (!differing.isEmpty())
        read(differing);
    if (!m_quiet.isActive() && !(m_touched.isEmpty() && m_doubtful.isEmpty()))
        look();
}

// In this order: what is written after the watches are kept is told by an event.
void SpriteWatcher::read(const QSet<QString> &paths)
{
    keepWatches(paths);
    m_toRead += paths;
    startReading();
}

void SpriteWatcher::startReading()
{
    const int most = backgroundThreads();
    for (auto next = m_toRead.begin(); next != m_toRead.end() && int(m_reading.size()) < most;) {
        const QString path = *next;
        if (m_reading.contains(path)) {
            ++next; // it has changed while it is read
            continue;
        }
        next = m_toRead.erase(next);
        if (!m_files.contains(path))
            continue;
        m_reading[path] = PoolTask<ReadImage>([path] { return readImageFile(path); },
                                              [this] { Q_EMIT finished(QPrivateSignal()); });
    }
}

void SpriteWatcher::takeRead()
{
    bool hasChanges = false;
    for (auto task = m_reading.begin(); task != m_reading.end();) {
        if (!task->second.isFinished()) {
            ++task;
            continue;
        }
        hasChanges = accept(task->first, task->second.take()) || hasChanges;
        task = m_reading.erase(task);
    }
    startReading();
    if (hasChanges)
        Q_EMIT changed();
    settle();
}

bool SpriteWatcher::accept(const QString &path, const ReadImage &read)
{
    const auto file = m_files.find(path);
    if (file == m_files.end())
        return false;
    *file = read.stamp;
    const bool isNew = isNews(path, read);
    if (isNew && read.image.isNull() && m_tries[path]++ < mostTries) {
        m_touched.insert(path);
        schedule();
        return false;
    }
    m_tries.remove(path);
    m_changes.remove(path);
    if (isNew)
        m_changes.insert(path, read);
    return isNew;
}

bool SpriteWatcher::isNews(const QString &path, const ReadImage &read) const
{
    const auto bodies = m_project->bodies().all();
    return std::any_of(bodies.begin(), bodies.end(), [&](const Body *body) {
        return pathOf(*body) == path && !body->sprite().isOf(read);
    });
}

void SpriteWatcher::settle()
{
    if (isIdle())
        Q_EMIT settled();
}
