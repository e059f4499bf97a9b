#pragma once

#include <QStringList>

QT_BEGIN_NAMESPACE
class QDropEvent;
class QMimeData;
QT_END_NAMESPACE

/// The local files and folders among what @p data drags, in its order.
QStringList droppedPaths(const QMimeData &data);

/// Accepts @p event as a copy: a source that moves files would delete them after the drop.
void acceptCopy(QDropEvent &event);

/// True for the name of a project file, of the present form or of the former one.
bool isProjectFile(const QString &path);
