#include "model/properties/PropertyByteArray.h"

void PropertyByteArray::accept(PropertyVisitor &visitor)
{
    visitor.visit(*this);
}

std::shared_ptr<Property> PropertyByteArray::newInstance() const
{
    return makeAlike<PropertyByteArray>(key());
}

const std::shared_ptr<DataFile> &PropertyByteArray::dataFile()
{
    if (!holdsDataFile()) {
        m_dataFile = std::make_shared<DataFile>();
        m_dataFile->value = value();
    }
    return m_dataFile;
}

std::shared_ptr<const DataFile> PropertyByteArray::keptDataFile() const
{
    return holdsDataFile() ? m_dataFile : nullptr;
}

void PropertyByteArray::setDataFile(const std::shared_ptr<DataFile> &file)
{
    m_dataFile = file;
    setValue(file->value);
}

bool PropertyByteArray::isDamaged() const
{
    return holdsDataFile() && m_dataFile->damaged;
}

// By address: as long as the data file shares the bytes, nothing else can stand at this place.
bool PropertyByteArray::holdsDataFile() const
{
    if (!m_dataFile)
        return false;
    if (value().isEmpty())
        return m_dataFile->value.isEmpty();
    return m_dataFile->value.constData() == value().constData() &&
           m_dataFile->value.size() == value().size();
}
