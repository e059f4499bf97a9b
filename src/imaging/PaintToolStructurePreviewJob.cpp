#include "imaging/PaintToolStructurePreviewJob.h"

#include "imaging/LitImage.h"
#include "imaging/NormalEncoding.h"
#include "imaging/StructureSurface.h"

QImage PaintToolStructurePreviewJob::compute(const PaintToolStructureParams &params)
{
    const AngleImage surface = structureSurface(params);
    QImage normals = flatNormalMap(surface.size());
    toNormalMap(surface, normals);
    // What is flat stays about as grey as it is.
    Light light;
    light.ambient = QColor(90, 90, 90);
    light.place = {-1.0F, -1.0F, 1.25F};
    return litImage({}, normals, light);
}
