#pragma once

#include <QPointF>

/// A circle by its centre and radius.
struct GCircle
{
    QPointF center;
    double radius = 0.0;

    bool operator==(const GCircle &) const = default;
};
