#pragma once

#include "imaging/PaintToolStructureParams.h"
#include "imaging/SynchronousUpdateAlgorithm.h"

#include <QImage>

/// Makes a picture of the structure as it will look, grey and lit from the upper left, in the
/// parameters' size; owned by its tool and used by one task at a time.
class PaintToolStructurePreviewJob
    : public SynchronousUpdateAlgorithm<PaintToolStructureParams, QImage>
{
public:
    /// Null without a pattern or without a size.
    QImage compute(const PaintToolStructureParams &params) override;
};
