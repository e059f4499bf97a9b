#include "model/KernelLock.h"

#include <QFile>
#include <QList>

#include <cerrno>
#include <csignal>

#ifdef Q_OS_UNIX
#include <sys/file.h>
#include <sys/stat.h>
#endif

namespace {
// The state and what follows it, of a process that the system lets us see.
QList<QByteArray> statusFields(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray status = file.readAll();
    // The program's name stands before it in brackets and may hold anything.
    return status.mid(status.lastIndexOf(')') + 2).split(' ');
}
} // namespace

KernelLock lockHandle(int handle)
{
#ifdef Q_OS_UNIX
    int result = 0;
    do
        result = flock(handle, LOCK_EX | LOCK_NB);
    while (result != 0 && errno == EINTR);
    if (result == 0)
        return KernelLock::Taken;
    return errno == EWOULDBLOCK ? KernelLock::InUse : KernelLock::Unsupported;
#else
    Q_UNUSED(handle)
    return KernelLock::Taken; // a file in use can't be removed on these systems
#endif
}

bool isSameFile(int handle, const QString &path)
{
#ifdef Q_OS_UNIX
    struct stat opened = {};
    struct stat named = {};
    return fstat(handle, &opened) == 0 && lstat(QFile::encodeName(path).constData(), &named) == 0 &&
           opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
#else
    Q_UNUSED(handle)
    Q_UNUSED(path)
    return true;
#endif
}

QString processStart(qint64 process)
{
    constexpr int startField = 19;
    return QString::fromLatin1(statusFields(process).value(startField));
}

bool isRunning(qint64 process, const QString &start)
{
    const auto fields = statusFields(process);
    if (!fields.isEmpty()) {
        const bool isDead = fields[0] == "Z" || fields[0] == "X";
        return !isDead && (start.isEmpty() || start == processStart(process));
    }
#ifdef Q_OS_UNIX
    return process > 0 && (kill(pid_t(process), 0) == 0 || errno == EPERM);
#else
    return process > 0;
#endif
}
