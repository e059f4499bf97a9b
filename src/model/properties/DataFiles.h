#pragma once

#include <QString>
#include <QVector>

#include <memory>

struct DataFile;
class PropertyByteArray;

/// The data files of a project as the XML visitors see them.
class DataFiles
{
public:
    virtual ~DataFiles() = default;
    /// Takes the bytes of @p property to be saved under its data file's id. Throws
    /// ErrorAlreadyExists when there is a data file of this id.
    virtual void add(PropertyByteArray &property) = 0;
    /// The loaded data file of this @p id, still packed; null when there is none.
    virtual std::shared_ptr<DataFile> find(const QString &id) const = 0;
    /// Unpacks @p files, side by side; those that can't be unpacked are marked as damaged. Throws
    /// Error when there is not enough memory.
    virtual void unpack(const QVector<std::shared_ptr<DataFile>> &files) const = 0;
};
