#include "model/SaveDevice.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFileInfo>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <set>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#ifdef Q_OS_UNIX
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>
#else
#include <io.h>
#endif

// Why not QSaveFile: it commits after a short write, ignores a failed flush, aborts the program
// when an archive writer closes it, and a kill leaves its randomly named file behind for good.
//
// Where the file system allows (O_TMPFILE), the new file has no name while it is written, so that a
// kill leaves nothing. No call replaces a file by a nameless one: it has to be named and then
// moved. A process of its own does these two steps and outlives a kill of the program between them.
// On other file systems a kill leaves one file of a fixed name, which the next save removes. A
// saver locks its file all along: that tells a file left behind from one that another program is
// saving right now; the next saver then takes the next name.

namespace {

constexpr int mostSavers = 8;
constexpr int mostLinks = 40;

QString temporaryName(const QString &target, int number)
{
    const QFileInfo info(target);
    QString name = info.fileName();
    // The file system ends names at 255 bytes.
    if (QFile::encodeName(name).size() > 230)
        name = QString::fromLatin1(
            QCryptographicHash::hash(QFile::encodeName(name), QCryptographicHash::Md5).toHex());
    const QString suffix = number == 0 ? QString() : QString::number(number);
    return QStringLiteral("%1/.%2.saving%3").arg(info.path(), name, suffix);
}

#ifdef Q_OS_UNIX

bool isSameFile(int handle, const QByteArray &path)
{
    struct stat opened
    {
    };
    struct stat named
    {
    };
    return fstat(handle, &opened) == 0 && lstat(path.constData(), &named) == 0 &&
           opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

// Takes the lock that tells other savers that the file is in use.
bool lockFile(int handle)
{
    return flock(handle, LOCK_EX | LOCK_NB) == 0;
}

// Removes the file that a killed saver left. One that is locked is in use; one that isn't the named
// file any more by the time that it is locked was moved away by its saver.
void removeAbandoned(const QString &name)
{
    const QByteArray path = QFile::encodeName(name);
    const int handle = open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
    if (handle < 0)
        return;
    if (lockFile(handle) && isSameFile(handle, path))
        unlink(path.constData());
    close(handle);
}

// Best effort: a power failure before it happened brings back the old file, whole.
void syncFolderEntry(const QString &folder)
{
    const int handle =
        open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    if (fsync(handle) != 0)
        qWarning("The folder's entry could not be synced: %s", strerror(errno));
    close(handle);
}

#ifdef O_TMPFILE

int linkAt(const QByteArray &handle, const QByteArray &name)
{
    const int result =
        linkat(AT_FDCWD, handle.constData(), AT_FDCWD, name.constData(), AT_SYMLINK_FOLLOW);
    return result == 0 ? 0 : errno;
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
    return WIFEXITED(status) ? WEXITSTATUS(status) : EIO;
}

#endif

#else

// A file in use can't be removed on these systems.
void removeAbandoned(const QString &name)
{
    QFile::remove(name);
}

bool lockFile(int)
{
    return true;
}

bool isSameFile(int, const QByteArray &)
{
    return true;
}

void syncFolderEntry(const QString &) {}

#endif

} // namespace

SaveDevice::SaveDevice(QString path, Sync sync)
    : m_path(std::move(path))
    , m_sync(sync)
{
}

SaveDevice::~SaveDevice()
{
    discard();
}

bool SaveDevice::fail(const char *what, const QString &detail)
{
    const QString end = detail.isEmpty() ? QString() : QStringLiteral(": ") + detail;
    m_failed = true;
    m_problem = QCoreApplication::translate("SaveDevice", what) + end;
    setErrorString(QLatin1String(what) + end);
    return false;
}

bool SaveDevice::failBySystem(const char *what)
{
    return fail(what, qt_error_string(errno));
}

bool SaveDevice::open(OpenMode mode)
{
    if (isOpen() || m_file.isOpen() || (mode & ReadOnly) || !(mode & WriteOnly))
        return fail(QT_TRANSLATE_NOOP("SaveDevice", "only to be opened once and for writing"));
    if (!findTarget())
        return false;
    for (int number = 0; number < mostSavers; ++number)
        removeAbandoned(temporaryName(m_target, number));
    if (!allows(Step::Open) || (!openNameless() && !openNamed()))
        return fail(QT_TRANSLATE_NOOP("SaveDevice", "no new file can be made in the folder"));
    if (!keepMode()) {
        discard();
        return failBySystem(QT_TRANSLATE_NOOP("SaveDevice", "the file's mode can't be kept"));
    }
    m_failed = false;
    return QIODevice::open(WriteOnly | Unbuffered);
}

bool SaveDevice::findTarget()
{
    QFileInfo info(m_path);
    // Step by step, since the last link may lead to a file that is still to be made.
    for (int links = 0; info.isSymLink(); ++links) {
        if (links == mostLinks)
            return fail(QT_TRANSLATE_NOOP("SaveDevice", "too many links"));
        info = QFileInfo(info.symLinkTarget());
    }
    m_target = info.absoluteFilePath();
    if (info.fileName().isEmpty() || (info.exists() && !info.isFile()))
        return fail(QT_TRANSLATE_NOOP("SaveDevice", "not a file"));
    if (info.exists() && !info.isWritable())
        return fail(QT_TRANSLATE_NOOP("SaveDevice", "the file is write-protected"));
    return true;
}

bool SaveDevice::openNameless()
{
#ifdef O_TMPFILE
    // Naming the file later on goes through this folder.
    if (!allows(Step::Nameless) || access("/proc/self/fd", X_OK) != 0)
        return false;
    const QByteArray folder = QFile::encodeName(QFileInfo(m_target).path());
    const int handle = ::open(folder.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    if (handle < 0)
        return false;
    lockFile(handle);
    m_temporary.clear();
    return m_file.open(handle, WriteOnly | Unbuffered, QFile::AutoCloseHandle);
#else
    return false;
#endif
}

bool SaveDevice::openNamed()
{
    for (int number = 0; number < mostSavers; ++number) {
        const QString name = temporaryName(m_target, number);
        m_file.setFileName(name);
        if (!m_file.open(WriteOnly | NewOnly | Unbuffered))
            continue;
        // Another saver may have taken the file for an abandoned one before it was locked.
        if (lockFile(m_file.handle()) && isSameFile(m_file.handle(), QFile::encodeName(name))) {
            m_temporary = name;
            return true;
        }
        m_file.close();
    }
    return false;
}

bool SaveDevice::keepMode()
{
    if (!allows(Step::KeepMode))
        return false;
#ifdef Q_OS_UNIX
    struct stat old
    {
    };
    if (stat(QFile::encodeName(m_target).constData(), &old) == 0)
        return fchmod(m_file.handle(), old.st_mode & 07777U) == 0;
#endif
    return true;
}

bool SaveDevice::seek(qint64 position)
{
    return QIODevice::seek(position) && m_file.seek(position);
}

// What writes through this device, the archive writer above all, may ignore the answer: a failure
// is remembered for commit().
qint64 SaveDevice::writeData(const char *data, qint64 length)
{
    if (m_failed)
        return -1;
    const qint64 written = allows(Step::Write) ? m_file.write(data, length) : -1;
    if (written == length)
        return length;
    if (written < 0)
        fail(QT_TRANSLATE_NOOP("SaveDevice", "the file can't be written"), m_file.errorString());
    else
        fail(QT_TRANSLATE_NOOP("SaveDevice", "the disk is full"));
    return -1;
}

void SaveDevice::close()
{
    // Only this device is closed: the file waits for commit().
    if (isOpen()) {
        const QString error = errorString();
        QIODevice::close();
        setErrorString(error);
    }
}

bool SaveDevice::commit()
{
    close();
    if (!m_file.isOpen()) {
        if (!m_failed)
            fail(QT_TRANSLATE_NOOP("SaveDevice", "nothing was opened"));
        return false;
    }
    const bool done = !m_failed && syncToDisk() && moveIntoPlace();
    discard();
    if (done && m_sync == Sync::Now)
        syncFolderEntry(QFileInfo(m_target).path());
    return done;
}

bool SaveDevice::syncToDisk()
{
    if (!allows(Step::Sync) || !m_file.flush())
        return failBySystem(QT_TRANSLATE_NOOP("SaveDevice", "the file can't be flushed"));
    if (m_sync == Sync::Later)
        return true;
#ifdef Q_OS_UNIX
    const int result = fsync(m_file.handle());
#else
    const int result = _commit(m_file.handle());
#endif
    return result == 0 || failBySystem(QT_TRANSLATE_NOOP("SaveDevice", "the file can't be synced"));
}

bool SaveDevice::moveIntoPlace()
{
    if (!allows(Step::Move))
        return failBySystem(QT_TRANSLATE_NOOP("SaveDevice", "the new file can't be moved"));
    if (m_temporary.isEmpty())
        return moveNameless();
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(m_temporary).toStdString(),
                            QFile::encodeName(m_target).toStdString(),
                            error);
    if (error)
        return fail(QT_TRANSLATE_NOOP("SaveDevice", "the new file can't be moved"),
                    QString::fromStdString(error.message()));
    m_temporary.clear();
    return true;
}

bool SaveDevice::moveNameless()
{
#ifdef O_TMPFILE
    const QByteArray handle = "/proc/self/fd/" + QByteArray::number(m_file.handle());
    const QByteArray target = QFile::encodeName(m_target);
    errno = linkAt(handle, target);
    for (int number = 0; errno == EEXIST && number < mostSavers; ++number) {
        const QString name = temporaryName(m_target, number);
        removeAbandoned(name);
        errno = linkAndMove(handle, QFile::encodeName(name), target);
    }
    if (errno == 0)
        return true;
#endif
    return failBySystem(QT_TRANSLATE_NOOP("SaveDevice", "the new file can't be moved"));
}

void SaveDevice::discard()
{
    // The name goes first, as long as the lock holds.
    if (!m_temporary.isEmpty())
        QFile::remove(m_temporary);
    m_temporary.clear();
    m_file.close();
}

bool syncFolders(const QStringList &folders)
{
    bool done = true;
#ifdef Q_OS_LINUX
    std::set<dev_t> synced;
    for (const QString &folder : folders) {
        const int handle =
            ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        struct stat info
        {
        };
        const bool isOpen = handle >= 0 && fstat(handle, &info) == 0;
        if (isOpen && synced.insert(info.st_dev).second)
            done = syncfs(handle) == 0 && done;
        done = done && isOpen;
        if (handle >= 0)
            ::close(handle);
    }
#else
    Q_UNUSED(folders)
#endif
    return done;
}
