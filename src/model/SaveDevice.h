#pragma once

#include "model/KernelLock.h"

#include <QFile>
#include <QIODevice>
#include <QString>
#include <QStringList>

#include <functional>
#include <utility>

/// Replaces a file in one move once everything has reached the disk: until commit() the old file
/// stays as it is, and without it nothing was ever written. Links are followed, the file's mode is
/// kept. Made for one save and owned by whoever saves.
class SaveDevice : public QIODevice
{
public:
    /// Whether commit() waits for the disk, or a later syncFolder() does so for many files at once.
    enum class Sync { Now, Later };

    explicit SaveDevice(QString path, Sync sync = Sync::Now);
    ~SaveDevice() override;

    /// Asked by commit() about the file itself, behind all links, in the moment before it is
    /// replaced; false lets commit() fail.
    void setMayReplace(std::function<bool(const QString &path)> mayReplace)
    {
        m_mayReplace = std::move(mayReplace);
    }

    /// Write-only. Fails, with an errorString(), where the file can't be replaced.
    bool open(OpenMode mode) override;
    /// Ends writing and keeps what was written for commit().
    void close() override;
    /// Puts what was written in the file's place; false, with an errorString(), when any step since
    /// open() failed: the old file is then untouched.
    bool commit();

    /// True once a step failed.
    bool hasFailed() const { return m_failed; }
    /// The errorString(), which is for the log, in the user's language.
    const QString &problem() const { return m_problem; }

    qint64 size() const override { return m_file.isOpen() ? m_file.size() : 0; }
    bool seek(qint64 position) override;

protected:
    enum class Step { Nameless, Lock, Open, KeepMode, Write, Sync, Move };
    /// Asked before every step on the disk; a test answers false to let that step fail. Without
    /// Nameless the file has a name from the start, as on file systems that know no other; without
    /// Lock it is not locked, as on those that keep no locks.
    virtual bool allows(Step) { return true; }

    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *data, qint64 length) override;

private:
    bool fail(const char *what, const QString &detail = {});
    bool failBySystem(const char *what);
    bool findTarget();
    bool openNameless();
    bool openNamed();
    bool openUnlocked();
    bool openNew(const QString &name);
    KernelLock lockNew();
    bool keepMode();
    bool syncToDisk();
    bool moveIntoPlace();
    bool moveNamed();
    bool moveNameless();
    bool moveCopy(int error);
    void discard();

    QString m_path;
    Sync m_sync;
    QString m_target;    ///< the file itself, behind all links
    QString m_temporary; ///< what the new file is called until it is moved; empty: it has no name
    QFile m_file;
    QString m_problem;
    std::function<bool(const QString &)> m_mayReplace;
    bool m_keepsLocks = true;
    bool m_failed = false;
};

/// Waits until all that was saved in @p folders with SaveDevice::Sync::Later is on its disk, once a
/// file system. False when one of them fails.
[[nodiscard]] bool syncFolders(const QStringList &folders);
