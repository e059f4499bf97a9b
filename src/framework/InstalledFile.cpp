#include "framework/InstalledFile.h"

#include <QCoreApplication>
#include <QDir>

QString installedFile(const QString &name)
{
    const QDir programs(QCoreApplication::applicationDirPath());
    const QString path =
        QDir::cleanPath(programs.filePath(QStringLiteral("../share/vesperine/") + name));
    return QFile::exists(path) ? path : QString();
}
