#include "model/NormalMapExport.h"

#include "Ratio.h"
#include "imaging/NormalEncoding.h"
#include "model/Documents.h"
#include "model/Project.h"

#include <QBuffer>
#include <QImageWriter>

namespace {
// With two processors, an export takes at most 0.75 of the time in which one encodes the same maps
// with the same setting.
const bool row = addRatio("export, 100 sprites of 256x256 / PNG encoding", 1 / 0.75, [] {
    const PaintedProject painted(100, {256, 256});
    NormalMapExport settings;
    settings.directory = GFileName(painted.path(QStringLiteral("out")));
    QVector<QImage> maps;
    for (const Body *body : painted.project->bodies().all()) {
        const AngleImage surface = body->surface();
        maps.append(flatNormalMap(surface.size()));
        toNormalMap(surface, maps.last());
    }
    return Contest{[painted, settings] {
                       exportNormalMaps(
                           *painted.project, painted.project->bodies().all(), settings);
                   },
                   [maps] {
                       for (const QImage &map : maps) {
                           QBuffer buffer;
                           buffer.open(QIODevice::WriteOnly);
                           QImageWriter writer(&buffer, QByteArrayLiteral("png"));
                           writer.setQuality(normalMapPngQuality);
                           writer.write(map);
                       }
                   }};
});
} // namespace
