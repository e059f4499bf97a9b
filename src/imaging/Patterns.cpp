#include "imaging/Patterns.h"

#include <QCollator>
#include <QDir>

#include <algorithm>

namespace {

void sortNaturally(QStringList &names)
{
    // The plain C locale knows no numbers in names.
    QCollator collator{QLocale(QLocale::English)};
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(names.begin(), names.end(), [&collator](const QString &a, const QString &b) {
        const int order = collator.compare(a, b);
        return order == 0 ? a < b : order < 0;
    });
}

} // namespace

QStringList findPatterns(const QStringList &folders)
{
    const QStringList pictures{
        QStringLiteral("*.jpeg"), QStringLiteral("*.jpg"), QStringLiteral("*.png")};
    QStringList found;
    for (const QString &path : folders) {
        if (path.isEmpty())
            continue; // it would mean the working directory
        const QDir folder(path);
        QStringList names = folder.entryList(pictures, QDir::Files);
        sortNaturally(names);
        for (const QString &name : names)
            found.append(folder.filePath(name));
    }
    return found;
}

QString builtInPatterns()
{
    return QStringLiteral(":/patterns/images");
}
