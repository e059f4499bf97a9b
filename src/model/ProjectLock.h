#pragma once

#include "model/FileLock.h"

#include <QCoreApplication>
#include <QString>

/// Keeps a project file to one writer by a lock file beside it. Owned by whoever works on the
/// project; given up when it goes.
class ProjectLock
{
    Q_DECLARE_TR_FUNCTIONS(ProjectLock)

public:
    /// Tries to take the project @p fileName, at once. Where no lock file can be made, as in a
    /// folder that is read-only, nobody is kept out.
    explicit ProjectLock(const QString &fileName);

    /// True when this one may write the project: nobody else has it.
    bool mayWrite() const { return m_mayWrite; }
    /// False where the file system keeps no locks, so that two programs may both come to write.
    bool isKept() const { return m_lock.isKept(); }
    /// Who else has it and by which lock file, in words, such as "vesperine (process 4711) of anna
    /// on atelier (lock file '/work/.p.vep.lock')"; empty when this one may write. A holder on
    /// another computer can't be seen to be dead: the words tell how to end its lock.
    QString otherHolder() const;
    /// True when it is the lock of @p fileName, whichever links lead there.
    bool isOf(const QString &fileName) const;

private:
    static QString lockPath(const QString &fileName);

    FileLock m_lock;
    bool m_mayWrite = true;
};
