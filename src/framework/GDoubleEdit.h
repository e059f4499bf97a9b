#pragma once

#include "framework/GNumberEdit.h"

/// A number, edited by a slider and a spin box beside it.
class GDoubleEdit : public GNumberEdit
{
    Q_OBJECT

public:
    explicit GDoubleEdit(QWidget *parent = nullptr);

    /// Digits after the point, 1 at first.
    void setDecimals(int decimals);

    double value() const;

public Q_SLOTS:
    /// Sends valueChanged() when it is another value; clamped to the range and rounded to the
    /// decimals.
    void setValue(double value);

Q_SIGNALS:
    void valueChanged(double value);

protected:
    void sendNumber() override;
};
