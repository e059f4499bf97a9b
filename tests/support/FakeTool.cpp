#include "support/FakeTool.h"

#include <QtMath>

void FakeTool::activate(const ToolContext &context, const AngleImage &image)
{
    surface = image;
    log(QStringLiteral("activate"), context.texture.size());
    Q_EMIT interactionModeChanged(mode);
}

void FakeTool::deactivate()
{
    if (commitsLate)
        Q_EMIT commitNormalMap(QStringLiteral("stroke"));
    log(QStringLiteral("deactivate"));
}

void FakeTool::mouseRelease(const ToolPointerEvent &event)
{
    log("release", event);
    if (paints && !commitsLate)
        Q_EMIT commitNormalMap(QStringLiteral("stroke"));
}

void FakeTool::keyPress(int key, Qt::KeyboardModifiers)
{
    log(QStringLiteral("key %1").arg(key, 0, 16));
}

void FakeTool::keyRelease(int key, Qt::KeyboardModifiers)
{
    log(QStringLiteral("key up %1").arg(key, 0, 16));
}

void FakeTool::updateNormalMap(AngleImage normalmap)
{
    surface = normalmap;
    log(QStringLiteral("surface"), surface.size());
}

void FakeTool::updateSelection(FloatImage selection)
{
    log(QStringLiteral("selection"), selection.size());
}

void FakeTool::log(const QString &what, const QSize &size)
{
    log(QStringLiteral("%1 %2x%3").arg(what).arg(size.width()).arg(size.height()));
}

void FakeTool::log(const char *what, const ToolPointerEvent &event)
{
    lastEvent = event;
    pressures.append(event.pressure);
    log(QStringLiteral("%1 %2,%3")
            .arg(QLatin1String(what))
            .arg(qFloor(event.position.x()))
            .arg(qFloor(event.position.y())));
    const QPoint pixel(qFloor(event.position.x()), qFloor(event.position.y()));
    if (paints && event.buttons != Qt::NoButton)
        Q_EMIT temporaryNormalMapChanged(AngleImage(1, 1, 256), QRect(pixel, QSize(1, 1)));
}
