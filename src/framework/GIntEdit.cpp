#include "framework/GIntEdit.h"

GIntEdit::GIntEdit(QWidget *parent)
    : GNumberEdit(0, parent)
{
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
