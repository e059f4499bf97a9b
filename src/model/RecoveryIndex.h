#pragma once

#include "model/FileStamp.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QSet>
#include <QString>

#include <optional>

/// What names all parts of a snapshot and comes last, so that with it the snapshot is complete: a
/// line of JSON, then the project's XML text.
struct RecoveryIndex
{
    QString projectPath;   ///< of the file that the project was saved in, empty for none
    FileStamp projectFile; ///< that file as it was when the project was read from or saved to it
    QDateTime time;        ///< when the project was as the snapshot tells
    QString thumbnail;     ///< the name of a PNG file, empty for none
    QHash<QString, QString> dataFiles; ///< the names of the files by the ids in the XML text
    QByteArray xml;

    /// The names of all files of the snapshot but its index.
    QSet<QString> fileNames() const;
    QByteArray toBytes() const;
    /// Nothing for bytes that are no such index.
    static std::optional<RecoveryIndex> fromBytes(const QByteArray &bytes);
};
