#include "imaging/StructureSurface.h"

#include "imaging/FloatImage.h"
#include "imaging/HeightsToAngles.h"
#include "imaging/PatternTiling.h"

#include <algorithm>

namespace {

// Rec. 709 luma in parts of 256.
float heightOf(QRgb colour)
{
    return float(qRed(colour)) * 0.00083046875F + float(qGreen(colour)) * 0.00279375F +
           float(qBlue(colour)) * 0.00028203125F;
}

FloatImage heightsOf(const QImage &picture, float intensity)
{
    FloatImage heights(picture.width(), picture.height());
    for (int y = 0; y < picture.height(); ++y) {
        const auto *pixels = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        std::transform(pixels, pixels + picture.width(), heights.row(y), [intensity](QRgb colour) {
            return heightOf(colour) * intensity;
        });
    }
    return heights;
}

} // namespace

AngleImage structureSurface(const PaintToolStructureParams &params)
{
    AngleImage surface;
    // The picture is gone before the slopes come: each is as large as the largest bodies.
    const FloatImage heights =
        heightsOf(tiledPattern(params.pattern, params.scale, params.rotation, params.size),
                  float(params.intensity));
    heightsToAngles(heights, surface);
    return surface;
}
