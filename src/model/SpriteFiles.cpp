#include "model/SpriteFiles.h"

#include "base/PlainText.h"
#include "imaging/NaturalOrder.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <dirent.h>
#include <sys/stat.h>
#endif

namespace {
#ifdef Q_OS_UNIX
// Some file systems leave the type unknown.
bool isFolder(DIR *listing, const dirent &entry)
{
    if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK)
        return entry.d_type == DT_DIR;
    struct stat status = {};
    return fstatat(dirfd(listing), entry.d_name, &status, 0) == 0 && S_ISDIR(status.st_mode);
}

bool isImageOrFolder(DIR *listing, const dirent &entry)
{
    const QByteArray lower = QByteArray(entry.d_name).toLower();
    return isFolder(listing, entry) || lower.endsWith(".png") || lower.endsWith(".jpg") ||
           lower.endsWith(".jpeg");
}

// The toolkit passes over names that it can't decode, without a word.
QList<QByteArray> namesWithoutText(const QString &folder)
{
    QList<QByteArray> names;
    DIR *listing = opendir(QFile::encodeName(folder).constData());
    if (!listing)
        return names;
    while (const dirent *entry = readdir(listing)) {
        const QByteArray name = entry->d_name;
        if (QFile::encodeName(QFile::decodeName(name)) != name && isImageOrFolder(listing, *entry))
            names.append(name);
    }
    closedir(listing);
    std::sort(names.begin(), names.end());
    return names;
}
#else
QList<QByteArray> namesWithoutText(const QString & /*folder*/)
{
    return {};
}
#endif

class FolderWalk
{
public:
    FolderWalk(const QString &suffix, SpriteFiles &result)
        : m_suffix(suffix)
        , m_result(result)
    {
    }

    void addFolder(const QString &path)
    {
        // Links may lead back to a folder that was listed before.
        const QString canonical = QFileInfo(path).canonicalFilePath();
        if (m_seen.contains(canonical))
            return;
        m_seen.insert(canonical);
        const QDir folder(path);
        if (!folder.isReadable()) {
            m_result.unreadable.append(path);
            return;
        }
        addFiles(folder);
        for (const QByteArray &name : namesWithoutText(path))
            m_result.unreadable.append(folder.filePath(shownBytes(name)));
        for (const QString &name :
             inNaturalOrder(folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot)))
            addFolder(folder.filePath(name));
    }

private:
    void addFiles(const QDir &folder)
    {
        const QStringList patterns{
            QStringLiteral("*.png"), QStringLiteral("*.jpg"), QStringLiteral("*.jpeg")};
        const QStringList names = inNaturalOrder(folder.entryList(patterns, QDir::Files));
        // Links to nothing, and pipes.
        for (const QString &name : inNaturalOrder(folder.entryList(patterns, QDir::System)))
            m_result.unreadable.append(folder.filePath(name));
        QSet<QString> normalMaps;
        for (const QString &name : names)
            normalMaps.insert(normalMapFileName(name, m_suffix));
        for (const QString &name : names) {
            auto &list = normalMaps.contains(name) ? m_result.skipped : m_result.files;
            list.append(folder.filePath(name));
        }
    }

    QString m_suffix;
    SpriteFiles &m_result;
    QSet<QString> m_seen;
};
} // namespace

SpriteFiles findSpriteFiles(const QStringList &paths, const QString &suffix)
{
    SpriteFiles result;
    FolderWalk walk(suffix, result);
    for (const QString &path : paths) {
        const QFileInfo info(path);
        if (info.isDir())
            walk.addFolder(info.absoluteFilePath());
        else
            result.files.append(info.absoluteFilePath());
    }
    return result;
}

QString normalMapFileName(const QString &fileName, const QString &suffix)
{
    const QFileInfo info(fileName);
    const QString name = info.completeBaseName() + suffix;
    return info.suffix().isEmpty() ? name : name + QLatin1Char('.') + info.suffix();
}
