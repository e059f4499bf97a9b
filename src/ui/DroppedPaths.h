#pragma once

#include <QStringList>

QT_BEGIN_NAMESPACE
class QMimeData;
QT_END_NAMESPACE

/// The local files and folders among what @p data drags, in its order.
QStringList droppedPaths(const QMimeData &data);
