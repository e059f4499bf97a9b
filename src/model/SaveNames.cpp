#include "model/SaveNames.h"

#include "model/KernelLock.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {
QString savingStart(const QString &target)
{
    constexpr int longestName = 150; // the file system ends names at 255 bytes
    QString name = QFileInfo(target).fileName();
    if (QFile::encodeName(name).size() > longestName)
        name = QString::fromLatin1(
            QCryptographicHash::hash(QFile::encodeName(name), QCryptographicHash::Md5).toHex());
    return QStringLiteral(".%1.saving").arg(name);
}

QString inFolderOf(const QString &target, const QString &name)
{
    return QFileInfo(target).path() + QLatin1Char('/') + name;
}

QString hostPart()
{
    return QStringLiteral("-%1-").arg(QSysInfo::machineHostName().left(64));
}

// One that is locked is in use; one that isn't the named file any more by the time that it is
// locked was moved away by its saver.
void removeUnlocked(const QString &name)
{
#ifdef Q_OS_UNIX
    const QByteArray path = QFile::encodeName(name);
    const int handle = open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
    if (handle < 0)
        return;
    if (lockHandle(handle) == KernelLock::Taken && isSameFile(handle, name))
        unlink(path.constData());
    close(handle);
#else
    QFile::remove(name); // fails while it is in use
#endif
}

// Whether the name that begins with savingStart() and goes on with @p end is one of ours that
// nobody needs any more. On file systems without locks a mere number is soon given up.
bool isAbandoned(const QString &end)
{
    bool isNumber = false;
    end.toInt(&isNumber);
    if (isNumber || end.isEmpty())
        return true;
    const QStringList parts = end.mid(hostPart().size()).split(QLatin1Char('-'));
    return end.startsWith(hostPart()) && parts.size() == 2 &&
           !isRunning(parts[0].toLongLong(), parts[1]);
}
} // namespace

QString savingName(const QString &target, int number)
{
    return inFolderOf(target,
                      savingStart(target) + (number == 0 ? QString() : QString::number(number)));
}

void removeAbandoned(const QString &target)
{
    for (int number = 0; number < mostSavers; ++number)
        removeUnlocked(savingName(target, number));
}

QString savingNameOfThisProcess(const QString &target)
{
    const qint64 process = QCoreApplication::applicationPid();
    return inFolderOf(target,
                      QStringLiteral("%1%2%3-%4")
                          .arg(savingStart(target), hostPart(), QString::number(process))
                          .arg(processStart(process)));
}

void removeUnlockedAbandoned(const QString &target)
{
    QDir folder(QFileInfo(target).path());
    const QString start = savingStart(target);
    for (const QString &name : folder.entryList(QDir::Files | QDir::Hidden)) {
        if (name.startsWith(start) && isAbandoned(name.mid(start.size())))
            folder.remove(name);
    }
}
