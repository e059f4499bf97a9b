#pragma once

#include "imaging/PaintToolBlurParams.h"
#include "imaging/SynchronousUpdateAlgorithm.h"

/// Keeps the smoothness brush's blurred surface ready.
class PaintToolBlurJob : public SynchronousUpdateAlgorithm<PaintToolBlurParams, AngleImage>
{
public:
    AngleImage compute(const PaintToolBlurParams &params) override;
};
