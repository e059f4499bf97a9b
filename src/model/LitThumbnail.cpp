#include "model/LitThumbnail.h"

#include "imaging/NormalEncoding.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"

#include <QPainter>

#include <algorithm>

namespace {
// The pixels of a small sprite stay squares of one size; a large one is shrunk smoothly.
QImage fitted(const QImage &image, const QSize &cell)
{
    const int factor = std::min(cell.width() / image.width(), cell.height() / image.height());
    if (factor >= 1)
        return image.scaled(image.size() * factor);
    const QSize size = image.size().scaled(cell, Qt::KeepAspectRatio).expandedTo({1, 1});
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}
} // namespace

Light lampOf(const Project &project, const QVector3D &place)
{
    return {project.ambientLightColor().value(),
            project.lightColor().value(),
            double(project.lightBrightness().value()),
            Light::Kind::Position,
            place};
}

Light thumbnailLamp(const Project &project)
{
    return lampOf(project, QVector3D(0.0F, 0.0F, float(project.lightHeight().value())));
}

QImage arrangedPictures(const QVector<QImage> &pictures, int side)
{
    const int columns = std::min(int(pictures.size()), 2);
    const int rows = (int(pictures.size()) + 1) / 2;
    const int gap = side / 32;
    const QSize cell((side - gap * (columns - 1)) / columns, (side - gap * (rows - 1)) / rows);
    QImage result(side, side, QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    for (int i = 0; i < pictures.size(); ++i) {
        const bool isAlone = i % 2 == 0 && i + 1 == pictures.size();
        const int left = isAlone ? (side - cell.width()) / 2 : i % 2 * (cell.width() + gap);
        const QRect place({left, i / 2 * (cell.height() + gap)}, cell);
        const QImage picture = fitted(pictures[i], cell);
        QRect middle = picture.rect();
        middle.moveCenter(place.center());
        painter.drawImage(middle.topLeft(), picture);
    }
    return result;
}

ThumbnailParts thumbnailPartsOf(const Project &project)
{
    ThumbnailParts result;
    result.lamp = thumbnailLamp(project);
    for (const Body *body : project.bodies().all()) {
        if (result.parts.size() == mostThumbnailBodies)
            break;
        if (body->sprite().hasOwnImage())
            result.parts.append({body->sprite().image(), body->paintedNormalMap().angleImage()});
    }
    return result;
}

QImage litThumbnail(const ThumbnailParts &parts, int side)
{
    QVector<QImage> pictures;
    for (const auto &[sprite, painted] : parts.parts) {
        const AngleImage surface =
            painted.isNull() ? AngleImage(sprite.width(), sprite.height()) : painted;
        // A sprite that is about to be shown at another size has no picture meanwhile.
        if (surface.size() == sprite.size())
            pictures.append(litImage(sprite, exportedNormalMap(surface, sprite), parts.lamp));
    }
    return pictures.isEmpty() ? QImage() : arrangedPictures(pictures, side);
}
