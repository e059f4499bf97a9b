#include "tools/ScalableToolCursor.h"

#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QPoint>

namespace {
QPen dashed(QPen pen)
{
    pen.setDashPattern({2.0, 2.0});
    return pen;
}
} // namespace

ScalableToolCursor::ScalableToolCursor(const QCursor &pointer)
    : m_pointer(pointer)
{
}

ScalableToolCursor::ScalableToolCursor(const QPixmap &pixmap, const QPoint &hotSpot)
    : m_pointer(pixmap, hotSpot.x(), hotSpot.y())
{
}

void ScalableToolCursor::addShape(std::shared_ptr<const Shape> shape)
{
    m_shapes.append(std::move(shape));
}

ScalableToolCursor::ShapeCircle::ShapeCircle(const QPointF &centre, double radius, bool isDashed)
    : m_centre(centre)
    , m_radius(radius)
    , m_isDashed(isDashed)
{
}

void ScalableToolCursor::ShapeCircle::draw(QPainter &painter) const
{
    painter.save();
    if (m_isDashed)
        painter.setPen(dashed(painter.pen()));
    painter.drawEllipse(m_centre, m_radius, m_radius);
    painter.restore();
}

ScalableToolCursor::ShapeLine::ShapeLine(const QPointF &from, const QPointF &to)
    : m_from(from)
    , m_to(to)
{
}

void ScalableToolCursor::ShapeLine::draw(QPainter &painter) const
{
    painter.save();
    painter.setPen(dashed(painter.pen()));
    painter.drawLine(m_from, m_to);
    painter.restore();
}
