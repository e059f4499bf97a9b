#include "model/PropertyAngleImage.h"

std::shared_ptr<Property> PropertyAngleImage::newInstance() const
{
    return makeAlike<PropertyAngleImage>(key());
}

AngleImage PropertyAngleImage::angleImage() const
{
    return decode(value()).value_or(AngleImage());
}

void PropertyAngleImage::setAngleImage(const AngleImage &image, const QString &undoText)
{
    setValue(encode(image), undoText, false);
}

bool PropertyAngleImage::hasEmptySide() const
{
    const QSize size = angleImage().size();
    return (size.width() == 0) != (size.height() == 0);
}

void PropertyAngleImage::refuseDamagedBytes()
{
    if (decode(value()))
        return;
    auto damaged = std::make_shared<DataFile>(*dataFile());
    damaged->value.clear();
    damaged->damaged = true;
    setDataFile(damaged);
}
