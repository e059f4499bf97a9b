#include "framework/GDoubleEdit.h"

GDoubleEdit::GDoubleEdit(QWidget *parent)
    : GNumberEdit(1, parent)
{
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
