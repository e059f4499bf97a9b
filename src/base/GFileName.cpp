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
    QString canonical = QFileInfo(m_path).canonicalFilePath();
    if (!canonical.isEmpty() || m_path.isEmpty())
        return canonical;
    // The file is still to be made, perhaps with folders: what is there may stand behind a link.
    const GFileName folder(QFileInfo(m_path).path());
    return QDir(folder.canonicalPath()).filePath(fileName());
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
