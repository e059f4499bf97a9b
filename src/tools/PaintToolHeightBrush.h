#pragma once

#include "tools/PaintToolBrushBasedOnNormalMap.h"

QT_BEGIN_NAMESPACE
class QRadioButton;
QT_END_NAMESPACE

/// Raises or lowers the surface as if painting a height field.
class PaintToolHeightBrush : public PaintToolBrushBasedOnNormalMap
{
    Q_OBJECT

public:
    explicit PaintToolHeightBrush(QObject *parent = nullptr);

protected:
    QRect startStroke(const QPoint &point) override;
    QRect paintSegment(const QPoint &point) override;
    SurfacePiece strokeResult(const QRect &changed) override;

private:
    void createDirectionRow();
    void toggleDirection();
    QRect paint(const QPoint &from, const QPoint &to);

    QRadioButton *m_up = nullptr;
    QRadioButton *m_down = nullptr;
    bool m_isUp = true;
    double m_peak = 0.0; ///< of the stroke, in pixels, negative to carve
};
