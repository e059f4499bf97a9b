#pragma once

#include <QCursor>
#include <QPointF>
#include <QVector>

#include <memory>

QT_BEGIN_NAMESPACE
class QPainter;
class QPixmap;
class QPoint;
QT_END_NAMESPACE

/// What a tool shows at the pointer: outlines in image pixels, which follow the zoom, and the
/// pointer itself.
class ScalableToolCursor
{
public:
    /// An outline around the pointer, which is at (0, 0).
    class Shape
    {
    public:
        virtual ~Shape() = default;
        virtual void draw(QPainter &painter) const = 0;
    };

    class ShapeCircle : public Shape
    {
    public:
        ShapeCircle(const QPointF &centre, double radius, bool isDashed = false);
        void draw(QPainter &painter) const override;

    private:
        QPointF m_centre;
        double m_radius;
        bool m_isDashed;
    };

    /// A dashed line.
    class ShapeLine : public Shape
    {
    public:
        ShapeLine(const QPointF &from, const QPointF &to);
        void draw(QPainter &painter) const override;

    private:
        QPointF m_from;
        QPointF m_to;
    };

    ScalableToolCursor() = default;
    /// A plain pointer.
    explicit ScalableToolCursor(const QCursor &pointer);
    /// A picture as the pointer, (-1, -1) for a hot spot in its middle.
    ScalableToolCursor(const QPixmap &pixmap, const QPoint &hotSpot);

    /// @p extent is the width of all shapes together.
    void setExtent(double extent) { m_extent = extent; }
    double extent() const { return m_extent; }
    void addShape(std::shared_ptr<const Shape> shape);
    const QVector<std::shared_ptr<const Shape>> &shapes() const { return m_shapes; }
    const QCursor &pointer() const { return m_pointer; }

private:
    double m_extent = 0.0;
    QVector<std::shared_ptr<const Shape>> m_shapes;
    QCursor m_pointer;
};
