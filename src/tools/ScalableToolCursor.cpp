#include "tools/ScalableToolCursor.h"

#include <QLineF>
#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QPoint>
#include <QRectF>
#include <QTransform>

#include <algorithm>

namespace {
constexpr double dashOfLine = 6.0; // of the screen

QPen dashed(QPen pen)
{
    pen.setDashPattern({2.0, 2.0});
    return pen;
}

// Alike for pens of all widths, one of which is drawn over the other.
QPen dashedAsLine(QPen pen)
{
    const double dash = dashOfLine / std::max(pen.widthF(), 1.0);
    pen.setDashPattern({dash, dash});
    pen.setCapStyle(Qt::FlatCap);
    return pen;
}

// What follows is in pixels of the screen: a curve drawn small and zoomed would have corners.
QTransform takeTransform(QPainter &painter)
{
    QTransform transform = painter.worldTransform();
    painter.setWorldTransform({});
    return transform;
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
    const QPointF reach(m_radius, m_radius);
    const QRectF square(m_centre - reach, m_centre + reach);
    painter.drawEllipse(takeTransform(painter).mapRect(square));
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
    painter.setPen(dashedAsLine(painter.pen()));
    painter.drawLine(takeTransform(painter).map(QLineF(m_from, m_to)));
    painter.restore();
}
