#pragma once

#include <QStringList>

#include <functional>

class QMenu;

/// Adds an entry that opens the sample project to @p menu, where that is installed.
void addSampleAction(QMenu &menu, const std::function<void(const QStringList &)> &open);
