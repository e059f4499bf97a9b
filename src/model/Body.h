#pragma once

#include "model/properties/PropertyStruct.h"
#include "model/properties/PropertyTypes.h"

#include <QCoreApplication>
#include <QPoint>
#include <QSize>

#include <optional>

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
    /// Where the sprite was moved to; its default, which is no place(), until it is.
    PropertyPointF &position() const { return *m_position; }

    /// How far from the origin a place may be: views count in integers, at their highest zoom too.
    static constexpr int farthestPlace = 1 << 20;
    /// The top left corner of a sprite that was moved, in whole pixels of the view. None for one
    /// that was not, which the view places by itself, nor for a position that is no place.
    std::optional<QPoint> place() const;
    /// Moves the sprite by one undo step, as far as places go.
    void moveTo(const QPoint &place, const QString &undoText);

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
    PropertyPointF *m_position;
};
