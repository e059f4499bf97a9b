#include "model/NamelessFile.h"

#include <QFile>

#include <cerrno>
#include <csignal>

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

// What the process of its own does; its exit status is the error's number.
[[noreturn]] void linkAndMoveHere(const char *handle, const char *name, const char *target)
{
    if (linkat(AT_FDCWD, handle, AT_FDCWD, name, AT_SYMLINK_FOLLOW) != 0)
        _exit(errno);
    if (rename(name, target) == 0)
        _exit(0);
    const int error = errno;
    unlink(name);
    _exit(error);
}

// Returns the error's number, 0 for none. The program's memory isn't copied for the new process
// but lent to it, so it does nothing but its calls, and no signal handler may run there.
int linkAndMove(const QByteArray &handle, const QByteArray &name, const QByteArray &target)
{
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t process = vfork();
    if (process == 0)
        linkAndMoveHere(handle.constData(), name.constData(), target.constData());
    const int startError = errno;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (process < 0)
        return startError;
    int status = 0;
    while (waitpid(process, &status, 0) < 0) {
        if (errno != EINTR)
            return errno;
    }
    if (WIFEXITED(status))
        return WEXITSTATUS(status);
    unlink(name.constData());
    return EIO;
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
    return linkAndMove(pathOf(handle), QFile::encodeName(name), QFile::encodeName(target));
}

#endif
