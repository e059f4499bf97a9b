#include "tools/AngleGlobeView.h"

#include "framework/ThemeColors.h"
#include "framework/UiScale.h"
#include "imaging/AngleGlobe.h"
#include "imaging/LitImage.h"
#include "imaging/NormalEncoding.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace {

constexpr int directions = 12;
constexpr int upwards = directions / 2;
constexpr int ringsInRadius = 4;
constexpr int lastRing = ringsInRadius - 1; // the next one is the rim, which the marker can't reach

// What the rim of the ball shows of a whole one: there, where slopes have no end, it would be black
// on one side and white on the other.
constexpr double shownShare = 0.95;

// A studio's ball: one light from the upper left, and a weak one from the front for the far side.
QImage litBall(int size)
{
    const AngleImage slopes = globeSlopes(qRound(size / shownShare), false);
    QImage normals(slopes.size(), QImage::Format_RGB32);
    toNormalMap(slopes, normals);
    Light front;
    front.brightness = 30.0;
    Light side;
    side.ambient = Qt::darkGray;
    side.brightness = 85.0;
    side.place = QVector3D(-0.65F, -0.75F, 0.8F);
    QImage lit = litImage({}, normals, side);
    QPainter painter(&lit);
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    painter.drawImage(0, 0, litImage({}, normals, front));
    painter.end();
    const int border = (lit.width() - size) / 2;
    return lit.copy(border, border, size, size);
}

// In pixels of the device, with a smooth edge.
QPixmap ballPixmap(int size)
{
    QPixmap ball(size, size);
    ball.fill(Qt::transparent);
    QPainter painter(&ball);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(litBall(size));
    painter.drawEllipse(ball.rect());
    return ball;
}

QPointF onCircle(int direction, double radius)
{
    const double angle = direction * 2.0 * M_PI / directions;
    return QPointF(std::sin(angle), std::cos(angle)) * radius;
}

QPoint stepOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

bool isResetKey(int key)
{
    return key == Qt::Key_Home || key == Qt::Key_Delete;
}

bool isOwnKey(const QKeyEvent &event)
{
    constexpr Qt::KeyboardModifiers allowed = Qt::ShiftModifier | Qt::KeypadModifier;
    const bool isPlain = (event.modifiers() & ~allowed) == Qt::NoModifier;
    return isPlain && (isResetKey(event.key()) || !stepOf(event.key()).isNull());
}

} // namespace

AngleGlobeView::AngleGlobeView(int globeSize, int margin, QWidget *parent)
    : QWidget(parent)
    , m_globeSize(globeSize)
    , m_direction(upwards)
{
    setFixedSize(globeSize + 2 * margin, globeSize + 2 * margin);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

void AngleGlobeView::setMarker(const QPointF &position)
{
    m_marker = position;
    update();
}

void AngleGlobeView::setDiscrete(bool isDiscrete)
{
    m_isDiscrete = isDiscrete;
    update();
}

double AngleGlobeView::radius() const
{
    return m_globeSize * 0.5;
}

bool AngleGlobeView::event(QEvent *event)
{
    // Before the window's shortcuts: Delete would remove a sprite.
    if (event->type() == QEvent::ShortcutOverride && isOwnKey(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void AngleGlobeView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    setCursor(Qt::BlankCursor);
    point(*event);
}

void AngleGlobeView::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        point(*event);
}

void AngleGlobeView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        unsetCursor();
}

void AngleGlobeView::hideEvent(QHideEvent *event)
{
    unsetCursor(); // a drag that is broken off has no release
    QWidget::hideEvent(event);
}

void AngleGlobeView::point(const QMouseEvent &event)
{
    const QPointF centre(width() / 2.0, height() / 2.0);
    Q_EMIT pointed(heldOnGlobe(event.localPos() - centre, m_globeSize));
}

void AngleGlobeView::keyPressEvent(QKeyEvent *event)
{
    if (!isOwnKey(*event)) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (isResetKey(event->key())) {
        Q_EMIT resetRequested();
        return;
    }
    const QPoint step = stepOf(event->key());
    const bool isFar = event->modifiers().testFlag(Qt::ShiftModifier);
    Q_EMIT pointed(m_isDiscrete ? turned(step, isFar) : moved(step, isFar));
}

QPointF AngleGlobeView::moved(const QPoint &step, bool isFar) const
{
    constexpr int farStep = 8;
    return heldOnGlobe(m_marker + step * scaled(isFar ? farStep : 1), m_globeSize);
}

// Right goes on clockwise, up goes out to the next ring; both as far as they can with Shift.
QPointF AngleGlobeView::turned(const QPoint &step, bool isFar)
{
    constexpr int quarter = directions / 4;
    const double ringStep = radius() / ringsInRadius;
    const int ring = qRound(std::hypot(m_marker.x(), m_marker.y()) / ringStep);
    if (ring > 0)
        m_direction = qRound(std::atan2(m_marker.x(), m_marker.y()) * directions / (2.0 * M_PI));
    m_direction -= step.x() * (isFar ? quarter : 1);
    const int newRing = std::clamp(ring - step.y() * (isFar ? lastRing : 1), 0, lastRing);
    // In the middle of what snaps there, where no rounding leads astray.
    return onCircle(m_direction, newRing > 0 ? (newRing + 0.5) * ringStep : 0.0);
}

void AngleGlobeView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(0.4);
    painter.translate(width() / 2.0, height() / 2.0);
    drawBall(painter);
    drawRim(painter);
    if (m_isDiscrete)
        drawSnapLines(painter);
    drawMarker(painter);
}

void AngleGlobeView::drawBall(QPainter &painter)
{
    const double ratio = devicePixelRatioF();
    const int size = qRound(m_globeSize * ratio);
    if (m_ball.width() != size)
        m_ball = ballPixmap(size);
    m_ball.setDevicePixelRatio(ratio);
    painter.drawPixmap(QPointF(-radius(), -radius()), m_ball);
}

void AngleGlobeView::drawRim(QPainter &painter) const
{
    if (!hasFocus() && !underMouse())
        return;
    const ThemeColors colors = themeColors(palette());
    const double distance = radius() + 3.0 * uiScaleFactor();
    painter.setPen(QPen(hasFocus() ? colors.accent : colors.field, 1.5 * uiScaleFactor()));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(), distance, distance);
}

void AngleGlobeView::drawSnapLines(QPainter &painter) const
{
    const double ringStep = radius() / ringsInRadius;
    painter.setPen(QPen(QColor(0, 0, 0, 100), uiScaleFactor()));
    painter.setBrush(Qt::NoBrush);
    for (int ring = 1; ring <= lastRing; ++ring)
        painter.drawEllipse(QPointF(), ring * ringStep, ring * ringStep);
    for (int direction = 0; direction < directions; ++direction)
        painter.drawLine(onCircle(direction, ringStep), onCircle(direction, radius()));
}

// A ring, and a line from the centre that shows the direction. On the ball, which is alike in both
// themes, the dark theme's accent is seen best.
void AngleGlobeView::drawMarker(QPainter &painter) const
{
    const ThemeColors colors = themeColors(themePalette(true));
    const double scale = uiScaleFactor();
    const double ring = 6.0 * scale;
    const double distance = std::hypot(m_marker.x(), m_marker.y());
    const QPointF edge = m_marker * std::max(1.0 - ring / std::max(distance, ring), 0.0);
    const auto draw = [&](const QColor &color, double lineWidth, double ringWidth) {
        painter.setPen(QPen(color, lineWidth * scale, Qt::SolidLine, Qt::RoundCap));
        if (distance > ring)
            painter.drawLine(QPointF(), edge);
        painter.setPen(QPen(color, ringWidth * scale));
        painter.drawEllipse(m_marker, ring, ring);
    };
    painter.setBrush(Qt::NoBrush);
    draw(colors.onAccent, 3.5, 5.0);
    draw(colors.accent, 1.5, 2.5);
}
