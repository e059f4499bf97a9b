#pragma once

#include <QIcon>

struct Capsule2D;

/// The shape of a brush: a value for each distance from a stroke's centre line. Call update() after
/// a change of size or softness.
class FloatBrush
{
public:
    virtual ~FloatBrush() = default;
    /// The value at @p distance pixels from the centre line.
    virtual float value(float distance) const = 0;
    /// The value at an offset from the brush's centre, in pixels.
    virtual float value(float dx, float dy) const = 0;
    /// Derives what depends on size and softness.
    virtual void update() {}

    /// The brush's diameter in pixels, −1 until it is set: circular brushes take their radius from
    /// sizeX, the bounds of a stroke from both.
    double sizeX = -1.0;
    double sizeY = -1.0;

protected:
    FloatBrush() = default;
    Q_DISABLE_COPY_MOVE(FloatBrush)
};

/// A brush whose values fall from its core to its edge.
class FloatBrushFunc : public FloatBrush
{
public:
    float value(float distance) const override = 0;
    float value(float dx, float dy) const override = 0;
    void update() override = 0;
    /// What the button of this contour shows.
    virtual QIcon icon() const = 0;

    /// Moves @p cells, which begin at pixel (@p x, @p y), up to the values that the brush has along
    /// @p segment, or down to them; cells beyond the radius are left alone.
    virtual void
    paintRowMax(const Capsule2D &segment, int x, int y, float *cells, int count) const = 0;
    virtual void
    paintRowMin(const Capsule2D &segment, int x, int y, float *cells, int count) const = 0;

    /// The value in the core: a height, negative to carve, or a coverage of 0 to 1.
    float amplitude = 0.0F;
    /// The falloff's share of the radius, 0 to 1.
    float softness = 0.0F;
};
