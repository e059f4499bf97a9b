#include "model/SaveNames.h"

#include "model/KernelLock.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QMutex>
#include <QSysInfo>

namespace {
QString savingEnd()
{
    return QStringLiteral(".saving");
}

QString savingStart(const QString &target)
{
    constexpr int longestName = 150; // the file system ends names at 255 bytes
    QString name = QFileInfo(target).fileName();
    if (QFile::encodeName(name).size() > longestName)
        name = QString::fromLatin1(
            QCryptographicHash::hash(QFile::encodeName(name), QCryptographicHash::Md5).toHex());
    return QLatin1Char('.') + name + savingEnd();
}

QString inFolderOf(const QString &target, const QString &name)
{
    return QFileInfo(target).path() + QLatin1Char('/') + name;
}

QString hostPart()
{
    return QStringLiteral("-%1-").arg(QSysInfo::machineHostName().left(64));
}

// Whether @p owner, what savingNameOfThisProcess() ends with, is a process that runs no more.
bool isGone(const QString &owner)
{
    const QStringList parts = owner.split(QLatin1Char('-'));
    bool isNumber = false;
    const qint64 process = parts[0].toLongLong(&isNumber);
    return isNumber && parts.size() == 2 && !isRunning(process, parts[1]);
}

// The files of savers that are there, or were a moment ago: a folder of many files isn't listed
// again for each of many that are saved there. Savers may be on several threads.
QStringList unlockedNamesIn(const QString &folder)
{
    struct Listing
    {
        QElapsedTimer age;
        QStringList names;
    };
    constexpr qint64 oldest = 10000; // milliseconds
    static QMutex mutex;
    static QHash<QString, Listing> listings;
    const QMutexLocker locker(&mutex);
    Listing &listing = listings[folder];
    if (!listing.age.isValid() || listing.age.hasExpired(oldest)) {
        const QStringList pattern(QStringLiteral(".*%1-*").arg(savingEnd()));
        listing.names = QDir(folder).entryList(pattern, QDir::Files | QDir::Hidden, QDir::Unsorted);
        listing.age.start();
    }
    return listing.names;
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
        removeIfFree(savingName(target, number));
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
    // Without locks these are soon given up.
    for (int number = 0; number < mostSavers; ++number)
        QFile::remove(savingName(target, number));
    const QString folder = QFileInfo(target).path();
    const QString start = savingStart(target) + hostPart();
    for (const QString &name : unlockedNamesIn(folder)) {
        if (name.startsWith(start) && isGone(name.mid(start.size())))
            QFile::remove(inFolderOf(target, name));
    }
}
