#include "cli/PatternChoice.h"

#include "base/Error.h"
#include "base/GSettings.h"
#include "imaging/Patterns.h"
#include "model/ImageReading.h"

#include <QFileInfo>
#include <QSettings>
#include <QStringList>

namespace {
void append(QVector<Pattern> &patterns, const QString &folder, bool isBuiltIn)
{
    for (const QString &file : findPatterns({folder}))
        patterns.append({QFileInfo(file).completeBaseName(), file, isBuiltIn});
}

// The path of a file where no pattern has that name; empty when there is none either.
QString patternFile(const QString &choice)
{
    for (const Pattern &pattern : allPatterns()) {
        if (pattern.name.compare(choice, Qt::CaseInsensitive) == 0 ||
            QFileInfo(pattern.file).fileName() == choice)
            return pattern.file;
    }
    return QFileInfo(choice).isFile() ? choice : QString();
}

[[noreturn]] void refuse(const QString &choice, const QString &option)
{
    QStringList names;
    for (const Pattern &pattern : allPatterns())
        names.append(pattern.name);
    throw Error(
        QStringLiteral("'%1' is no pattern for %2: it takes the path of a PNG or JPEG file, "
                       "or one of %3")
            .arg(choice, option, names.join(QStringLiteral(", "))));
}
} // namespace

QVector<Pattern> allPatterns()
{
    const GSettings settings(std::make_unique<QSettings>());
    QVector<Pattern> patterns;
    append(patterns, builtInPatterns(), true);
    append(patterns, settings.value(QStringLiteral("patterns")).toString(), false);
    return patterns;
}

bool isPattern(const QString &choice)
{
    return !patternFile(choice).isEmpty();
}

QImage patternPicture(const QString &choice, const QString &option)
{
    const QString file = patternFile(choice);
    if (file.isEmpty())
        refuse(choice, option);
    const ReadImage read = readImageFile(file);
    if (read.image.isNull())
        throw Error(QStringLiteral("The pattern '%1' can't be read: %2").arg(file, read.problem));
    return read.image;
}
