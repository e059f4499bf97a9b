#include "imaging/DifferingArea.h"

#include "imaging/Clipping.h"

#include <cstring>

namespace {

using Pixel = AngleImage::Pixel;

bool areEqual(const Pixel *a, const Pixel *b, int count)
{
    return std::memcmp(a, b, std::size_t(count) * sizeof(Pixel)) == 0;
}

// Of cells of which some differ. Halving compares each about twice, but in whole blocks.
int firstDifference(const Pixel *a, const Pixel *b, int count)
{
    int first = 0;
    while (count > 1) {
        const int half = count / 2;
        const bool isBeyond = areEqual(a + first, b + first, half);
        first += isBeyond ? half : 0;
        count = isBeyond ? count - half : half;
    }
    return first;
}

int lastDifference(const Pixel *a, const Pixel *b, int count)
{
    int first = 0;
    while (count > 1) {
        const int half = count / 2;
        const int middle = first + half;
        const bool isBefore = areEqual(a + middle, b + middle, count - half);
        first = isBefore ? first : middle;
        count = isBefore ? half : count - half;
    }
    return first;
}

} // namespace

QRect differingArea(const AngleImage &a, const AngleImage &b, const QRect &within)
{
    const QRect area = clipped(within, a.rect());
    if (area.isEmpty() || a.sharesCellsWith(b))
        return {};
    const auto isEqualRow = [&](int y) {
        return areEqual(a.row(y) + area.left(), b.row(y) + area.left(), area.width());
    };
    int top = area.top();
    int bottom = area.bottom();
    while (top <= bottom && isEqualRow(top))
        ++top;
    while (bottom > top && isEqualRow(bottom))
        --bottom;
    int left = area.right() + 1;
    int right = area.left() - 1;
    // What a row has between the columns known to differ is not looked at any more.
    for (int y = top; y <= bottom; ++y) {
        const int before = left - area.left();
        const int after = area.right() - right;
        const Pixel *const rowA = a.row(y);
        const Pixel *const rowB = b.row(y);
        if (!areEqual(rowA + area.left(), rowB + area.left(), before))
            left = area.left() + firstDifference(rowA + area.left(), rowB + area.left(), before);
        if (!areEqual(rowA + right + 1, rowB + right + 1, after))
            right += 1 + lastDifference(rowA + right + 1, rowB + right + 1, after);
    }
    return {QPoint(left, top), QPoint(right, bottom)};
}
