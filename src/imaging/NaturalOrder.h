#pragma once

#include <QStringList>

/// The names as a reader would order them: 2 before 10, case apart only where nothing else differs.
QStringList inNaturalOrder(QStringList names);
