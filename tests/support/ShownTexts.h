#pragma once

#include <QStringList>

/// Texts of all windows and actions that are neither marked by PseudoLocale nor names, numbers or
/// files, and those that lack a German translation. Each is told once.
QStringList untranslatedTexts();

enum class FixedSizes { Skipped, Included };
/// Texts of what is shown that have less room than they need. Widgets of a fixed size can't grow
/// with a text: each translation chooses words that fit them.
QStringList clippedTexts(FixedSizes fixed);
