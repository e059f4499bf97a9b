#pragma once

#include "preview/SceneLight.h"

#include <QImage>
#include <QVector3D>

class GLGraphicsSprite;

/// @p sprite as the lit texture shows it, in its own size and without a selection, drawn in an
/// OpenGL context of its own; in QImage::Format_ARGB32, transparent around. Null when there is no
/// such context. @p lightPosition is in pixels of the scene, z its height. Throws Error.
QImage
litSprite(const GLGraphicsSprite &sprite, const SceneLight &light, const QVector3D &lightPosition);
