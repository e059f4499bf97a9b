#pragma once

/// What the mouse does in the scene.
enum class InteractionMode {
    MoveSprites = 0,
    ViewOnly = 1, ///< nothing but looking: while Space is held
    Tool = 2      ///< events go to the active tool
};
