#pragma once

#include <QDoubleSpinBox>

/// The number of a number editor, right-aligned with its unit. Typed numbers are taken when the
/// edit ends, and brought into the range instead of being refused.
class NumberSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit NumberSpinBox(QWidget *parent = nullptr);

    /// What accessibility tools call it and the text in it.
    void setLabel(const QString &label);
    /// Also the smallest step.
    void setPrecision(int decimals);
    void setUnit(const QString &unit);
    /// Shows a dash instead of the number.
    void setMixed(bool isMixed);
    void showNumber(double number);
    /// Turns what was typed into the value. False when nothing was typed since showNumber().
    bool takeTyped();

    void stepBy(int steps) override;
    QString textFromValue(double value) const override;
    double valueFromText(const QString &text) const override;
    QValidator::State validate(QString &input, int &position) const override;
    void fixup(QString &input) const override;
    bool event(QEvent *event) override;

Q_SIGNALS:
    /// The user asks for @p number by keys or wheel; it may lie outside of the range.
    void stepped(double number);

protected:
    void focusInEvent(QFocusEvent *event) override;

private:
    QString withoutUnit(const QString &text) const;

    QString m_unit;
    bool m_isMixed = false;
    bool m_isTyped = false;
};
