#pragma once

#include "model/FileLock.h"

#include <QDateTime>
#include <QSet>
#include <QString>

#include <memory>

/// The folder of one snapshot, which no other program can take hold of as long as this lives. One
/// that holds no snapshot any more goes with it. Owned by whoever writes or offers the snapshot.
class RecoveryFolder
{
public:
    /// A new one in @p root, which is made where it is missing; null when that fails.
    static std::unique_ptr<RecoveryFolder> create(const QString &root);
    /// The one at @p path; null while somebody holds it.
    static std::unique_ptr<RecoveryFolder> take(const QString &path);
    ~RecoveryFolder();
    RecoveryFolder(const RecoveryFolder &) = delete;
    RecoveryFolder &operator=(const RecoveryFolder &) = delete;

    const QString &path() const { return m_path; }
    QString indexPath() const;
    QString filePath(const QString &name) const;

    /// What happened to the snapshot besides being written, kept over crashes.
    enum class Mark {
        Shown,  ///< the user was told of it
        Tried,  ///< it is being loaded, or the program ended while it was
        GivenUp ///< the user did not want it: it is offered once more, then it goes
    };
    bool hasMark(Mark mark) const;
    /// When it was set first; nothing without it.
    QDateTime timeOfMark(Mark mark) const;
    /// False when it can't be kept.
    bool setMark(Mark mark, bool isSet = true);

    /// Removes the snapshot at @p path, its index first, so that no half of it is ever seen.
    static void clear(const QString &path);
    /// Removes all data files but those of these @p names.
    static void removeOthers(const QString &path, const QSet<QString> &names);
    /// A name for a new data file, never given before.
    static QString newDataFileName();

private:
    explicit RecoveryFolder(const QString &path);
    QString markPath(Mark mark) const;

    QString m_path;
    FileLock m_lock;
};
