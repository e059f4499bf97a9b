#pragma once

#include "model/properties/PropertyStruct.h"
#include "model/properties/PropertyTypes.h"

#include <QCoreApplication>
#include <QSize>

class AngleImage;
class PropertyAngleImage;
class Sprite;

/// One sprite being worked on, with its painted surface.
class Body : public PropertyStruct
{
    Q_DECLARE_TR_FUNCTIONS(Body)

public:
    explicit Body(UndoStackOwner &document);
    static QString tag();
    std::shared_ptr<Property> newInstance() const override;

    PropertyString &name() const { return *m_name; }
    Sprite &sprite() const { return *m_sprite; }
    PropertyAngleImage &paintedNormalMap() const { return *m_paintedNormalMap; }

    /// The painted surface; while there is none, a flat one of the sprite's size.
    AngleImage surface() const;
    /// Reads the sprite's file; its size is checked against the painted surface when there is one.
    void loadSprite() const;
    /// The size that loadSprite() expects, empty when nothing is painted.
    QSize paintedSize() const;

private:
    PropertyString *m_name;
    Sprite *m_sprite;
    PropertyAngleImage *m_paintedNormalMap;
};
