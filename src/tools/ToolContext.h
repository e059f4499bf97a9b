#pragma once

#include "imaging/FloatImage.h"

#include <QImage>

/// What a tool that becomes active is told of the body, besides its surface.
struct ToolContext
{
    QImage texture;       ///< the sprite's image
    FloatImage selection; ///< weights of its pixels; null when none are selected
};
