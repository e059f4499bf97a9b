#include "tools/ScalableToolCursor.h"

#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QPoint>

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
    if (m_isDashed) {
        QPen pen = painter.pen();
        pen.setDashPattern({2.0, 2.0});
        painter.setPen(pen);
    }
    painter.drawEllipse(m_centre, m_radius, m_radius);
    painter.restore();
}
