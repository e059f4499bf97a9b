#pragma once

#include <QWidget>

class SliderScale;

/// An integer, edited by a slider and a spin box beside it. The wheel counts only with the focus;
/// Enter and Escape give the focus back to the document. Escape brings the former value back.
class GIntEdit : public QWidget
{
    Q_OBJECT

public:
    explicit GIntEdit(QWidget *parent = nullptr);

    /// Linear slider.
    void setRange(int minimum, int maximum);
    /// Slider with @p middle in its middle.
    void setRange(int minimum, int middle, int maximum);
    /// Slider through @p scale.
    void setRange(int minimum, int maximum, const SliderScale &scale);
    void setSuffix(const QString &suffix);
    /// What accessibility tools call it; slider and spin box get it.
    void setLabel(const QString &label);
    /// Shows that several values differ: no number until one is set.
    void setMixed(bool isMixed);

    int value() const;

public Q_SLOTS:
    /// Sends valueChanged() when it is another value; clamped to the range.
    void setValue(int value);

Q_SIGNALS:
    void valueChanged(int value);
    /// After a slider's drag, after Enter or when the focus leaves: one edit ends here.
    void editingFinished();
};
