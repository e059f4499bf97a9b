#pragma once

#include <QPointF>
#include <QVector>

/// A polygon: its vertices in order.
using GPolygonF = QVector<QPointF>;
