#include "imaging/SlopeArithmetic.h"

#include "Ratio.h"
#include "imaging/MaskedPaste.h"
#include "imaging/Surfaces.h"

namespace {

constexpr int side = 2048;

/// What the row's work goes over. A cell and a weight have four bytes each.
struct Rasters
{
    AngleImage target{side, side, 0x01230456};
    AngleImage source{side, side, 0x00660077};
    FloatImage weights{side, side, 0.3F};
};

template <class Work>
Contest contest(int rastersReadAndWritten, Work work)
{
    return {[rasters = Rasters(), work]() mutable { work(rasters); },
            memcpyOf(qint64(rastersReadAndWritten) * side * side * 4)};
}

const bool rows =
    addRatio(
        "addSlopes, 2048x2048 / memcpy of what it reads and writes",
        0.3,
        [] { return contest(3, [](Rasters &r) { addSlopes(r.target, {}, {}, r.source); }); }) &&
    addRatio("addSlopes by weights, 2048x2048 / memcpy of what it reads and writes",
             0.3,
             [] {
                 return contest(4,
                                [](Rasters &r) { addSlopes(r.target, r.weights, {}, r.source); });
             }) &&
    addRatio("pasteMasked, 2048x2048 / memcpy of what it reads and writes",
             0.3,
             [] {
                 return contest(4,
                                [](Rasters &r) { pasteMasked(r.target, r.weights, {}, r.source); });
             }) &&
    addRatio("blendSlope, 2048x2048 / memcpy of what it reads and writes", 0.3, [] {
        return contest(3, [](Rasters &r) { blendSlope(r.target, r.weights, {300, -70}); });
    });

} // namespace
