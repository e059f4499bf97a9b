#pragma once

#include <QRect>

#include <algorithm>
#include <cmath>

/// Calls @p work with each of the blocks, at most of size @p block, that make up @p area.
template <typename Work>
void forEachBlock(const QRect &area, const QSize &block, const Work &work)
{
    for (int y = area.top(); y <= area.bottom(); y += block.height()) {
        const int height = std::min(block.height(), area.bottom() + 1 - y);
        for (int x = area.left(); x <= area.right(); x += block.width())
            work(QRect(x, y, std::min(block.width(), area.right() + 1 - x), height));
    }
}

/// The side of square blocks that stay below @p pixelLimit also with what lies around them.
inline int blockSide(qint64 pixelLimit)
{
    return std::max(1, int(std::sqrt(double(pixelLimit)) / 2));
}
