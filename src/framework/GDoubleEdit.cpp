#include "framework/GDoubleEdit.h"

GDoubleEdit::GDoubleEdit(QWidget *parent)
    : GNumberEdit(1, parent)
{
}

void GDoubleEdit::setRange(double minimum, double maximum)
{
    setScale(minimum, maximum, SliderScale(minimum, maximum));
}

void GDoubleEdit::setRange(double minimum, double middle, double maximum)
{
    setScale(minimum, maximum, SliderScale(minimum, middle, maximum));
}

void GDoubleEdit::setRange(double minimum, double maximum, const SliderScale &scale)
{
    setScale(minimum, maximum, scale);
}

void GDoubleEdit::setDecimals(int decimals)
{
    setPrecision(decimals);
}

double GDoubleEdit::value() const
{
    return number();
}

void GDoubleEdit::setValue(double value)
{
    setNumber(value);
}

void GDoubleEdit::sendNumber()
{
    Q_EMIT valueChanged(value());
}
