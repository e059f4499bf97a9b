#include "model/KernelLock.h"

#include <QFile>
#include <QList>

#include <cerrno>
#include <csignal>
#include <limits>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
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

// One that isn't the named file any more by the time that it is locked was moved away by its
// holder.
void removeIfFree(const QString &path)
{
#ifdef Q_OS_UNIX
    const QByteArray name = QFile::encodeName(path);
    const int handle = open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
    if (handle < 0)
        return;
    if (lockHandle(handle) == KernelLock::Taken && isSameFile(handle, path))
        unlink(name.constData());
    close(handle);
#else
    QFile::remove(path); // fails while it is in use
#endif
}

QString processStart(qint64 process)
{
    constexpr int startField = 19;
    return QString::fromLatin1(statusFields(process).value(startField));
}

bool isRunning(qint64 process, const QString &start)
{
    // Numbers of files, which may hold anything; the system's calls cut or misread others.
    if (process < 1 || process > std::numeric_limits<int>::max())
        return false;
    const auto fields = statusFields(process);
    if (!fields.isEmpty()) {
        const bool isDead = fields[0] == "Z" || fields[0] == "X";
        return !isDead && (start.isEmpty() || start == processStart(process));
    }
#ifdef Q_OS_UNIX
    return kill(pid_t(process), 0) == 0 || errno == EPERM;
#else
    return true;
#endif
}
