// Loaded before the C library (LD_PRELOAD): lets calls on the files below one folder fail, or kills
// the program at one of them. Told what to do by the environment:
//   FAULT_FOLDER   calls on other files go through untouched
//   FAULT_ALWAYS   names of calls that always fail: flock, tmpfile, linkat
//   FAULT_AT       the number of the call at which something happens, from 1; 0 for never
//   FAULT_KILLS    set: the program is killed there, else the call fails
//   FAULT_TELLS    a file that gets the name of that call once it is reached
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/syscall.h>
#include <unistd.h>

static int calls;
static pid_t program;

__attribute__((constructor)) static void start(void)
{
    program = getpid();
}

static int concerns(const char *path)
{
    const char *folder = getenv("FAULT_FOLDER");
    return folder && strncmp(path, folder, strlen(folder)) == 0;
}

static int concerns_handle(int handle)
{
    char link[64];
    char path[PATH_MAX + 1] = {0};
    snprintf(link, sizeof link, "/proc/self/fd/%d", handle);
    return readlink(link, path, PATH_MAX) > 0 && concerns(path);
}

static int always_fails(const char *name)
{
    const char *names = getenv("FAULT_ALWAYS");
    return names && strstr(names, name);
}

// Whether this call is to fail.
static int fails(const char *name)
{
    const char *at = getenv("FAULT_AT");
    if (!at || ++calls != atoi(at))
        return 0;
    const char *tells = getenv("FAULT_TELLS");
    const int file = syscall(SYS_openat, AT_FDCWD, tells, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    syscall(SYS_write, file, name, strlen(name));
    syscall(SYS_close, file);
    if (getenv("FAULT_KILLS")) {
        // A process that works for the program dies with it.
        kill(program, SIGKILL);
        kill(getpid(), SIGKILL);
    }
    errno = EIO;
    return 1;
}

#define NEXT(name) ((__typeof__(&name))dlsym(RTLD_NEXT, #name))

static int opening(const char *path, int flags)
{
    const int writes = (flags & O_ACCMODE) != O_RDONLY;
    if (!writes || !concerns(path))
        return 0;
    if ((flags & O_TMPFILE) == O_TMPFILE && always_fails("tmpfile")) {
        errno = EOPNOTSUPP;
        return -1;
    }
    return fails("open") ? -1 : 0;
}

#define OPEN(name)                                                                                 \
    int name(const char *path, int flags, ...)                                                     \
    {                                                                                              \
        va_list rest;                                                                              \
        va_start(rest, flags);                                                                     \
        const int mode = va_arg(rest, int);                                                        \
        va_end(rest);                                                                              \
        return opening(path, flags) < 0 ? -1 : NEXT(name)(path, flags, mode);                      \
    }
OPEN(open)
OPEN(open64)

// A call on a file behind a handle or on a path.
#define ON_HANDLE(result, name, parameters, arguments)                                             \
    result name parameters                                                                         \
    {                                                                                              \
        return concerns_handle(handle) && fails(#name) ? -1 : NEXT(name) arguments;                \
    }
#define ON_PATH(result, name, parameters, arguments)                                               \
    result name parameters                                                                         \
    {                                                                                              \
        return concerns(path) && fails(#name) ? -1 : NEXT(name) arguments;                         \
    }
ON_HANDLE(ssize_t, write, (int handle, const void *data, size_t size), (handle, data, size))
ON_HANDLE(ssize_t,
          pwrite64,
          (int handle, const void *data, size_t size, off64_t place),
          (handle, data, size, place))
ON_HANDLE(ssize_t,
          pwrite,
          (int handle, const void *data, size_t size, off_t place),
          (handle, data, size, place))
ON_HANDLE(int, ftruncate, (int handle, off_t size), (handle, size))
ON_HANDLE(int, ftruncate64, (int handle, off64_t size), (handle, size))
ON_HANDLE(int, fchmod, (int handle, mode_t mode), (handle, mode))
ON_HANDLE(int, fsync, (int handle), (handle))
ON_HANDLE(int, fdatasync, (int handle), (handle))
ON_PATH(int, unlink, (const char *path), (path))
ON_PATH(int, rename, (const char *path, const char *target), (path, target))

int flock(int handle, int operation)
{
    if (!concerns_handle(handle))
        return NEXT(flock)(handle, operation);
    if (always_fails("flock")) {
        errno = ENOLCK;
        return -1;
    }
    return fails("flock") ? -1 : NEXT(flock)(handle, operation);
}

int linkat(int from, const char *source, int to, const char *path, int flags)
{
    if (!concerns(path))
        return NEXT(linkat)(from, source, to, path, flags);
    if (always_fails("linkat")) {
        errno = EPERM;
        return -1;
    }
    return fails("linkat") ? -1 : NEXT(linkat)(from, source, to, path, flags);
}
