#pragma once

#include <QString>

/// A name in the quotation marks of the user's language, as it stands in a sentence.
QString quoted(const QString &name);
