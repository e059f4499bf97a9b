#include "framework/GIntEdit.h"

GIntEdit::GIntEdit(QWidget *parent)
    : GNumberEdit(0, parent)
{
}

void GIntEdit::setRange(int minimum, int maximum)
{
    setScale(minimum, maximum, SliderScale(minimum, maximum));
}

void GIntEdit::setRange(int minimum, int middle, int maximum)
{
    setScale(minimum, maximum, SliderScale(minimum, middle, maximum));
}

void GIntEdit::setRange(int minimum, int maximum, const SliderScale &scale)
{
    setScale(minimum, maximum, scale);
}

int GIntEdit::value() const
{
    return int(number());
}

void GIntEdit::setValue(int value)
{
    setNumber(value);
}

void GIntEdit::sendNumber()
{
    Q_EMIT valueChanged(value());
}
