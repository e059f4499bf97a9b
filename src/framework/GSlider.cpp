#include "framework/GSlider.h"

#include "framework/ControlSizes.h"
#include "framework/UiScale.h"

#include <QMouseEvent>
#include <QPainter>

namespace {
constexpr double handleRadius = 6;
constexpr double grooveRadius = 2;
constexpr double focusGap = 3; // between the handle and the ring that shows the focus

double margin()
{
    return (handleRadius + focusGap) * uiScaleFactor();
}
} // namespace

GSlider::GSlider(QWidget *parent)
    : QSlider(Qt::Horizontal, parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void GSlider::setMixed(bool isMixed)
{
    m_isMixed = isMixed;
    update();
}

QSize GSlider::sizeHint() const
{
    return {scaled(120), scaled(controlHeight)};
}

QSize GSlider::minimumSizeHint() const
{
    return {scaled(48), scaled(controlHeight)};
}

void GSlider::paintEvent(QPaintEvent *)
{
    const double scale = uiScaleFactor();
    const QPointF handle(handleX(), height() / 2.0);
    QRectF groove(margin(), 0, width() - 2 * margin(), 2 * grooveRadius * scale);
    groove.moveCenter({width() / 2.0, handle.y()});
    QColor empty = palette().color(QPalette::WindowText);
    empty.setAlphaF(0.28);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const auto drawGroove = [&](const QRectF &part, const QColor &color) {
        painter.setBrush(color);
        painter.drawRoundedRect(part, grooveRadius * scale, grooveRadius * scale);
    };
    drawGroove(groove, empty);
    if (m_isMixed)
        painter.setOpacity(0.4);
    else
        drawGroove(isRightToLeft() ? QRectF(QPointF(handle.x(), groove.top()), groove.bottomRight())
                                   : QRectF(groove.topLeft(), QPointF(handle.x(), groove.bottom())),
                   palette().color(QPalette::Highlight));

    const bool isLively = isSliderDown() || (underMouse() && isEnabled());
    const double radius = (isLively ? handleRadius + 1 : handleRadius) * scale;
    painter.setBrush(palette().color(QPalette::WindowText));
    painter.drawEllipse(handle, radius, radius);
    if (!hasFocus())
        return;
    painter.setOpacity(1);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5 * scale));
    painter.drawEllipse(handle, margin() - scale, margin() - scale);
}

void GSlider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const double offset = event->localPos().x() - handleX();
    // Taking hold of the handle does not move it.
    const bool holdsHandle = !m_isMixed && qAbs(offset) <= handleRadius * uiScaleFactor();
    m_grabbedAt = holdsHandle ? offset : 0;
    setSliderDown(true);
    if (!holdsHandle)
        pickAt(event->localPos().x());
    update();
}

void GSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (isSliderDown())
        pickAt(event->localPos().x());
}

void GSlider::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !isSliderDown())
        return;
    setSliderDown(false);
    update();
}

void GSlider::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QSlider::wheelEvent(event);
    else
        event->ignore();
}

// QSlider paints anew only the part that it takes for its handle.
bool GSlider::event(QEvent *event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QSlider::event(event);
}

double GSlider::handleX() const
{
    const double travel = width() - 2 * margin();
    const double share =
        maximum() > minimum() ? double(sliderPosition() - minimum()) / (maximum() - minimum()) : 0;
    return margin() + travel * (isRightToLeft() ? 1 - share : share);
}

void GSlider::pickAt(double x)
{
    const double travel = qMax(1.0, width() - 2 * margin());
    const double share = qBound(0.0, (x - m_grabbedAt - margin()) / travel, 1.0);
    const double fromStart = isRightToLeft() ? 1 - share : share;
    setSliderPosition(minimum() + qRound(fromStart * (maximum() - minimum())));
    Q_EMIT picked(sliderPosition());
    update();
}
