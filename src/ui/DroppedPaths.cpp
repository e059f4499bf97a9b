#include "ui/DroppedPaths.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

QStringList droppedPaths(const QMimeData &data)
{
    QStringList paths;
    const auto urls = data.urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    return paths;
}

void acceptCopy(QDropEvent &event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

bool isProjectFile(const QString &path)
{
    return path.endsWith(QLatin1String(".vep"), Qt::CaseInsensitive) ||
           path.endsWith(QLatin1String(".vex"), Qt::CaseInsensitive);
}
