#pragma once

#include "imaging/PoolTask.h"
#include "model/ImageReading.h"
#include "model/properties/ChangeManager.h"
#include "model/properties/Observer.h"

#include <QElapsedTimer>
#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QVector>

#include <map>
#include <vector>

class Project;

/// Notices when the files of a project's sprites change, and reads those that did on the pool. What
/// it has read is taken by its owner; the project is borrowed and left as it is.
///
/// A file is watched for what is written into it, its folder (the nearest one that there is) for
/// what takes its place. Whatever the system does not tell, check() finds.
class SpriteWatcher : public QObject, public Observer
{
    Q_OBJECT

public:
    explicit SpriteWatcher(QObject *parent = nullptr);

    /// Watches the sprites of @p project (null for none), which are loaded, from now on. Called
    /// before the former one goes.
    void setProject(Project *project);
    /// Looks at all files and reads those whose size or time is another one.
    void check();
    /// Reads all files.
    void readAll();
    /// What was read since the last time and differs from what the sprites show, by their paths.
    QHash<QString, ReadImage> takeChanges();
    bool hasChanges() const { return !m_changes.isEmpty(); }
    /// True when nothing is being looked at, nor waits to be.
    bool isIdle() const;

    void observableChanged(Observable &observable) override;

Q_SIGNALS:
    /// There is something to take.
    void changed();
    /// All is looked at that was to be.
    void settled();
    /// A task, told on the pool's thread.
    void finished(QPrivateSignal);

private:
    using Stamps = QHash<QString, FileStamp>;

    void follow();
    void observeSprites();
    QSet<QString> wantedWatches(const QSet<QString> &watched) const;
    void keepWatches(const QSet<QString> &anew);
    void fileTouched(const QString &path);
    void folderTouched(const QString &folder);
    void schedule();
    void look();
    void lookAtDoubtful();
    void takeResults();
    void takeLooked();
    void read(const QSet<QString> &paths);
    void startReading();
    void takeRead();
    bool accept(const QString &path, const ReadImage &read);
    bool isNews(const QString &path, const ReadImage &read) const;
    void settle();

    Project *m_project = nullptr;
    std::vector<Observation> m_observations;
    Stamps m_files;              ///< all, as they were when they were read last
    QSet<QString> m_unwatched;   ///< what the system would not watch
    QSet<QString> m_touched;     ///< to be read after the quiet time
    QSet<QString> m_doubtful;    ///< to be looked at after the quiet time
    QSet<QString> m_toRead;      ///< now
    QHash<QString, int> m_tries; ///< of files that could not be read as images
    QHash<QString, ReadImage> m_changes;

    QFileSystemWatcher m_watcher;
    QTimer m_following;
    QTimer m_quiet;
    QElapsedTimer m_sinceFirst; ///< event that waits; invalid without one
    PoolTask<QStringList> m_looking;
    std::map<QString, PoolTask<ReadImage>> m_reading;
};
