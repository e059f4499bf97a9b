#pragma once

#include "imaging/StrokeResults.h"
#include "tools/PaintToolBrushBased.h"

/// A brush that says by one hook what a stroke makes of the surface.
class PaintToolBrushBasedOnNormalMap : public PaintToolBrushBased
{
    Q_OBJECT

public:
    using PaintToolBrushBased::PaintToolBrushBased;

public Q_SLOTS:
    /// Announces an open stroke again.
    void updateSelection(FloatImage selection) override;

protected:
    /// What stroke() makes of the surface in @p changed, which may lie partly outside of it.
    virtual SurfacePiece strokeResult(const QRect &changed) = 0;
    void announce() override;
    /// Announces the whole stroke again, when what it makes of the surface has changed.
    void announceAgain();

private:
    void show(const QRect &changed);
};
