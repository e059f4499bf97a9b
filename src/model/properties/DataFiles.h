#pragma once

#include <QString>
#include <QVector>

#include <memory>

struct DataFile;

/// The data files of a project as the XML visitors see them.
class DataFiles
{
public:
    virtual ~DataFiles() = default;
    /// Takes a data file to be saved. Throws ErrorAlreadyExists when there is one of this @p id.
    virtual void add(const QString &id, const std::shared_ptr<DataFile> &file) = 0;
    /// The loaded data file of this @p id, still packed; null when there is none.
    virtual std::shared_ptr<DataFile> find(const QString &id) const = 0;
    /// Unpacks @p files, side by side; those that can't be unpacked are marked as damaged. Throws
    /// Error when there is not enough memory.
    virtual void unpack(const QVector<std::shared_ptr<DataFile>> &files) const = 0;
};
