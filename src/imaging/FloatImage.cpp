#include "imaging/FloatImage.h"

#include "imaging/AngleImage.h"
#include "imaging/LargePages.h"

#include <algorithm>

FloatImage::FloatImage(int width, int height, float fill)
{
    if (width < 0 || height < 0 ||
        !AngleImage::isPossibleSize(std::max(0, width - 2), std::max(0, height - 2)))
        return;
    m_width = width;
    m_height = height;
    const int count = width * height;
    m_cells.reserve(count);
    useLargePages(m_cells.constData(), std::size_t(count) * sizeof(float));
    m_cells.insert(0, count, fill);
}
