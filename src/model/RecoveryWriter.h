#pragma once

#include "imaging/PoolTask.h"
#include "model/RecoverySnapshot.h"
#include "model/RecoveryStore.h"

#include <QHash>
#include <QObject>

#include <deque>
#include <functional>
#include <optional>

/// Keeps a snapshot of a project on the disk, written on the global thread pool. The last complete
/// one stays whole until the next one is. Unchanged surfaces are written once.
class RecoveryWriter : public QObject
{
    Q_OBJECT

public:
    explicit RecoveryWriter(RecoveryStore store, QObject *parent = nullptr);
    /// Waits for what is being done; the last complete snapshot stays, unless it was dropped.
    ~RecoveryWriter() override;

    bool isBusy() const { return m_stage != Stage::Idle; }
    /// Waits for what is being done.
    void finish();
    /// Starts to write @p project as it stands, with the state of the file that its changes were
    /// made to, unless that is what the last snapshot holds. Not while busy.
    void write(Project &project, const FileStamp &file = {});
    /// Removes the snapshot, also one that is being written: its project was saved.
    void drop();
    /// Goes on with the snapshot of @p entry, from which @p project has just been read.
    void adopt(RecoveryEntry entry, Project &project);
    /// From adopt() on, until its project is saved or given up, while there is a snapshot of it.
    bool hasAdopted() const;
    /// The project is given up unsaved: an adopted snapshot stays, marked so; any other is removed.
    void giveUp();
    /// The adopted snapshot's project is there to be worked on: trying it did no harm.
    void confirmAdopted();

Q_SIGNALS:
    /// A snapshot has become complete.
    void written();
    /// One could not be written; the one before it is still there.
    void failed(const QString &reason);
    /// On the pool's thread.
    void pieceFinished(QPrivateSignal);

private:
    enum class Stage { Idle, Packing, Completing, Tidying };
    struct Written
    {
        quint64 revision = 0;
        QString name;
    };
    /// Empty, or why it failed.
    using Work = std::function<QString()>;

    void forgetLast();
    void forgetLostFolder();
    void queueSurfaces();
    Work completion();
    void start(Work work);
    void goOn();
    void finishStage();
    void tidy();

    RecoveryStore m_store;
    std::unique_ptr<RecoveryFolder> m_folder;
    Stage m_stage = Stage::Idle;
    bool m_isDropped = false;
    bool m_hasAdopted = false;
    QString m_problem;
    RecoverySnapshot m_snapshot; ///< the one being written
    QHash<QString, Written> m_writing;
    RecoveryIndex m_index;
    std::optional<RecoverySnapshot> m_lastSnapshot; ///< the complete one, shrunk
    QHash<QString, Written> m_lastWritten;
    QSet<QString> m_lastFiles;
    std::deque<Work> m_waiting;
    std::deque<PoolTask<QString>> m_tasks; // last, so that it goes first: the tasks call back
};
