#include "preview/BodyOutlines.h"

#include "framework/Theme.h"

#include <QPainter>
#include <QPalette>

BodyOutlines::BodyOutlines()
{
    setAcceptedMouseButtons(Qt::NoButton);
    // Above the sprites, below a tool's own overlay and the light.
    setZValue(900.0);
}

void BodyOutlines::setRects(const QVector<QRectF> &rects)
{
    if (rects == m_rects)
        return;
    prepareGeometryChange();
    m_rects = rects;
    update();
}

QRectF BodyOutlines::boundingRect() const
{
    QRectF result;
    for (const QRectF &rect : m_rects)
        result |= rect;
    return result.isEmpty() ? QRectF() : result.adjusted(-1.0, -1.0, 1.0, 1.0);
}

void BodyOutlines::paint(QPainter *painter,
                         const QStyleOptionGraphicsItem * /*option*/,
                         QWidget * /*widget*/)
{
    // What is behind the sprites is dark in the light theme, too.
    QPen pen(themeColors(QPalette(Qt::black)).accent, 1.0);
    pen.setCosmetic(true);
    pen.setJoinStyle(Qt::MiterJoin);
    painter->setPen(pen);
    painter->setBrush(Qt::NoBrush);
    painter->drawRects(m_rects);
}
