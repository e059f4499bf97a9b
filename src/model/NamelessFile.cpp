#include "model/NamelessFile.h"

#include "model/KernelLock.h"

#include <QFile>

#include <cerrno>
#include <csignal>
#include <optional>

#include <fcntl.h>
#ifdef O_TMPFILE
#include <sys/wait.h>
#include <unistd.h>
#endif

// No call replaces a file by a nameless one: it has to be named and then moved. A process of its
// own does these two steps and outlives a kill of the program between them.

#ifdef O_TMPFILE

namespace {
QByteArray pathOf(int handle)
{
    return "/proc/self/fd/" + QByteArray::number(handle);
}

// What the process of its own does.
int linkAndMoveHere(const char *handle, const char *name, const char *target)
{
    if (linkat(AT_FDCWD, handle, AT_FDCWD, name, AT_SYMLINK_FOLLOW) != 0)
        return errno;
    if (rename(name, target) == 0)
        return 0;
    const int error = errno;
    unlink(name);
    return error;
}

// Returns the error's number, 0 for none; nothing when it can't be known how the process ended, as
// where the program's ended processes vanish because it was started with SIGCHLD ignored. The
// program's memory isn't copied for the new process but lent to it, so it does nothing but its
// calls, and no signal handler may run there.
std::optional<int>
linkAndMove(const QByteArray &handle, const QByteArray &name, const QByteArray &target)
{
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t process = vfork();
    if (process == 0)
        _exit(linkAndMoveHere(handle.constData(), name.constData(), target.constData()));
    const int startError = errno;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (process < 0)
        return startError;
    int status = 0;
    while (waitpid(process, &status, 0) < 0) {
        if (errno != EINTR)
            return {};
    }
    return WIFEXITED(status) ? std::optional<int>(WEXITSTATUS(status)) : std::nullopt;
}
} // namespace

int nameFile(int handle, const QString &name)
{
    const int result = linkat(AT_FDCWD,
                              pathOf(handle).constData(),
                              AT_FDCWD,
                              QFile::encodeName(name).constData(),
                              AT_SYMLINK_FOLLOW);
    return result == 0 ? 0 : errno;
}

int nameAndMoveFile(int handle, const QString &name, const QString &target)
{
    const QByteArray from = pathOf(handle);
    const QByteArray by = QFile::encodeName(name);
    const QByteArray to = QFile::encodeName(target);
    if (const auto error = linkAndMove(from, by, to))
        return *error;
    if (isSameFile(handle, target))
        return 0;
    // It failed or was killed: this attempt tells why, or succeeds.
    if (isSameFile(handle, name))
        return rename(by.constData(), to.constData()) == 0 ? 0 : errno;
    return linkAndMoveHere(from.constData(), by.constData(), to.constData());
}

#endif
