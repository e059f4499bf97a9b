#include "preview/ToolCursor.h"

#include <QPainter>

namespace {
constexpr double leastExtent = 8.0; // of the screen
constexpr double seenExtent = 300.0;
constexpr double crossGap = 5.0;
constexpr double crossReach = 9.0;

QPen outlinePen(const QColor &color, double width)
{
    QPen pen(color, width);
    pen.setCosmetic(true);
    return pen;
}

/// Where the middle is; for outlines that are lost on a sprite, or reach out of the view.
void drawCross(QPainter &painter)
{
    painter.save();
    const QPointF middle = painter.worldTransform().map(QPointF());
    painter.setWorldTransform({});
    for (const QPointF &arm : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
        painter.drawLine(middle + crossGap * arm, middle + crossReach * arm);
    painter.restore();
}
} // namespace

ToolCursor::ToolCursor(ScalableToolCursor cursor, QGraphicsItem *parent)
    : QGraphicsObject(parent)
    , m_cursor(std::move(cursor))
{
    setAcceptedMouseButtons(Qt::NoButton);
}

QRectF ToolCursor::boundingRect() const
{
    const double side = m_cursor.extent() / 2.0 + 1.0;
    return {-side, -side, 2.0 * side, 2.0 * side};
}

void ToolCursor::paint(QPainter *painter,
                       const QStyleOptionGraphicsItem * /*option*/,
                       QWidget * /*widget*/)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    const double extent = m_cursor.extent() * painter->worldTransform().m11();
    const bool showsMiddle = extent < leastExtent || extent > seenExtent;
    // Light over dark is seen on every sprite.
    for (const QPen &pen :
         {outlinePen(QColor(0, 0, 0, 160), 3.0), outlinePen(QColor(255, 255, 255), 1.0)}) {
        painter->setPen(pen);
        for (const auto &shape : m_cursor.shapes())
            shape->draw(*painter);
        if (showsMiddle)
            drawCross(*painter);
    }
}
