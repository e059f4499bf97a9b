#pragma once

/// How the sprites are shown; the number is known to the shaders.
enum class DisplayMode { Texture = 1, LitSurface = 2, LitTexture = 3, NormalMap = 4 };
