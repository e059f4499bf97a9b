#include "model/SaveDevice.h"

#include "model/NamelessFile.h"
#include "model/SaveNames.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <set>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#ifdef Q_OS_UNIX
#include <unistd.h>
#else
#include <io.h>
#endif

// Why not QSaveFile: it commits after a short write, ignores a failed flush, aborts the program
// when an archive writer closes it, and a kill leaves its randomly named file behind for good.
//
// Where the file system allows (O_TMPFILE), the new file has no name while it is written, so that a
// kill leaves nothing, but in the instant of its naming (NamelessFile). On other file systems a
// kill leaves one file of a fixed name. The next save removes what was left. A saver locks its file
// all along: that tells a file left behind from one that another program is saving right now; the
// next saver then takes the next name. Where the file system keeps no locks, the name tells the
// saver's process instead.

namespace {

constexpr int mostLinks = 40;

#ifdef Q_OS_UNIX

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

#else

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
    removeAbandoned(m_target);
    if (!allows(Step::Open) || (!openNameless() && !openNamed() && !openUnlocked()))
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
    // Readable, since it is copied where it can't be named.
    const int handle = ::open(folder.constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0666);
    if (handle < 0 || !m_file.open(handle, WriteOnly | Unbuffered, QFile::AutoCloseHandle))
        return false;
    m_temporary.clear();
    lockNew();
    return true;
#else
    return false;
#endif
}

bool SaveDevice::openNamed()
{
    for (int number = 0; m_keepsLocks && number < mostSavers; ++number) {
        const QString name = savingName(m_target, number);
        if (!openNew(name))
            continue;
        const KernelLock lock = lockNew();
        if (lock == KernelLock::Unsupported)
            discard();
        // Another saver may have taken the file for an abandoned one before it was locked.
        else if (lock == KernelLock::Taken && isSameFile(m_file.handle(), name))
            return true;
        m_temporary.clear();
        m_file.close();
    }
    return false;
}

bool SaveDevice::openUnlocked()
{
    if (m_keepsLocks)
        return false;
    removeUnlockedAbandoned(m_target);
    return openNew(savingNameOfThisProcess(m_target));
}

bool SaveDevice::openNew(const QString &name)
{
    m_file.setFileName(name);
    if (!m_file.open(WriteOnly | NewOnly | Unbuffered))
        return false;
    m_temporary = name;
    return true;
}

KernelLock SaveDevice::lockNew()
{
    const KernelLock lock =
        allows(Step::Lock) ? lockHandle(m_file.handle()) : KernelLock::Unsupported;
    m_keepsLocks = lock != KernelLock::Unsupported;
    static std::atomic_flag isTold;
    if (!m_keepsLocks && !isTold.test_and_set())
        qWarning("'%s' is saved without a lock, which its file system does not keep: don't save it "
                 "in two programs at once",
                 qUtf8Printable(m_target));
    return lock;
}

bool SaveDevice::keepMode()
{
    if (!allows(Step::KeepMode))
        return false;
#ifdef Q_OS_UNIX
    struct stat old
    {
    };
    struct stat present
    {
    };
    // Where all files have one mode it can't be set.
    if (stat(QFile::encodeName(m_target).constData(), &old) == 0 &&
        fstat(m_file.handle(), &present) == 0 && present.st_mode != old.st_mode)
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
    if (m_mayReplace && !m_mayReplace(m_target))
        return fail(QT_TRANSLATE_NOOP("SaveDevice", "the file that is there has to stay"));
    return m_temporary.isEmpty() ? moveNameless() : moveNamed();
}

bool SaveDevice::moveNamed()
{
    std::error_code error;
    // Nobody else's file, where no lock protects this one.
    if (!isSameFile(m_file.handle(), m_temporary))
        error = std::make_error_code(std::errc::no_such_file_or_directory);
    else
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
    int error = nameFile(m_file.handle(), m_target);
    if (error == EEXIST && m_keepsLocks)
        removeAbandoned(m_target);
    else if (error == EEXIST)
        removeUnlockedAbandoned(m_target);
    for (int number = 0; error == EEXIST && number < mostSavers; ++number) {
        const QString name =
            m_keepsLocks ? savingName(m_target, number) : savingNameOfThisProcess(m_target);
        error = nameAndMoveFile(m_file.handle(), name, m_target);
    }
    if (error == 0)
        return true;
    // Other errors, as of a failing disk, would meet a copy as well.
    const auto unnameable = {EPERM, EACCES, EXDEV, ENOENT, ENOSYS, EOPNOTSUPP};
    if (std::find(unnameable.begin(), unnameable.end(), error) != unnameable.end())
        return moveCopy(error);
    return fail(QT_TRANSLATE_NOOP("SaveDevice", "the new file can't be moved"),
                qt_error_string(error));
#else
    return false;
#endif
}

// Where a file without a name can't be given one, for the reason @p error.
bool SaveDevice::moveCopy(int error)
{
#ifdef O_TMPFILE
    QFile nameless;
    const int handle = fcntl(m_file.handle(), F_DUPFD_CLOEXEC, 0);
    const bool isOpen = handle >= 0 && nameless.open(handle, ReadOnly, QFile::AutoCloseHandle);
    m_file.close();
    if (!isOpen || !nameless.seek(0) || (!openNamed() && !openUnlocked()) || !keepMode())
        return fail(QT_TRANSLATE_NOOP("SaveDevice", "the new file can't be moved"),
                    qt_error_string(error));
    while (!nameless.atEnd()) {
        const QByteArray part = nameless.read(1 << 20);
        if (part.isEmpty() || m_file.write(part) != part.size())
            return failBySystem(QT_TRANSLATE_NOOP("SaveDevice", "the file can't be written"));
    }
    return syncToDisk() && moveNamed();
#else
    Q_UNUSED(error)
    return false;
#endif
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
