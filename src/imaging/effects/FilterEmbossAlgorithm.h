#pragma once

#include "imaging/SynchronousUpdateAlgorithm.h"
#include "imaging/effects/EmbossParams.h"

/// Raises a surface by the brightness of its sprite. Alpha is not consulted.
class FilterEmbossAlgorithm : public SynchronousUpdateAlgorithm<EmbossParams, AngleImage>
{
public:
    /// The surface with the relief's slopes added, in the size of the base; of the sprite where
    /// there is no base.
    AngleImage compute(const EmbossParams &params) override;
};
