#pragma once

#include "imaging/AngleImage.h"
#include "imaging/LitImage.h"

#include <QImage>
#include <QVector>

class Project;

/// A thumbnail shows no more bodies than these.
constexpr int mostThumbnailBodies = 4;

/// A lamp at @p place with the colours and the brightness that the project sets.
Light lampOf(const Project &project, const QVector3D &place);
/// The same above the upper left corner of a sprite, at the project's height.
Light thumbnailLamp(const Project &project);

/// A square of @p side pixels with one picture, or up to four, two in a row, each in the middle of
/// its cell. The pixels of small pictures stay squares of one size, large ones are shrunk.
QImage arrangedPictures(const QVector<QImage> &pictures, int side);

/// What a project's thumbnail is made of, as plain values for another thread.
struct ThumbnailParts
{
    struct Part
    {
        QImage sprite;
        AngleImage surface; ///< null where nothing is painted
    };
    QVector<Part> parts;
    Light lamp;
};

/// The first bodies whose sprite is loaded.
ThumbnailParts thumbnailPartsOf(const Project &project);
/// Null for no parts.
QImage litThumbnail(const ThumbnailParts &parts, int side);
