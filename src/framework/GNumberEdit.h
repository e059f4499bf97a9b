#pragma once

#include "framework/EditorKeys.h"
#include "framework/SliderScale.h"

#include <QWidget>

class GSlider;
class NumberSpinBox;

/// What the editors of numbers have in common: a slider and a spin box beside it. The wheel counts
/// only with the focus; Enter and Escape give the focus back to the document. Escape brings the
/// former value back.
class GNumberEdit : public QWidget
{
    Q_OBJECT

public:
    /// Linear slider.
    void setRange(double minimum, double maximum);
    /// Slider with @p middle in its middle.
    void setRange(double minimum, double middle, double maximum);
    /// Slider through @p scale.
    void setRange(double minimum, double maximum, const SliderScale &scale);
    /// The scale's range.
    void setScale(const SliderScale &scale) { setRange(scale.minimum(), scale.maximum(), scale); }
    void setSuffix(const QString &suffix);
    /// What accessibility tools call it; slider and spin box get it.
    void setLabel(const QString &label);
    /// Shows that several values differ: no number until one is set.
    void setMixed(bool isMixed);
    /// Without the slider the spin box takes the whole width.
    void setSliderVisible(bool isVisible);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// After a slider's drag, after Enter or when the focus leaves, if the user changed something:
    /// one edit ends here.
    void editingFinished();
    /// Escape ended the edit; the former value, or the mixed state, is back.
    void editingCancelled();

protected:
    GNumberEdit(int decimals, QWidget *parent);

    void setPrecision(int decimals);
    double number() const { return m_number; }
    /// Sends the number when it is another one.
    void setNumber(double number);
    /// Tells the world of number().
    virtual void sendNumber() = 0;

private:
    void change(double number);
    void finish();
    bool cancel();
    void store(double number);
    void showNumber();
    double fitting(double number) const;
    bool pressedOnSlider(int key);

    SliderScale m_scale;
    GSlider *m_slider;
    NumberSpinBox *m_spinBox;
    double m_number = 0;
    bool m_isMixed = false;
    // From the user's first change to the end of the edit:
    bool m_isEdited = false;
    double m_former = 0;
    bool m_wasMixed = false;
    EditorKeys m_keys{*this, [this] { finish(); }, [this] { return cancel(); }};
};
