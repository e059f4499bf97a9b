#include "imaging/StrokeResults.h"

#include "imaging/Clipping.h"
#include "imaging/HeightsToAngles.h"
#include "imaging/MaskedPaste.h"
#include "imaging/SlopeArithmetic.h"

#include <algorithm>

namespace {

FloatImage cropped(const FloatImage &image, const QRect &area)
{
    FloatImage part(area.width(), area.height());
    for (int y = 0; y < area.height(); ++y)
        std::copy_n(image.row(area.top() + y) + area.left(), area.width(), part.row(y));
    return part;
}

} // namespace

SurfacePiece untouched(const AngleImage &start, const QSize &size, const QRect &changed)
{
    const QRect area = clipped(changed, QRect(QPoint(), size));
    if (area.isEmpty())
        return {};
    SurfacePiece piece{AngleImage(area.width(), area.height()), area};
    pasteMasked(piece.cells, {}, {}, start, area);
    return piece;
}

SurfacePiece raised(const AngleImage &start, const FloatImage &heights, const QRect &changed)
{
    constexpr int reach = 2;
    const QRect inside = clipped(changed, heights.rect());
    if (inside.isEmpty())
        return {};
    SurfacePiece piece =
        untouched(start, heights.size(), inside.adjusted(-reach, -reach, reach, reach));
    AngleImage slopes;
    heightsToAngles(heights, slopes, piece.area);
    addSlopes(piece.cells, {}, {}, slopes);
    return piece;
}

SurfacePiece turned(const AngleImage &start,
                    const FloatImage &coverage,
                    const QRect &changed,
                    AngleImage::Pixel slope)
{
    SurfacePiece piece = untouched(start, coverage.size(), changed);
    if (!piece.isEmpty())
        blendSlope(piece.cells, cropped(coverage, piece.area), slope);
    return piece;
}

SurfacePiece smoothened(const AngleImage &start,
                        const FloatImage &coverage,
                        const QRect &changed,
                        const AngleImage &smooth)
{
    if (smooth.isNull())
        return {};
    SurfacePiece piece = untouched(start, coverage.size(), changed);
    if (!piece.isEmpty())
        pasteMasked(piece.cells, cropped(coverage, piece.area), {}, smooth, piece.area);
    return piece;
}

SurfacePiece structured(const AngleImage &start,
                        const FloatImage &coverage,
                        const QRect &changed,
                        const AngleImage &structure)
{
    if (structure.isNull())
        return {};
    SurfacePiece piece = untouched(start, coverage.size(), changed);
    if (!piece.isEmpty())
        addSlopes(piece.cells, cropped(coverage, piece.area), {}, structure, piece.area);
    return piece;
}
