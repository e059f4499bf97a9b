#include "cli/Effects.h"

#include "cli/TypedValues.h"
#include "imaging/SlopeArithmetic.h"
#include "imaging/StructureSurface.h"
#include "imaging/effects/FilterCreateRimAlgorithm.h"
#include "imaging/effects/FilterEmbossAlgorithm.h"

RimParams bevelParams(const TypedValues &values, bool isDown, bool isTile)
{
    RimParams params;
    params.rimWidth = values.wholeNumber(QStringLiteral("width"), 0, 255, params.rimWidth);
    params.rimHeight = values.wholeNumber(QStringLiteral("height"), 25, 400, params.rimHeight);
    params.smoothness = values.wholeNumber(QStringLiteral("smoothness"), 0, 255, params.smoothness);
    params.tileMode = isTile;
    params.up = !isDown;
    return params;
}

EmbossParams embossParams(const TypedValues &values, bool isDown)
{
    EmbossParams params;
    params.height = float(values.number(QStringLiteral("height"), 0.1, 10.0, 1.0));
    params.smoothness = values.wholeNumber(QStringLiteral("smoothness"), 1, 9, params.smoothness);
    params.up = !isDown;
    return params;
}

PaintToolStructureParams structureParams(const TypedValues &values)
{
    PaintToolStructureParams params;
    params.intensity = values.number(QStringLiteral("intensity"), 0.1, 20.0, params.intensity);
    params.scale = values.number(QStringLiteral("scale"), 10.0, 400.0, 100.0) / 100.0;
    params.rotation = values.number(QStringLiteral("rotation"), 0.0, 359.0, params.rotation);
    return params;
}

AngleImage beveled(RimParams params, const AngleImage &surface, const QImage &sprite)
{
    params.base = surface;
    params.sprite = sprite;
    // An algorithm of its own: the distances that it keeps are for whoever tries parameters.
    return FilterCreateRimAlgorithm().compute(params);
}

AngleImage embossed(EmbossParams params, const AngleImage &surface, const QImage &sprite)
{
    params.base = surface;
    params.sprite = sprite;
    return FilterEmbossAlgorithm().compute(params);
}

AngleImage structured(PaintToolStructureParams params, AngleImage surface)
{
    params.size = surface.size();
    addSlopes(surface, {}, {0, 0}, structureSurface(params));
    return surface;
}
