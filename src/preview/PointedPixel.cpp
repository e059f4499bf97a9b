#include "preview/PointedPixel.h"

#include "imaging/AngleImage.h"
#include "model/NormalMapProcessor.h"
#include "preview/SpriteItem.h"

#include <QtMath>

PointedPixel pointedPixel(const SpriteItem &item, const QPointF &position)
{
    const QPointF local = position - item.pos();
    PointedPixel pointed{&item.body(), {qFloor(local.x()), qFloor(local.y())}, {}, {}};
    const AngleImage &surface = item.processor().angleImage();
    if (surface.rect().contains(pointed.pixel)) {
        const AngleImage::Pixel cell = surface.row(pointed.pixel.y())[pointed.pixel.x()];
        pointed.slope = QPointF(cell.sx, cell.sy) / 256.0;
    }
    const QImage &normals = item.processor().normalMap();
    if (normals.valid(pointed.pixel))
        pointed.normal = normals.pixelColor(pointed.pixel);
    return pointed;
}
