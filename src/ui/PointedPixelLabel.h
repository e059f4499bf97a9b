#pragma once

#include <QLabel>

struct PointedPixel;

/// What the pixel below the pointer holds, in the status bar.
class PointedPixelLabel : public QLabel
{
    Q_OBJECT

public:
    explicit PointedPixelLabel(QWidget *parent = nullptr);

    void showPixel(const PointedPixel &pixel);
};
