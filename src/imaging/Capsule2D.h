#pragma once

#include <QVector2D>

/// The region within some distance of the segment from a to b; a point when both are the same.
struct Capsule2D
{
    Capsule2D(const QVector2D &from, const QVector2D &to)
        : a(from)
        , b(to)
        , d(to - from)
        , dd(d.x() * d.x() + d.y() * d.y())
    {
    }

    /// The squared distance from @p p to the segment.
    float distanceSquared(const QVector2D &p) const { return distanceSquared(p.x(), p.y()); }
    /// Without branches, so that loops of it become vectors: where the segment has no length the
    /// quotient is not a number, and not taken.
    float distanceSquared(float x, float y) const
    {
        const float vx = a.x() - x;
        const float vy = a.y() - y;
        const float wx = x - b.x();
        const float wy = y - b.y();
        const float before = d.x() * vx + d.y() * vy;
        const float beyond = d.x() * wx + d.y() * wy;
        const float along = before / dd;
        const float px = vx - along * d.x();
        const float py = vy - along * d.y();
        const float onSegment = beyond >= 0.0F ? wx * wx + wy * wy : px * px + py * py;
        return before >= 0.0F ? vx * vx + vy * vy : onSegment;
    }

    QVector2D a;
    QVector2D b;
    QVector2D d;
    float dd;
};
