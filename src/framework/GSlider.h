#pragma once

#include <QSlider>
#include <QStyle>

/// A horizontal slider: a click takes the handle to its place, the wheel counts only with the
/// focus.
class GSlider : public QSlider
{
    Q_OBJECT

public:
    explicit GSlider(QWidget *parent = nullptr);

    /// Shows no value until one is set by the user.
    void setMixed(bool isMixed);

    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user chose @p value by the mouse, perhaps the present one.
    void picked(int value);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    QRect partRect(QStyle::SubControl part) const;
    void pickAt(int x);

    bool m_isMixed = false;
    int m_grabbedAt = 0; // of the pointer, from the handle's left edge
};
