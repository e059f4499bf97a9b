#include "imaging/StrokeResults.h"

#include "imaging/Clipping.h"
#include "imaging/HeightsToAngles.h"
#include "imaging/MaskedPaste.h"
#include "imaging/SlopeArithmetic.h"

namespace {

// Puts back what the stroke began with. Returns the part of the rectangle that lies on the surface.
QRect restored(AngleImage &current, const AngleImage &start, const QRect &rect)
{
    const QRect area = clipped(rect, current.rect());
    if (area.isEmpty())
        return {};
    return start.isNull() ? blendSlope(current, {}, {}, area)
                          : copyRegion(current, {}, start, area);
}

} // namespace

QRect applyHeights(AngleImage &current,
                   const AngleImage &start,
                   const FloatImage &heights,
                   const QRect &changed)
{
    constexpr int reach = 2;
    const QRect inside = clipped(changed, current.rect());
    if (inside.isEmpty())
        return {};
    const QRect area = restored(current, start, inside.adjusted(-reach, -reach, reach, reach));
    AngleImage slopes;
    heightsToAngles(heights, slopes, area);
    return addSlopes(current, {}, area.topLeft(), slopes);
}

QRect applySlope(AngleImage &current,
                 const AngleImage &start,
                 const FloatImage &coverage,
                 const QRect &changed,
                 AngleImage::Pixel slope)
{
    const QRect area = restored(current, start, changed);
    return area.isEmpty() ? QRect() : blendSlope(current, coverage, slope, area);
}

QRect applySmoothened(AngleImage &current,
                      const AngleImage &start,
                      const FloatImage &coverage,
                      const QRect &changed,
                      const AngleImage &smoothened)
{
    if (smoothened.isNull())
        return {};
    const QRect area = restored(current, start, changed);
    return area.isEmpty() ? QRect() : copyRegion(current, coverage, smoothened, area);
}

QRect applyStructure(AngleImage &current,
                     const AngleImage &start,
                     const FloatImage &coverage,
                     const QRect &changed,
                     const AngleImage &structure)
{
    if (structure.isNull())
        return {};
    const QRect area = restored(current, start, changed);
    return area.isEmpty() ? QRect() : addSlopes(current, coverage, area.topLeft(), structure, area);
}
