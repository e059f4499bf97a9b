#include "model/FileStamp.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_LINUX
#include <sys/stat.h>
#endif

FileStamp stampOf(const QString &path)
{
#ifdef Q_OS_LINUX
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    constexpr qint64 second = 1000000000;
    return {status.st_size, status.st_mtim.tv_sec * second + status.st_mtim.tv_nsec, status.st_ino};
#else
    const QFileInfo file(path);
    if (!file.exists())
        return {};
    constexpr qint64 millisecond = 1000000;
    return {file.size(), file.lastModified().toMSecsSinceEpoch() * millisecond, 0};
#endif
}
