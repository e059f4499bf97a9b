#include "tools/BrushStroke.h"

#include "imaging/FloatPainter.h"

#include <utility>

void BrushStroke::setSize(const QSize &size)
{
    *this = {};
    if (!size.isEmpty())
        m_layer = FloatImage(size.width(), size.height());
}

void BrushStroke::begin(const AngleImage &start)
{
    m_start = start;
    if (!m_painted.isEmpty())
        FloatPainter(m_layer).fill(0.0F, m_painted);
    m_painted = {};
    m_dirty = {};
    m_shown = {};
}

void BrushStroke::add(const QRect &painted)
{
    m_painted |= painted;
    m_dirty |= painted;
    m_latest = painted;
}

bool BrushStroke::isDirtyWide() const
{
    const auto area = [](const QRect &rect) { return qint64(rect.width()) * rect.height(); };
    return area(m_dirty) > 2 * area(m_latest);
}

QRect BrushStroke::takeDirty()
{
    return std::exchange(m_dirty, {});
}
