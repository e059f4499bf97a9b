#pragma once

#include <QString>

/// What tells one state of a file from another without reading it.
struct FileStamp
{
    qint64 size = -1;       ///< bytes; -1 when there is no such file
    qint64 modified = 0;    ///< nanoseconds since 1970, as fine as the platform has it
    quint64 fileNumber = 0; ///< another one for a file that took its place; 0 where there is none

    bool exists() const { return size >= 0; }
    bool operator==(const FileStamp &) const = default;
};

/// The state of the file at @p path, links followed.
FileStamp stampOf(const QString &path);
