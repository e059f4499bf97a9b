#pragma once

#include "model/properties/PropertyT.h"

#include <QByteArray>

#include <memory>

/// Bytes as a data file of the project holds them, beside the bytes themselves. Packing takes long:
/// who keeps this need not pack an unchanged value again.
struct DataFile
{
    QByteArray value;
    QByteArray packed;    // compressed; empty while that was not done yet
    bool damaged = false; // packed can't be unpacked or is missing, value is empty
};

/// A byte array, saved as a data file of its own.
class PropertyByteArray : public PropertyT<QByteArray>
{
public:
    using PropertyT::PropertyT;
    void accept(PropertyVisitor &visitor) override;
    std::shared_ptr<Property> newInstance() const override;

    /// Names the data file; empty until first saved or loaded. Never copied to another property,
    /// or a project would hold two data files of one name.
    const QString &dataFileId() const { return m_dataFileId; }
    void setDataFileId(const QString &id) { m_dataFileId = id; }

    /// The data file of the present value: the one last loaded or saved when the value is still
    /// the same, else a new one.
    const std::shared_ptr<DataFile> &dataFile();
    /// The one last loaded or saved as long as the value is still the same, else null.
    std::shared_ptr<const DataFile> keptDataFile() const;
    /// Takes @p file over as loaded, its value included.
    void setDataFile(const std::shared_ptr<DataFile> &file);
    /// True while the value is missing because its data file could not be read.
    bool isDamaged() const;

private:
    bool holdsDataFile() const;

    QString m_dataFileId;
    std::shared_ptr<DataFile> m_dataFile;
};
