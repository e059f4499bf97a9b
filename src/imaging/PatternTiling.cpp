#include "imaging/PatternTiling.h"

#include "imaging/AngleImage.h"
#include "imaging/PatternPlane.h"
#include "imaging/PixelBlocks.h"

#include <QPainter>
#include <QPolygonF>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace {

int tiledSide(const QSize &size)
{
    return int(qint64(std::max(size.width(), size.height())) * 3 / 2);
}

/// Where the body lies in the turned square.
struct Placing
{
    Placing(double rotation, const QSize &size)
        : square(0, 0, tiledSide(size), tiledSide(size))
        , turn(QTransform().rotate(rotation))
    {
        const QTransform toTurned = QImage::trueMatrix(turn, square.width(), square.height());
        const QSize turnedSize =
            toTurned.map(QPolygonF(QRectF(square))).boundingRect().toAlignedRect().size();
        body = QRect(QPoint((turnedSize.width() - size.width()) / 2,
                            (turnedSize.height() - size.height()) / 2),
                     size);
        toBody = toTurned * QTransform::fromTranslate(-body.x(), -body.y());
    }

    // What a part of the body shows of the plane that the square is cut from.
    QRectF seenIn(const QRect &part) const { return toBody.inverted().mapRect(QRectF(part)); }

    QRect square;
    QTransform turn;
    QRect body;
    QTransform toBody;
};

bool isQuarterTurn(double rotation)
{
    return std::fmod(rotation, 90.0) == 0.0;
}

// The painter reaches neither far columns nor far rows, so that it gets blocks.
QImage paintedInBlocks(const PatternPlane &plane, const Placing &placing, int side)
{
    QImage result(placing.body.size(), QImage::Format_RGB32);
    forEachBlock(result.rect(), {side, side}, [&](const QRect &block) {
        // The neighbours that smoothing sees are there as well.
        const QRect seen = placing.seenIn(block).toAlignedRect().adjusted(-2, -2, 2, 2);
        QImage view(result.scanLine(block.top()) + qptrdiff(block.left()) * 4,
                    block.width(),
                    block.height(),
                    result.bytesPerLine(),
                    result.format());
        QPainter painter(&view);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter.setTransform(placing.toBody *
                             QTransform::fromTranslate(-block.left(), -block.top()));
        painter.drawImage(seen.topLeft(), plane.part(seen));
    });
    return result;
}

} // namespace

QImage tiledPattern(
    const QImage &pattern, double scale, double rotation, const QSize &size, qint64 pixelLimit)
{
    if (pattern.isNull() || size.isEmpty() || !std::isfinite(scale) || !std::isfinite(rotation) ||
        !AngleImage::isPossibleSize(size.width(), size.height()))
        return {};
    const Placing placing(std::fmod(rotation, 360.0), size);
    const QRect square = placing.square;
    const PatternPlane plane(pattern, std::clamp(scale, 0.1, 4.0), square.width(), pixelLimit);
    const QRectF seen = placing.seenIn({QPoint(), size});
    // Whole pixels stay whole pixels: nothing around the body is needed.
    if (isQuarterTurn(rotation))
        return plane.part(seen.toRect()).transformed(placing.turn);
    // The corners of a body of few pixels lie outside the turned square.
    const bool coversBody = QRectF(square).contains(seen);
    const bool isOrdinary = qint64(square.width()) * square.height() <= pixelLimit;
    if (!coversBody || !isOrdinary)
        return paintedInBlocks(plane, placing, blockSide(pixelLimit));
    return plane.part(square)
        .transformed(placing.turn, Qt::SmoothTransformation)
        .copy(placing.body)
        .convertToFormat(QImage::Format_RGB32);
}
