#pragma once

#include "imaging/AngleImage.h"
#include "imaging/PaintToolStructureParams.h"
#include "imaging/SynchronousUpdateAlgorithm.h"

/// Makes the structure that the brush adds; owned by its tool and used by one task at a time.
class PaintToolStructureJob
    : public SynchronousUpdateAlgorithm<PaintToolStructureParams, AngleImage>
{
public:
    AngleImage compute(const PaintToolStructureParams &params) override;
};
