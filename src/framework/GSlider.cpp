#include "framework/GSlider.h"

#include "framework/ControlSizes.h"
#include "framework/UiScale.h"

#include <QMouseEvent>
#include <QStyleOptionSlider>
#include <QStylePainter>

GSlider::GSlider(QWidget *parent)
    : QSlider(Qt::Horizontal, parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(scaled(controlHeight));
}

void GSlider::setMixed(bool isMixed)
{
    m_isMixed = isMixed;
    update();
}

QSize GSlider::minimumSizeHint() const
{
    return {scaled(2 * controlHeight), scaled(controlHeight)};
}

void GSlider::paintEvent(QPaintEvent *)
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.subControls = QStyle::SC_SliderGroove | QStyle::SC_SliderHandle;
    if (isSliderDown()) {
        option.activeSubControls = QStyle::SC_SliderHandle;
        option.state |= QStyle::State_Sunken;
    }
    if (m_isMixed) {
        option.sliderPosition = option.minimum;
        option.state.setFlag(QStyle::State_Enabled, hasFocus());
    }
    QStylePainter(this).drawComplexControl(QStyle::CC_Slider, option);
}

// The place under the pointer is taken in every style, and a held handle does not jump.
void GSlider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const QRect handle = partRect(QStyle::SC_SliderHandle);
    const bool holdsHandle = !m_isMixed && handle.contains(event->pos());
    m_grabbedAt = holdsHandle ? event->pos().x() - handle.left() : handle.width() / 2;
    setSliderDown(true);
    if (!holdsHandle)
        pickAt(event->pos().x());
    update();
}

void GSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (isSliderDown())
        pickAt(event->pos().x());
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

QRect GSlider::partRect(QStyle::SubControl part) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_Slider, &option, part, this);
}

void GSlider::pickAt(int x)
{
    const QRect groove = partRect(QStyle::SC_SliderGroove);
    const int travel = groove.width() - partRect(QStyle::SC_SliderHandle).width();
    const int position = x - m_grabbedAt - groove.left();
    setSliderPosition(QStyle::sliderValueFromPosition(
        minimum(), maximum(), position, travel, isRightToLeft() != invertedAppearance()));
    Q_EMIT picked(sliderPosition());
    update();
}
