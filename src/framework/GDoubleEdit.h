#pragma once

#include <QWidget>

class SliderScale;

/// A number, edited by a slider and a spin box beside it. The wheel counts only with the focus;
/// Enter and Escape give the focus back to the document. Escape brings the former value back.
class GDoubleEdit : public QWidget
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
    void setSuffix(const QString &suffix);
    /// What accessibility tools call it; slider and spin box get it.
    void setLabel(const QString &label);
    /// Shows that several values differ: no number until one is set.
    void setMixed(bool isMixed);

    double value() const;

public Q_SLOTS:
    /// Sends valueChanged() when it is another value; clamped to the range.
    void setValue(double value);

Q_SIGNALS:
    void valueChanged(double value);
    /// After a slider's drag, after Enter or when the focus leaves: one edit ends here.
    void editingFinished();
};
