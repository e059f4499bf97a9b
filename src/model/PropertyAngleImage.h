#pragma once

#include "imaging/AngleImage.h"
#include "model/properties/PropertyByteArray.h"

/// A painted surface as document data: its bytes are the surface's own, so that no second copy of
/// it is kept.
class PropertyAngleImage : public PropertyByteArray
{
public:
    using PropertyByteArray::PropertyByteArray;
    std::shared_ptr<Property> newInstance() const override;

    /// Null while nothing is painted.
    AngleImage angleImage() const;
    /// Sets the surface by one undo step of its own.
    void setAngleImage(const AngleImage &image, const QString &undoText);

    /// True for a surface of which just one side is 0. It counts as not painted, but no program
    /// makes such a one.
    bool hasEmptySide() const;

    /// Marks bytes that are no surface as damaged; the body counts as not painted then.
    void refuseDamagedBytes();
};
