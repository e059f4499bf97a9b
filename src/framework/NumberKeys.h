#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QKeyEvent;
QT_END_NAMESPACE

/// Whether @p event, which a field for numbers would keep to itself, belongs to the window: letters
/// and signs that no number takes, and undo and redo unless text is being typed (@p isTyped). A
/// field refuses the shortcut override of such a key.
bool passesNumberField(const QKeyEvent &event, bool isTyped);
