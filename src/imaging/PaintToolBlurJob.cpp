#include "imaging/PaintToolBlurJob.h"

#include "imaging/Smoothing.h"

AngleImage PaintToolBlurJob::compute(const PaintToolBlurParams &params)
{
    return smoothened(params.image, params.radius);
}
