#pragma once

#include <QByteArray>
#include <QString>

/// Replaces the file at @p path by one that holds @p bytes; what was there stays until the new one
/// is complete. Returns an empty text, or why it failed in the user's language.
QString writeFile(const QString &path, const QByteArray &bytes);
