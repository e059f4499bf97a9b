#include "cli/Commands.h"
#include "cli/PatternChoice.h"
#include "model/ImageReading.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {
QString jsonLine(const Pattern &pattern)
{
    const QSize size = readImageFile(pattern.file).image.size();
    const QJsonObject object{{QStringLiteral("name"), pattern.name},
                             {QStringLiteral("file"), pattern.file},
                             {QStringLiteral("width"), size.width()},
                             {QStringLiteral("height"), size.height()},
                             {QStringLiteral("builtIn"), pattern.isBuiltIn}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}
} // namespace

ExitCode runPatterns(bool json, Console &console)
{
    for (const Pattern &pattern : allPatterns())
        console.data(json ? jsonLine(pattern) : pattern.name);
    return ExitCode::Done;
}
