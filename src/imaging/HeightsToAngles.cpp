#include "imaging/HeightsToAngles.h"

#include "imaging/Clipping.h"

#include <algorithm>
#include <bit>

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

// The columns between the borders, where a cell has both neighbours.
void deriveInside(const Rows &rows, int first, int end, AngleImage::Pixel *cells)
{
    for (int c = first; c < end; ++c)
        cells[c - first] = slopesAt(rows, c - 1, c, c + 1);
}

void deriveRow(const Rows &rows, int width, int first, int end, AngleImage::Pixel *cells)
{
    const int last = width - 1;
    const int insideFirst = std::max(first, 1);
    const int insideEnd = std::min(end, last);
    deriveInside(rows, insideFirst, insideEnd, cells + (insideFirst - first));
    if (first == 0)
        cells[0] = slopesAt(rows, 0, 0, std::min(1, last));
    if (end == width)
        cells[last - first] = slopesAt(rows, std::max(0, last - 1), last, last);
}

} // namespace

QRect heightsToAngles(const FloatImage &heights, AngleImage &surface, const QRect &rect)
{
    const QRect area = rect.isNull() ? heights.rect() : clipped(rect, heights.rect());
    if (area.isEmpty())
        return {};
    if (surface.size() != area.size())
        surface = AngleImage(area.width(), area.height());
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const Rows rows{heights.row(std::max(0, y - 1)),
                        heights.row(y),
                        heights.row(std::min(y + 1, heights.height() - 1))};
        deriveRow(
            rows, heights.width(), area.left(), area.right() + 1, surface.row(y - area.top()));
    }
    return area;
}
