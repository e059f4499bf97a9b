#pragma once

#include <QColor>

/// The light settings that are the same for the whole scene.
struct SceneLight
{
    QColor color = Qt::white; ///< its alpha is the intensity
    QColor ambient = QColor(0x80, 0x80, 0x80);
    float brightness = 100.0F; ///< percent

    bool operator==(const SceneLight &) const = default;
};
