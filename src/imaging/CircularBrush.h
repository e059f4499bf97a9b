#pragma once

#include "imaging/CircularProfile.h"
#include "imaging/FloatBrush.h"

/// A round brush that falls off by RimFunction.
template <class RimFunction>
class CircularBrush : public FloatBrushFunc
{
public:
    float value(float distance) const override;
    /// Reaches a ten thousandth of a pixel farther than the form above, on purpose.
    float value(float dx, float dy) const override;
    void update() override;
    QIcon icon() const override { return RimFunction::icon(); }
    void
    paintRowMax(const Capsule2D &segment, int x, int y, float *cells, int count) const override;
    void
    paintRowMin(const Capsule2D &segment, int x, int y, float *cells, int count) const override;

private:
    CircularProfile profile() const;

    CircularProfile m_derived;
    float m_outerSquared = 0.0F;
    float m_coreSquared = 0.0F;
};

using CircularBrushCos = CircularBrush<RimFunctionCos>;
using CircularBrushRamp = CircularBrush<RimFunctionRamp>;
using CircularBrushCircle = CircularBrush<RimFunctionCircle>;

extern template class CircularBrush<RimFunctionCos>;
extern template class CircularBrush<RimFunctionRamp>;
extern template class CircularBrush<RimFunctionCircle>;
