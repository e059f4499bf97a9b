#pragma once

#include "model/properties/PropertyDescriptionVisitor.h"

class PropertyDescription;
class PropertyEditor;
class QWidget;

/// Makes the editor for what a description tells: its type, its range and its label.
class PropertyEditorFactory : public PropertyDescriptionVisitor
{
public:
    /// A child of @p parent.
    static PropertyEditor *make(const PropertyDescription &description, QWidget *parent);

    void visit(const PropertyDescriptionInt &description) override;
    void visit(const PropertyDescriptionUnsignedInt &description) override;
    void visit(const PropertyDescriptionDouble &description) override;
    void visit(const PropertyDescriptionBool &description) override;
    void visit(const PropertyDescriptionString &description) override;
    void visit(const PropertyDescriptionFilename &description) override;
    void visit(const PropertyDescriptionColor &description) override;
    void visit(const PropertyDescriptionEnum &description) override;
    void visit(const PropertyDescriptionVector3D &description) override;
    void visit(const PropertyDescriptionReference &description) override;

private:
    explicit PropertyEditorFactory(PropertyEditor &editor)
        : m_editor(editor)
    {
    }
    void addChoice(const PropertyDescription &description);

    PropertyEditor &m_editor;
};
