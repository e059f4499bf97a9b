#include "base/GFileName.h"

#include <QDir>
#include <QFileInfo>

GFileName::GFileName(const QString &path)
    : m_path(path.isEmpty() ? QString() : QDir::cleanPath(QFileInfo(path).absoluteFilePath()))
{
}

GFileName GFileName::fromRelative(const QString &text, const QString &folder)
{
    return text.isEmpty() ? GFileName() : GFileName(QDir(folder).absoluteFilePath(text));
}

QString GFileName::fileName() const
{
    return QFileInfo(m_path).fileName();
}

QString GFileName::canonicalPath() const
{
    QString path = m_path;
    // A link may lead to a file that is still to be made; as far as the system follows links.
    constexpr int mostLinks = 40;
    for (int link = 0; link < mostLinks && !QFileInfo::exists(path); ++link) {
        const QString target = QFileInfo(path).symLinkTarget();
        if (target.isEmpty())
            break;
        path = QDir::cleanPath(target);
    }
    QString canonical = QFileInfo(path).canonicalFilePath();
    if (!canonical.isEmpty() || path.isEmpty())
        return canonical;
    // So may a folder of it.
    const QFileInfo file(path);
    return QDir(GFileName(file.path()).canonicalPath()).filePath(file.fileName());
}

QString GFileName::canonicalFolder() const
{
    return QFileInfo(canonicalPath()).path();
}

QString GFileName::relativeTo(const QString &folder) const
{
    if (isEmpty())
        return {};
    const QDir base(folder);
    QString relative = base.relativeFilePath(m_path);
    if (relative.startsWith(QLatin1String(".."))) {
        const QString canonicalFolder = QFileInfo(QFileInfo(m_path).path()).canonicalFilePath();
        const QString inside = base.relativeFilePath(QDir(canonicalFolder).filePath(fileName()));
        if (!canonicalFolder.isEmpty() && !inside.startsWith(QLatin1String("..")))
            relative = inside;
    }
    const bool isFolder = relative.isEmpty() || relative == QLatin1String(".");
    return isFolder ? QStringLiteral("./") : relative;
}
