#pragma once

/// How much larger than at 96 dots an inch the user wants the interface: the logical resolution of
/// the primary screen over 96. Sizes in pixels are multiplied by it. 1 before there is a screen.
double uiScaleFactor();

/// @p pixels scaled and rounded.
int scaled(int pixels);
