#include "preview/ToolCursor.h"

#include <QPainter>

namespace {
QPen outlinePen(const QColor &color, double width)
{
    QPen pen(color, width);
    pen.setCosmetic(true);
    return pen;
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
    // Light over dark is seen on every sprite.
    for (const QPen &pen :
         {outlinePen(QColor(0, 0, 0, 160), 3.0), outlinePen(QColor(255, 255, 255), 1.0)}) {
        painter->setPen(pen);
        for (const auto &shape : m_cursor.shapes())
            shape->draw(*painter);
    }
}
