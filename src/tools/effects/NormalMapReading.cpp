#include "tools/effects/NormalMapReading.h"

#include "base/GFileName.h"
#include "base/GSettings.h"
#include "imaging/PoolQueue.h"
#include "model/Body.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {
struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ImportNormalMap)
};

QString folderKey()
{
    return QStringLiteral("imagePath/normalMap");
}
} // namespace

std::optional<QVector<ImportedNormalMap>> readNormalMaps(const QVector<NormalMapRequest> &requests,
                                                         const ShowProgress &progress)
{
    using namespace std::chrono_literals;
    PoolQueue<ImportedNormalMap> queue(requests.size(), [&requests](int index) {
        return [request = requests[index]] { return readNormalMap(request.path, request.size); };
    });
    // The effect may be ended meanwhile, and its context with it.
    const ShowProgress show = progress;
    // Nobody knows how far a single one is.
    const int total = requests.size() > 1 ? requests.size() : 0;
    QVector<ImportedNormalMap> maps;
    while (maps.size() < requests.size()) {
        if (show && !show(maps.size(), total))
            return std::nullopt;
        if (queue.waitForNext(20ms))
            maps.append(queue.next());
    }
    return maps;
}

QStringList doubtsAbout(const NormalMapJudgement &judgement)
{
    QStringList doubts;
    if (judgement.isForeign)
        doubts.append(Words::tr(
            "It does not look like a normal map: many pixels have too little blue. Make sure that "
            "it is the right file."));
    if (judgement.hasGreenDown)
        doubts.append(Words::tr(
            "Green seems to count downwards, so that light from above would seem to come from "
            "below. Flipping green puts that right."));
    if (judgement.isFlatAt128)
        doubts.append(Words::tr(
            "Its flat ground is 128, 128, 255 instead of 127, 127, 255 and will lean by half a "
            "degree, which is hardly seen. The eraser makes it quite flat."));
    return doubts;
}

QString importFolder(const GSettings &settings, const Body &body)
{
    QString kept = settings.value(folderKey()).toString();
    const GFileName &sprite = body.sprite().filename().value();
    if (QFileInfo(kept).isDir() || sprite.isEmpty())
        return kept;
    return QFileInfo(sprite.path()).path();
}

void keepImportFolder(GSettings &settings, const QString &folder)
{
    settings.setValue(folderKey(), QFileInfo(folder).absoluteFilePath());
}
