#pragma once

#include "model/properties/GUndoStack.h"
#include "model/properties/PropertyPresetCollection.h"
#include "model/properties/PropertyStruct.h"
#include "model/properties/UndoStackOwner.h"

/// The root of a document: a struct that owns the undo stack and, as its first field, the preset
/// collections.
class GProject : public UndoStackOwner, public PropertyStruct
{
public:
    explicit GProject(const QString &key, const PropertyDescriptionList *descriptions = nullptr);

    void accept(PropertyVisitor &visitor) override;
    std::shared_ptr<Property> newInstance() const override;
    GUndoStack &undoStack() override { return m_undoStack; }

    /// The presets of @p type. Throws ErrorDoesNotExist.
    PropertyPresetCollection &presetCollection(const QString &type) const;
    /// Adds presets of @p type with settings like those of @p prototype, which has the key "data",
    /// without an undo step.
    /// Throws ErrorAlreadyExists when there are such presets.
    PropertyPresetCollection &addPresetCollection(const QString &type,
                                                  const std::shared_ptr<PropertyStruct> &prototype);

private:
    PropertyPresetCollection *findCollection(const QString &type) const;

    PropertyListT<PropertyPresetCollection> &m_presetCollections;
    GUndoStack m_undoStack;
};
