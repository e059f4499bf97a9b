#include "imaging/StrokeResults.h"

#include "imaging/Clipping.h"
#include "imaging/HeightsToAngles.h"
#include "imaging/MaskedPaste.h"
#include "imaging/SlopeArithmetic.h"

namespace {

void restore(AngleImage &current, const AngleImage &start, const QRect &area)
{
    if (start.isNull())
        blendSlope(current, {}, {}, area);
    else
        copyRegion(current, {}, start, area);
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
    const QRect area = clipped(inside.adjusted(-reach, -reach, reach, reach), current.rect());
    AngleImage slopes;
    heightsToAngles(heights, slopes, area);
    restore(current, start, area);
    return addSlopes(current, {}, area.topLeft(), slopes);
}

QRect applySlope(AngleImage &current,
                 const AngleImage &start,
                 const FloatImage &coverage,
                 const QRect &changed,
                 AngleImage::Pixel slope)
{
    const QRect area = clipped(changed, current.rect());
    if (area.isEmpty())
        return {};
    restore(current, start, area);
    return blendSlope(current, coverage, slope, area);
}

QRect applySmoothened(AngleImage &current,
                      const AngleImage &start,
                      const FloatImage &coverage,
                      const QRect &changed,
                      const AngleImage &smoothened)
{
    const QRect area = clipped(changed, current.rect());
    if (area.isEmpty() || smoothened.isNull())
        return {};
    restore(current, start, area);
    return copyRegion(current, coverage, smoothened, area);
}

QRect applyStructure(AngleImage &current,
                     const AngleImage &start,
                     const FloatImage &coverage,
                     const QRect &changed,
                     const AngleImage &structure)
{
    const QRect area = clipped(changed, current.rect());
    if (area.isEmpty() || structure.isNull())
        return {};
    restore(current, start, area);
    return addSlopes(current, coverage, area.topLeft(), structure, area);
}
