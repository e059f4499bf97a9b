#pragma once

#include "tools/PaintToolBrushBasedOnNormalMap.h"

QT_BEGIN_NAMESPACE
class QPushButton;
QT_END_NAMESPACE

/// Flattens the surface.
class PaintToolEraser : public PaintToolBrushBasedOnNormalMap
{
    Q_OBJECT

public:
    explicit PaintToolEraser(QObject *parent = nullptr);

public Q_SLOTS:
    void updateSelection(FloatImage selection) override;
    void eraseAll();

protected:
    SurfacePiece strokeResult(const QRect &changed) override;

private:
    QPushButton *m_eraseAll;
};
