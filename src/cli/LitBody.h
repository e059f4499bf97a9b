#pragma once

#include "model/LitThumbnail.h"

class AngleImage;
class Body;
class Project;

/// Reads the body's sprite. Why it has no lit picture then; empty when it has one.
QString loadForLight(const Body &body);

/// The body in that light; its sprite is loaded.
QImage litBody(const Body &body, const Light &light);

/// The surface as a grey relief in that light.
QImage litSurface(const AngleImage &surface, const Light &light);

/// Writes a picture of the project in @p format. Throws Error, with nothing written, when it can't
/// be, or would replace the project or one of its sprites.
void writePicture(const Project &project,
                  const QImage &picture,
                  const QString &path,
                  const QByteArray &format);
