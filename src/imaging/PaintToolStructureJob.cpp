#include "imaging/PaintToolStructureJob.h"

#include "imaging/StructureSurface.h"

AngleImage PaintToolStructureJob::compute(const PaintToolStructureParams &params)
{
    return structureSurface(params);
}
