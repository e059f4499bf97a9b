#include "Ratio.h"
#include "imaging/NormalEncoding.h"
#include "imaging/Surfaces.h"

#include <cstring>

namespace {

const bool rows = addRatio("toNormalMap, 4096x4096 / memcpy of the bytes", 0.4, [] {
    const AngleImage surface = largeSurface();
    QImage map = flatNormalMap(surface.size());
    QImage copy = map.copy();
    return Contest{[surface, map]() mutable { toNormalMap(surface, map); },
                   [surface, copy]() mutable {
                       std::memcpy(copy.bits(), surface.row(0), std::size_t(copy.sizeInBytes()));
                   }};
});

} // namespace
