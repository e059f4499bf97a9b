#include "model/FileLock.h"

#include "model/KernelLock.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSysInfo>
#include <QThread>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

// Why not QLockFile: it lets the text in the file decide, and a kill leaves a file without text,
// which then keeps everybody out.
//
// Here the kernel decides: a holder keeps the file open under the kernel's lock, which ends with
// it. Two that find an abandoned file both ask the kernel, and one gets it. Who gives the lock up
// removes the file first, so whoever gets the lock checks that its file is still the one of this
// name. The text counts in two cases. One that names another computer holds a project: a network
// drive may not pass locks on, and a synchronised folder never does. And where the file system
// keeps no locks, one that names a running process of this computer holds; two that take over an
// abandoned file within the same moment may then both succeed, and FileStamp keeps the second save
// from replacing the first. The text is in the order of QLockFile, which older versions read.

namespace {
QString ownProgram()
{
    return QFileInfo(QCoreApplication::applicationFilePath()).fileName();
}

QByteArray ownText()
{
    const qint64 process = QCoreApplication::applicationPid();
    return QByteArray::number(process) + '\n' + ownProgram().toUtf8() + '\n' +
           QSysInfo::machineHostName().toUtf8() + '\n' + QSysInfo::machineUniqueId() + '\n' +
           QSysInfo::bootUniqueId() + '\n' + processStart(process).toLatin1() + '\n';
}

std::optional<FileLock::Holder> holderIn(const QByteArray &text)
{
    const auto lines = text.split('\n');
    bool isNumber = false;
    FileLock::Holder holder;
    holder.process = lines[0].toLongLong(&isNumber);
    // The third line is whole once another one follows.
    if (!isNumber || lines.size() < 4 || lines[1].isEmpty() || lines[2].isEmpty())
        return {};
    holder.program = QString::fromUtf8(lines[1]);
    holder.host = QString::fromUtf8(lines[2]);
    holder.start = QString::fromLatin1(lines.value(5));
    const QByteArray machine = QSysInfo::machineUniqueId();
    const bool isRenamed = !machine.isEmpty() && lines[3] == machine;
    holder.isElsewhere = holder.host != QSysInfo::machineHostName() && !isRenamed;
    return holder;
}

QByteArray startOf(QFile &file)
{
    constexpr int longestText = 4096;
    return file.read(longestText);
}
} // namespace

FileLock::FileLock(QString path, Rule rule)
    : m_path(std::move(path))
    , m_rule(rule)
{
}

FileLock::~FileLock()
{
    release();
}

std::optional<FileLock::Holder> FileLock::holder() const
{
    QFile file(m_path);
    if (!QFileInfo(m_path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    return holderIn(startOf(file));
}

#ifdef Q_OS_UNIX

namespace {
bool mayLive(const std::optional<FileLock::Holder> &holder)
{
    return holder && (holder->isElsewhere || isRunning(holder->process, holder->start));
}

// Without write access when the file is another user's.
int openLockFile(const QByteArray &path)
{
    const int flags = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    int handle = open(path.constData(), O_RDWR | O_CREAT | flags, 0666);
    if (handle < 0 && (errno == EACCES || errno == EPERM))
        handle = open(path.constData(), O_RDONLY | flags);
    struct stat info = {};
    if (handle >= 0 && (fstat(handle, &info) != 0 || !S_ISREG(info.st_mode))) {
        close(handle);
        errno = EEXIST;
        return -1;
    }
    return handle;
}

// True when openLockFile() failed with @p error because nobody can have a lock file there. A file
// that is there but can't be opened may be the lock of another user, who holds it.
bool canNotBeMade(const QByteArray &path, int error)
{
    if (error == EROFS)
        return true;
    const auto means = {ENOENT, ENOTDIR, ENAMETOOLONG, EPERM, EACCES, ENOSPC, EDQUOT};
    struct stat info = {};
    return std::find(means.begin(), means.end(), error) != means.end() &&
           lstat(path.constData(), &info) != 0;
}

// The text is for all who want the lock, whatever the mask of its holder; it lets nobody take it.
void letOthersRead(int handle)
{
    constexpr mode_t readable = 0444;
    struct stat info = {};
    if (fstat(handle, &info) == 0 && (info.st_mode & readable) != readable &&
        fchmod(handle, (info.st_mode | readable) & 07777U) != 0)
        qWarning("Others can't read the lock file: %s", strerror(errno));
}

std::optional<FileLock::Holder> holderIn(int handle)
{
    QFile file;
    if (!file.open(handle, QIODevice::ReadOnly, QFile::DontCloseHandle))
        return {};
    return holderIn(startOf(file));
}

bool isReadOnly(int handle)
{
    return (fcntl(handle, F_GETFL) & O_ACCMODE) == O_RDONLY;
}

// Other computers see it once it has reached the disk.
bool writeText(int handle, const QByteArray &text)
{
    return pwrite(handle, text.constData(), size_t(text.size()), 0) == text.size() &&
           ftruncate(handle, text.size()) == 0 && fsync(handle) == 0;
}

void removeIfSame(int handle, const QString &path)
{
    if (isSameFile(handle, path))
        unlink(QFile::encodeName(path).constData());
}
} // namespace

FileLock::Taking FileLock::take()
{
    // One that was given up or abandoned at this moment is waited for, at most half a second.
    constexpr int attempts = 50;
    for (int i = 0; i < attempts; ++i) {
        if (const auto taking = tryToTake())
            return *taking;
    }
    return Taking::Held;
}

// Nothing when it may turn out otherwise the next time.
std::optional<FileLock::Taking> FileLock::tryToTake()
{
    const QByteArray path = QFile::encodeName(m_path);
    const int handle = openLockFile(path);
    if (handle < 0)
        return canNotBeMade(path, errno) ? Taking::Impossible : Taking::Held;
    const auto taking = takeFile(handle);
    if (taking == Taking::Done)
        m_handle = handle;
    else
        close(handle);
    return taking;
}

std::optional<FileLock::Taking> FileLock::takeFile(int handle)
{
    constexpr int pause = 10; // milliseconds
    const KernelLock lock = lockHandle(handle);
    if (!isSameFile(handle, m_path))
        return {};
    const auto holder = ::holderIn(handle);
    if (lock == KernelLock::InUse) {
        if (m_rule == Rule::Kernel || mayLive(holder))
            return Taking::Held;
        QThread::msleep(pause);
        return {};
    }
    const bool isKept = lock == KernelLock::Taken;
    m_isKept = isKept;
    const bool isElsewhere = m_rule == Rule::Text && holder && holder->isElsewhere;
    if (isElsewhere || (!isKept && mayLive(holder)))
        return Taking::Held;
    if (isReadOnly(handle)) {
        removeIfSame(handle, m_path);
        if (!isSameFile(handle, m_path))
            return {};
        return isKept ? Taking::Done : Taking::Impossible;
    }
    letOthersRead(handle);
    const QByteArray text = ownText();
    const bool isWritten = writeText(handle, text);
    // A lock of the kernel holds without a text too, on a full disk.
    if (isKept) {
        removeIfFree(m_path + QStringLiteral(".rmlock")); // which older versions may have left
        return Taking::Done;
    }
    QFile file(m_path);
    if (isWritten && file.open(QIODevice::ReadOnly))
        return startOf(file) == text ? Taking::Done : Taking::Held;
    removeIfSame(handle, m_path);
    return Taking::Impossible;
}

bool FileLock::isTaken() const
{
    return m_handle >= 0;
}

void FileLock::release()
{
    if (m_handle < 0)
        return;
    removeIfSame(m_handle, m_path);
    close(std::exchange(m_handle, -1));
}

#else

// On these systems a file in use can't be removed, so that one that can be has no holder.
FileLock::Taking FileLock::take()
{
    m_lock = std::make_unique<QLockFile>(m_path);
    m_lock->setStaleLockTime(0);
    if (m_lock->tryLock(0) || (m_lock->error() == QLockFile::LockFailedError &&
                               m_lock->removeStaleLockFile() && m_lock->tryLock(0)))
        return Taking::Done;
    return m_lock->error() == QLockFile::LockFailedError ? Taking::Held : Taking::Impossible;
}

bool FileLock::isTaken() const
{
    return m_lock && m_lock->isLocked();
}

void FileLock::release()
{
    m_lock.reset();
}

#endif
