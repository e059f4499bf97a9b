#include "framework/NumberSpinBox.h"

#include "framework/MixedText.h"
#include "framework/NumberKeys.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

#include <cmath>

NumberSpinBox::NumberSpinBox(QWidget *parent)
    : QDoubleSpinBox(parent)
{
    setButtonSymbols(NoButtons);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setKeyboardTracking(false);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { m_isTyped = true; });
}

void NumberSpinBox::setLabel(const QString &label)
{
    setAccessibleName(label);
    lineEdit()->setAccessibleName(label);
}

void NumberSpinBox::setPrecision(int decimals)
{
    setDecimals(decimals);
    setSingleStep(std::pow(10.0, -decimals));
}

void NumberSpinBox::setUnit(const QString &unit)
{
    m_unit = unit;
    setSuffix(m_isMixed ? QString() : m_unit);
}

void NumberSpinBox::setMixed(bool isMixed)
{
    m_isMixed = isMixed;
    setSuffix(m_isMixed ? QString() : m_unit);
}

void NumberSpinBox::showNumber(double number)
{
    m_isTyped = false;
    setValue(number);
}

bool NumberSpinBox::takeTyped()
{
    if (!m_isTyped)
        return false;
    m_isTyped = false;
    interpretText();
    return true;
}

void NumberSpinBox::stepBy(int steps)
{
    takeTyped();
    Q_EMIT stepped(value() + steps * singleStep());
    // As in the toolkit: what is typed next replaces the number.
    if (hasFocus())
        selectAll();
}

QString NumberSpinBox::textFromValue(double value) const
{
    return m_isMixed ? mixedText() : QDoubleSpinBox::textFromValue(value);
}

double NumberSpinBox::valueFromText(const QString &text) const
{
    return text == mixedText() ? value() : QDoubleSpinBox::valueFromText(text);
}

QValidator::State NumberSpinBox::validate(QString &input, int &position) const
{
    if (input == mixedText())
        return QValidator::Acceptable;
    const auto state = QDoubleSpinBox::validate(input, position);
    bool isNumber = false;
    locale().toDouble(withoutUnit(input), &isNumber);
    return state == QValidator::Invalid && isNumber ? QValidator::Intermediate : state;
}

void NumberSpinBox::fixup(QString &input) const
{
    bool isNumber = false;
    const double number = locale().toDouble(withoutUnit(input), &isNumber);
    if (isNumber)
        input = QDoubleSpinBox::textFromValue(qBound(minimum(), number, maximum())) + suffix();
}

bool NumberSpinBox::event(QEvent *event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (!isOverride || !passesNumberField(static_cast<QKeyEvent &>(*event), m_isTyped))
        return QDoubleSpinBox::event(event);
    event->ignore();
    return true;
}

void NumberSpinBox::focusInEvent(QFocusEvent *event)
{
    QDoubleSpinBox::focusInEvent(event);
    // After the click, which sets the cursor: what is typed replaces the number.
    if (event->reason() == Qt::MouseFocusReason)
        QTimer::singleShot(0, this, &NumberSpinBox::selectAll);
}

QString NumberSpinBox::withoutUnit(const QString &text) const
{
    QString number = text;
    if (!suffix().isEmpty() && number.endsWith(suffix()))
        number.chop(suffix().size());
    return number.trimmed();
}
