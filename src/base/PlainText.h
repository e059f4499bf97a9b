#pragma once

#include <QByteArray>
#include <QString>

/// @p text without the characters that a name can't hold: control characters, line ends included,
/// and what XML has no way to write (lone surrogates, U+FFFE, U+FFFF).
QString plainText(const QString &text);

/// True when plainText() would leave @p text as it is.
bool isPlainText(const QString &text);

/// True when @p text leads to no other folder as a part of a file's name.
bool fitsInFileName(const QString &text);

/// @p text, which may be any file's name, in one line: what would break the line, turn its
/// direction or steer a terminal stands there as "\n", "\r", "\t", or "\u" and four digits.
QString shownText(const QString &text);

/// The same of each line of @p text, which stay lines.
QString shownLines(const QString &text);

/// @p bytes, a name that need not be UTF-8, as shownText() with "\xXX" for what is not.
QString shownBytes(const QByteArray &bytes);
