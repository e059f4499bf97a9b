#pragma once

#include <QIcon>
#include <QString>

/// The SVG file at @p path (a resource) as an icon in the colours of the present palette, crisp at
/// every size and pixel ratio. In the file, "#e8e8ea" stands for the text colour and "#f2b155" for
/// the accent. Checked, both take the colour that is read on the accent; disabled, the icon is
/// quiet. Null when the file can't be read.
QIcon themedIcon(const QString &path);
