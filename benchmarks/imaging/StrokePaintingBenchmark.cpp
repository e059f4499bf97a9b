#include "imaging/StrokePainting.h"

#include "Ratio.h"
#include "imaging/CircularBrush.h"
#include "reference/PlainStroke.h"

#include <memory>

namespace {

// A short step of a large brush, as a pointer makes many a second.
const QVector2D from(200.3F, 210.7F);
const QVector2D to(204.1F, 207.2F);
constexpr float diameter = 100.0F;
constexpr float softness = 0.8F;

template <class Brush>
std::function<void()> stroke(int side)
{
    const auto brush = std::make_shared<Brush>();
    brush->sizeX = brush->sizeY = diameter;
    brush->amplitude = 5.0F;
    brush->softness = softness;
    brush->update();
    return [brush, layer = FloatImage(side, side)]() mutable {
        paintSegmentMax(*brush, from, to, layer);
    };
}

std::function<void()> plainStroke(PlainBrush::Contour contour)
{
    const PlainBrush brush{contour, diameter / 2.0F, 5.0F, softness};
    return [brush, layer = FloatImage(512, 512)]() mutable {
        brush.paint(from, to, strokeBounds({diameter, diameter}, from, to, layer.size()), layer);
    };
}

const bool rows =
    addRatio("paintSegmentMax, cos / pixel by pixel",
             4.0,
             [] {
                 return Contest{stroke<CircularBrushCos>(512), plainStroke(PlainBrush::Cos)};
             }) &&
    addRatio("paintSegmentMax, ramp / pixel by pixel",
             4.0,
             [] {
                 return Contest{stroke<CircularBrushRamp>(512), plainStroke(PlainBrush::Ramp)};
             }) &&
    addRatio("paintSegmentMax, circle / pixel by pixel",
             4.0,
             [] {
                 return Contest{stroke<CircularBrushCircle>(512), plainStroke(PlainBrush::Circle)};
             }) &&
    addRatio("paintSegmentMax, in 8192x8192 / in 512x512", 1.0 / 1.2, [] {
        return Contest{stroke<CircularBrushCos>(8192), stroke<CircularBrushCos>(512)};
    });

} // namespace
