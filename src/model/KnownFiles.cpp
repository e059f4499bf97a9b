#include "model/KnownFiles.h"

#include "base/GFileName.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {
// Device and number, empty where there is nothing.
QString systemKey(const QString &path)
{
#ifdef Q_OS_UNIX
    struct stat status = {};
    if (stat(QFile::encodeName(path).constData(), &status) == 0)
        return QStringLiteral("%1:%2").arg(status.st_dev).arg(status.st_ino);
#else
    Q_UNUSED(path)
#endif
    return {};
}

// One for each way to tell the file's place; the one by its folder holds for a file that is still
// to be made, or that another program replaces.
QStringList placeKeys(const QString &canonicalPath)
{
    const QFileInfo file(canonicalPath);
    QStringList keys{canonicalPath};
    const QString folder = systemKey(file.path());
    if (!folder.isEmpty())
        keys.append(folder + QLatin1Char('/') + file.fileName());
    return keys;
}

QStringList allKeys(const QString &path)
{
    const QString canonical = GFileName(path).canonicalPath();
    QStringList keys = placeKeys(canonical);
    const QString file = systemKey(canonical);
    if (!file.isEmpty())
        keys.append(file);
    return keys;
}
} // namespace

void KnownFiles::add(const QString &path)
{
    for (const QString &key : allKeys(path))
        m_keys.insert(key);
}

void KnownFiles::addPlace(const QString &path)
{
    for (const QString &key : placeKeys(GFileName(path).canonicalPath()))
        m_keys.insert(key);
}

bool KnownFiles::contains(const QString &path) const
{
    const auto keys = allKeys(path);
    return std::any_of(
        keys.begin(), keys.end(), [this](const QString &key) { return m_keys.contains(key); });
}
