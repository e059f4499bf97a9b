#pragma once

#include "framework/GNumberEdit.h"

/// A number, edited by a slider and a spin box beside it.
class GDoubleEdit : public GNumberEdit
{
    Q_OBJECT

public:
    explicit GDoubleEdit(QWidget *parent = nullptr);

    /// Linear slider.
    void setRange(double minimum, double maximum);
    /// Slider with @p middle in its middle.
    void setRange(double minimum, double middle, double maximum);
    /// Slider through @p scale.
    void setRange(double minimum, double maximum, const SliderScale &scale);
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
