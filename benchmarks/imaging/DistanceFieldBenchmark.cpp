#include "imaging/DistanceField.h"

#include "Ratio.h"
#include "imaging/Surfaces.h"
#include "reference/PlainDistanceField.h"

#include <algorithm>

namespace {

constexpr int side = 1024;

Contest contest(double noise)
{
    const auto coverage = discsAndHoles(side, noise);
    return {[coverage] {
                distanceField({side, side}, [&coverage](int y, double *row) {
                    std::copy_n(coverage.begin() + qptrdiff(y) * side, side, row);
                });
            },
            [coverage] { plainDistanceField(coverage, side, side); }};
}

const bool rows = addRatio("distanceField, 1024x1024, discs and holes / the method said plainly",
                           3.0,
                           [] { return contest(0.0); }) &&
                  addRatio("distanceField, 1024x1024, with noise / the method said plainly",
                           3.0,
                           [] { return contest(0.001); }) &&
                  addRatio("distanceField, 1024x1024, half noise / the method said plainly",
                           3.0,
                           [] { return contest(0.5); });

} // namespace
