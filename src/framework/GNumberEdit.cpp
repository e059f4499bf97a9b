#include "framework/GNumberEdit.h"

#include "framework/ControlSizes.h"
#include "framework/GSlider.h"
#include "framework/NumberSpinBox.h"
#include "framework/UiScale.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>

#include <algorithm>
#include <cmath>

namespace {
constexpr double firstMaximum = 100; // until a range is set
constexpr int pageSteps = 10;        // as the spin box has it
} // namespace

GNumberEdit::GNumberEdit(int decimals, QWidget *parent)
    : QWidget(parent)
    , m_scale(0, firstMaximum)
    , m_slider(new GSlider(this))
    , m_spinBox(new NumberSpinBox(this))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(controlSpacing));
    row->addWidget(m_slider, 1);
    row->addWidget(m_spinBox, 1);
    setFocusProxy(m_spinBox);
    m_slider->setRange(0, SliderScale::stepCount - 1);
    m_spinBox->setPrecision(decimals);
    m_spinBox->setRange(0, firstMaximum);
    m_spinBox->setFixedHeight(scaled(controlHeight));
    setSliderVisible(true);

    connect(m_slider, &GSlider::picked, this, [this](int step) { change(m_scale.valueAt(step)); });
    connect(m_slider, &QSlider::sliderReleased, this, &GNumberEdit::finish);
    connect(m_spinBox, &NumberSpinBox::stepped, this, &GNumberEdit::change);
    m_slider->installEventFilter(this);
    m_keys.watch(*m_slider);
    m_keys.watch(*m_spinBox);
}

void GNumberEdit::setSuffix(const QString &suffix)
{
    m_spinBox->setUnit(suffix);
}

void GNumberEdit::setLabel(const QString &label)
{
    setAccessibleName(label);
    m_slider->setAccessibleName(label);
    m_spinBox->setLabel(label);
}

void GNumberEdit::setMixed(bool isMixed)
{
    if (isMixed == m_isMixed)
        return;
    m_isMixed = isMixed;
    m_isEdited = false;
    showNumber();
}

void GNumberEdit::setSliderVisible(bool isVisible)
{
    m_slider->setVisible(isVisible);
    m_spinBox->setMinimumWidth(isVisible ? scaled(valueColumnWidth) : 0);
    m_spinBox->setMaximumWidth(isVisible ? scaled(valueColumnWidth) : QWIDGETSIZE_MAX);
    m_spinBox->setSizePolicy(isVisible ? QSizePolicy::Fixed : QSizePolicy::Ignored,
                             QSizePolicy::Fixed);
}

bool GNumberEdit::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_slider)
        return QWidget::eventFilter(watched, event);
    // The slider's own steps are too fine for keys and wheel.
    if (event->type() == QEvent::Wheel)
        return QCoreApplication::sendEvent(m_spinBox, event);
    return event->type() == QEvent::KeyPress &&
           pressedOnSlider(static_cast<QKeyEvent *>(event)->key());
}

void GNumberEdit::setRange(double minimum, double maximum)
{
    setRange(minimum, maximum, SliderScale(minimum, maximum));
}

void GNumberEdit::setRange(double minimum, double middle, double maximum)
{
    setRange(minimum, maximum, SliderScale(minimum, middle, maximum));
}

void GNumberEdit::setRange(double minimum, double maximum, const SliderScale &scale)
{
    m_scale = scale;
    m_spinBox->setRange(minimum, maximum);
    setNumber(m_number);
    showNumber();
}

void GNumberEdit::setPrecision(int decimals)
{
    m_spinBox->setPrecision(decimals);
    showNumber();
}

void GNumberEdit::setNumber(double number)
{
    const double next = fitting(number);
    if (next == m_number && !m_isMixed)
        return;
    m_isEdited = false;
    store(next);
}

// By the user.
void GNumberEdit::change(double number)
{
    const double next = fitting(number);
    if (next == m_number && !m_isMixed) {
        showNumber();
        return;
    }
    if (!m_isEdited) {
        m_isEdited = true;
        m_former = m_number;
        m_wasMixed = m_isMixed;
    }
    store(next);
}

void GNumberEdit::finish()
{
    if (m_spinBox->takeTyped())
        change(m_spinBox->value());
    showNumber();
    if (std::exchange(m_isEdited, false))
        Q_EMIT editingFinished();
}

bool GNumberEdit::cancel()
{
    const bool wasTyped = m_spinBox->takeTyped();
    const bool wasEdited = std::exchange(m_isEdited, false);
    m_slider->setSliderDown(false);
    if (wasEdited && m_wasMixed)
        m_isMixed = true;
    else if (wasEdited)
        store(m_former);
    showNumber();
    if (wasEdited)
        Q_EMIT editingCancelled();
    return wasTyped || wasEdited;
}

void GNumberEdit::store(double number)
{
    m_number = number;
    m_isMixed = false;
    showNumber();
    sendNumber();
}

void GNumberEdit::showNumber()
{
    const QSignalBlocker sliderIsQuiet(m_slider);
    const QSignalBlocker spinBoxIsQuiet(m_spinBox);
    m_spinBox->setMixed(m_isMixed);
    m_spinBox->showNumber(m_number);
    m_slider->setMixed(m_isMixed);
    // A slider that is being dragged stays under the pointer.
    if (!m_slider->isSliderDown())
        m_slider->setValue(m_scale.stepOf(m_number));
}

double GNumberEdit::fitting(double number) const
{
    const double units = std::pow(10.0, m_spinBox->decimals());
    const double rounded = std::round(number * units) / units;
    return std::clamp(rounded, m_spinBox->minimum(), m_spinBox->maximum());
}

bool GNumberEdit::pressedOnSlider(int key)
{
    switch (key) {
    case Qt::Key_Left:
        m_spinBox->stepBy(isRightToLeft() ? 1 : -1);
        return true;
    case Qt::Key_Right:
        m_spinBox->stepBy(isRightToLeft() ? -1 : 1);
        return true;
    case Qt::Key_Down:
        m_spinBox->stepBy(-1);
        return true;
    case Qt::Key_Up:
        m_spinBox->stepBy(1);
        return true;
    case Qt::Key_PageDown:
        m_spinBox->stepBy(-pageSteps);
        return true;
    case Qt::Key_PageUp:
        m_spinBox->stepBy(pageSteps);
        return true;
    case Qt::Key_Home:
        change(m_spinBox->minimum());
        return true;
    case Qt::Key_End:
        change(m_spinBox->maximum());
        return true;
    default:
        return false;
    }
}
