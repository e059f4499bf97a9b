#pragma once

#include <QString>

/// What stands in an editor in place of several values that differ.
inline QString mixedText()
{
    return QStringLiteral("\u2014");
}
