#include "preview/GLGraphicsLight.h"

#include "framework/UiScale.h"

#include <QCursor>
#include <QFile>
#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>

namespace {

constexpr int iconSize = 48;

double luminanceOf(const QColor &color)
{
    return 0.2126 * color.redF() + 0.7152 * color.greenF() + 0.0722 * color.blueF();
}

// The icon's own blue stands for the light's colour, its white for what surrounds that.
QByteArray iconSource(const QColor &color)
{
    QFile file(QStringLiteral("://icons/light-cursor.svg"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray source = file.readAll();
    // The white first: the light may be as white.
    if (luminanceOf(color) > 0.5)
        source.replace("#FFFFFF", "#000000");
    source.replace("#5E75B9", color.name().toLatin1());
    return source;
}

} // namespace

GLGraphicsLight::GLGraphicsLight(QGraphicsItem *parent)
    : QGraphicsObject(parent)
{
    setFlags(ItemIsMovable | ItemSendsGeometryChanges);
    setAcceptedMouseButtons(Qt::LeftButton);
    setCursor(Qt::OpenHandCursor);
    setToolTip(tr("Drag the light, or press P to bring it here"));
}

QRectF GLGraphicsLight::boundingRect() const
{
    const double size = scaled(iconSize) / double(m_displayScaleFactor);
    return {-size / 2.0, -size / 2.0, size, size};
}

QPainterPath GLGraphicsLight::shape() const
{
    QPainterPath path;
    path.addEllipse(boundingRect());
    return path;
}

void GLGraphicsLight::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter->drawImage(boundingRect(), icon());
}

QVector3D GLGraphicsLight::position() const
{
    return {float(scenePos().x()), float(scenePos().y()), m_height};
}

void GLGraphicsLight::setColor(const QColor &color)
{
    m_color = color;
    update();
}

void GLGraphicsLight::setDisplayScaleFactor(float factor)
{
    prepareGeometryChange();
    m_displayScaleFactor = factor;
}

QVariant GLGraphicsLight::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemPositionHasChanged)
        Q_EMIT moved();
    return QGraphicsObject::itemChange(change, value);
}

// Twice as large as it is shown, for screens of a higher resolution.
const QImage &GLGraphicsLight::icon()
{
    const QSize size = 2 * QSize(scaled(iconSize), scaled(iconSize));
    if (m_icon.size() == size && m_iconColor == m_color)
        return m_icon;
    m_icon = QImage(size, QImage::Format_ARGB32_Premultiplied);
    m_icon.fill(Qt::transparent);
    m_iconColor = m_color;
    QPainter painter(&m_icon);
    QSvgRenderer(iconSource(m_color)).render(&painter);
    return m_icon;
}
