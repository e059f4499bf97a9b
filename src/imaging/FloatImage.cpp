#include "imaging/FloatImage.h"

#include "imaging/AngleImage.h"

FloatImage::FloatImage(int width, int height, float fill)
{
    if (!AngleImage::isPossibleSize(width, height))
        return;
    m_width = width;
    m_height = height;
    m_cells = QVector<float>(width * height, fill);
}
