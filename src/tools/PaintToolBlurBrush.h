#pragma once

#include "imaging/PaintToolBlurJob.h"
#include "tools/BackgroundResult.h"
#include "tools/PaintToolBrushFromSurface.h"

QT_BEGIN_NAMESPACE
class QPushButton;
QT_END_NAMESPACE

/// Turns the surface to a blurred copy of itself, which is kept up to date in the background.
class PaintToolBlurBrush : public PaintToolBrushFromSurface
{
    Q_OBJECT

public:
    explicit PaintToolBlurBrush(QObject *parent = nullptr);

    void activate(const ToolContext &context, const AngleImage &image) override;
    void deactivate() override;

public Q_SLOTS:
    void updateNormalMap(AngleImage normalmap) override;
    void updateSelection(FloatImage selection) override;
    /// Waits for the blurred surface.
    void blurAll();
    void blurRadiusChanged(double radius);
    void newBlurredImageAvailable();

protected:
    SurfacePiece strokeResult(const QRect &changed) override;

private:
    void requestBlur();

    double m_smoothness = 3.0; ///< radius in pixels
    QPushButton *m_command;
    PaintToolBlurJob m_job;
    BackgroundResult<PaintToolBlurParams, AngleImage> m_blur{&m_job};
};
