#pragma once

#include "model/FileStamp.h"

#include <QByteArray>
#include <QImage>
#include <QString>

/// A sprite's file as it was read.
struct ReadImage
{
    bool opened = false; ///< the whole content could be read
    QByteArray md5Hex;   ///< of the whole content, whether it is an image or not
    QImage image;        ///< 8-bit ARGB, not premultiplied; null when it couldn't be decoded
    QString problem;     ///< why the file wasn't opened or decoded, for the log
    /// From before the content was read. None that any file has when it was so fresh that another
    /// content could come under the same stamp.
    FileStamp stamp;

    /// The problem in the user's language.
    QString shownProblem() const;
};

/// Reads a PNG or JPEG file, told by its content and not by its name. Only regular files of at most
/// 1 GiB are opened; images of more than 32768 pixels a side or 256 MiB decoded aren't decoded, nor
/// are files that end early, PNGs of more than 200,000 chunks, or JPEGs of more than 5000 segments,
/// of more than 100 scans, or of several scans with more than 2^31 pixels in all of them. No
/// decoder gets more than 30 seconds. The pixels stay as they are stored: no rotation, no colour
/// profile.
ReadImage readImageFile(const QString &path);
