#pragma once

#include <QString>

QT_BEGIN_NAMESPACE
class QKeySequence;
QT_END_NAMESPACE

/// What @p keys do everywhere, so that they can't run a command too, in a sentence; empty for keys
/// that are free.
QString reservedFor(const QKeySequence &keys);
