#include "imaging/HeightsToAngles.h"

#include "imaging/Clipping.h"
#include "imaging/PixelLoops.h"

#include <algorithm>

namespace {

/// A row of the field with its neighbours above and below.
struct Rows
{
    const float *above;
    const float *middle;
    const float *below;

    float sum(int c) const { return above[c] + 2.0F * middle[c] + below[c]; }
    float difference(int c) const { return above[c] - below[c]; }
};

AngleImage::Pixel slopesAt(const Rows &rows, int left, int column, int right)
{
    const float x = rows.sum(left) - rows.sum(right);
    const float y = rows.difference(left) + 2.0F * rows.difference(column) + rows.difference(right);
    return {toStoredSlope(x * 0.125F), toStoredSlope(y * 0.125F)};
}

void deriveRow(const Rows &rows, int width, int first, int end, AngleImage::Pixel *cells)
{
    const int last = width - 1;
    const int insideFirst = std::max(first, 1);
    const int insideEnd = std::min(end, last);
    // Between the borders a cell has both neighbours.
    if (insideFirst < insideEnd) {
        fastestPixelLoops().derive(rows.above + insideFirst,
                                   rows.middle + insideFirst,
                                   rows.below + insideFirst,
                                   cells + (insideFirst - first),
                                   insideEnd - insideFirst);
    }
    if (first == 0)
        cells[0] = slopesAt(rows, 0, 0, std::min(1, last));
    if (end == width)
        cells[last - first] = slopesAt(rows, std::max(0, last - 1), last, last);
}

// Asks the memory for a row that comes next: arithmetic fills the processor's view of what is
// ahead, so that it would ask late.
template <typename Cell>
void fetch(const Cell *cells, int count)
{
#ifdef __GNUC__
    constexpr int cellsOfCacheLine = 64 / sizeof(Cell);
    for (int i = 0; i < count; i += cellsOfCacheLine)
        __builtin_prefetch(cells + i);
#endif
}

} // namespace

QRect heightsToAngles(const FloatImage &heights, AngleImage &surface, const QRect &rect)
{
    const QRect area = rect.isNull() ? heights.rect() : clipped(rect, heights.rect());
    if (area.isEmpty() || !AngleImage::isPossibleSize(area.width(), area.height()))
        return {};
    if (surface.size() != area.size())
        surface = AngleImage(area.width(), area.height());
    const int last = heights.height() - 1;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        AngleImage::Pixel *cells = surface.row(y - area.top());
        if (y < area.bottom()) {
            fetch(heights.row(std::min(y + 2, last)) + area.left(), area.width());
            fetch(cells + area.width(), area.width());
        }
        const Rows rows{
            heights.row(std::max(0, y - 1)), heights.row(y), heights.row(std::min(y + 1, last))};
        deriveRow(rows, heights.width(), area.left(), area.right() + 1, cells);
    }
    return area;
}
