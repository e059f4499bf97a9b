#include "model/LockTaking.h"

#include <QCoreApplication>
#include <QLockFile>
#include <QSysInfo>

namespace {
// In a sandbox, where every run of the program has the same number, a lock file that a dead one
// left seems to be held by the living one.
bool isOfOwnNumber(const QLockFile &lock)
{
    qint64 process = 0;
    QString host;
    QString program;
    return lock.getLockInfo(&process, &host, &program) &&
           process == QCoreApplication::applicationPid() && host == QSysInfo::machineHostName();
}
} // namespace

bool takeLock(QLockFile &lock)
{
    lock.setStaleLockTime(0);
    if (lock.tryLock(0))
        return true;
    // Fails while the file is open in its holder, this program or one in another sandbox.
    return lock.error() == QLockFile::LockFailedError && isOfOwnNumber(lock) &&
           lock.removeStaleLockFile() && lock.tryLock(0);
}
