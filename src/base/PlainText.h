#pragma once

#include <QString>

/// @p text without the characters that a name can't hold: control characters, line ends included,
/// and what XML has no way to write (lone surrogates, U+FFFE, U+FFFF).
QString plainText(const QString &text);

/// True when plainText() would leave @p text as it is.
bool isPlainText(const QString &text);

/// True when @p text leads to no other folder as a part of a file's name.
bool fitsInFileName(const QString &text);
