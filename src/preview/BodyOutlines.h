#pragma once

#include <QGraphicsItem>
#include <QRectF>
#include <QVector>

/// Quiet frames, one screen pixel wide, around the sprites that are selected.
class BodyOutlines : public QGraphicsItem
{
public:
    BodyOutlines();

    /// In scene pixels.
    void setRects(const QVector<QRectF> &rects);
    const QVector<QRectF> &rects() const { return m_rects; }

    QRectF boundingRect() const override;
    QPainterPath shape() const override { return {}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QVector<QRectF> m_rects;
};
