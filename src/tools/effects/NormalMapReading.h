#pragma once

#include "model/NormalMapImport.h"
#include "tools/effects/Filter.h"

#include <QStringList>
#include <QVector>

#include <optional>

class Body;
class GSettings;

struct NormalMapRequest
{
    QString path;
    QSize size; ///< that the map must have
};

/// Reads normal maps on the global thread pool, a few at a time, and returns them in the order
/// asked for; nothing when @p progress cancels.
std::optional<QVector<ImportedNormalMap>> readNormalMaps(const QVector<NormalMapRequest> &requests,
                                                         const ShowProgress &progress);

/// A sentence for each doubt about a map, with what can be done.
QStringList doubtsAbout(const NormalMapJudgement &judgement);

/// The folder that an import starts in: that of the last one, else that of the body's sprite.
QString importFolder(const GSettings &settings, const Body &body);
void keepImportFolder(GSettings &settings, const QString &folder);
