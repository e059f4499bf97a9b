#pragma once

#include <QColor>
#include <QGraphicsObject>
#include <QImage>
#include <QVector3D>

/// The light that the user drags over the scene. Its icon keeps its size on the screen.
class GLGraphicsLight : public QGraphicsObject
{
    Q_OBJECT

public:
    enum { Type = UserType + 2 };
    enum class Kind { Point = 0, Directional = 1 };

    explicit GLGraphicsLight(QGraphicsItem *parent = nullptr);

    int type() const override { return Type; }
    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    Kind kind() const { return m_kind; }
    /// Where it hangs, in scene pixels; z is its height above the sprites.
    QVector3D position() const;
    void setHeight(float height) { m_height = height; }
    void setColor(const QColor &color);
    /// The zoom of the view.
    void setDisplayScaleFactor(float factor);

Q_SIGNALS:
    void moved();

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    const QImage &icon();

    Kind m_kind = Kind::Point;
    float m_height = 32.0F;
    QColor m_color = Qt::white;
    float m_displayScaleFactor = 1.0F;
    QImage m_icon;
    QColor m_iconColor;
};
