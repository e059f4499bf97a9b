#include "imaging/Patterns.h"

#include "imaging/NaturalOrder.h"

#include <QDir>

QStringList findPatterns(const QStringList &folders)
{
    const QStringList pictures{
        QStringLiteral("*.jpeg"), QStringLiteral("*.jpg"), QStringLiteral("*.png")};
    QStringList found;
    for (const QString &path : folders) {
        if (path.isEmpty())
            continue; // it would mean the working directory
        const QDir folder(path);
        for (const QString &name : inNaturalOrder(folder.entryList(pictures, QDir::Files)))
            found.append(folder.filePath(name));
    }
    return found;
}

QString builtInPatterns()
{
    return QStringLiteral(":/patterns/images");
}
