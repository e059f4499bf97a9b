#pragma once

// Sizes that all panels share, so that their rows align; multiplied by uiScaleFactor().

/// Height of a row's controls.
constexpr int controlHeight = 24;
/// Width of the column of labels at the left of rows.
constexpr int labelColumnWidth = 96;
/// Width of the numbers and colours at the right of rows.
constexpr int valueColumnWidth = 72;
/// Between the controls of a row, and between rows.
constexpr int controlSpacing = 8;
