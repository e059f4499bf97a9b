#pragma once

#include "tools/ScalableToolCursor.h"

#include <QGraphicsObject>

/// Draws the outlines of a tool's cursor at the pointer, one screen pixel wide at every zoom. Takes
/// no part in mouse events.
class ToolCursor : public QGraphicsObject
{
    Q_OBJECT

public:
    explicit ToolCursor(ScalableToolCursor cursor, QGraphicsItem *parent = nullptr);

    QRectF boundingRect() const override;
    QPainterPath shape() const override { return {}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    ScalableToolCursor m_cursor;
};
