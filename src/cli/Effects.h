#pragma once

#include "imaging/PaintToolStructureParams.h"
#include "imaging/effects/EmbossParams.h"
#include "imaging/effects/RimParams.h"

class TypedValues;

// The parameters of effects from what was typed, without sprite and surface. All throw Error that
// names the option and its range.

RimParams bevelParams(const TypedValues &values, bool isDown, bool isTile);
EmbossParams embossParams(const TypedValues &values, bool isDown);
/// Without the pattern.
PaintToolStructureParams structureParams(const TypedValues &values);

// The effects on one body; where the surface is null, it is flat in the sprite's size.

AngleImage beveled(RimParams params, const AngleImage &surface, const QImage &sprite);
AngleImage embossed(EmbossParams params, const AngleImage &surface, const QImage &sprite);
/// The surface is not null here.
AngleImage structured(PaintToolStructureParams params, AngleImage surface);
