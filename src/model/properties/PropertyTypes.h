#pragma once

#include <QtContainerFwd>

QT_BEGIN_NAMESPACE
class QColor;
class QPointF;
class QRectF;
class QString;
class QVector3D;
QT_END_NAMESPACE

struct GCircle;
class GFileName;
using GPolygonF = QVector<QPointF>;

class GProject;
class Property;
class PropertyByteArray;
class PropertyEnum;
class PropertyList;
class PropertyPreset;
class PropertyPresetCollection;
class PropertyReference;
class PropertyStruct;

template <class T>
class PropertyValue;

using PropertyInt = PropertyValue<int>;
using PropertyUnsignedInt = PropertyValue<unsigned int>;
using PropertyDouble = PropertyValue<double>;
using PropertyBool = PropertyValue<bool>;
using PropertyString = PropertyValue<QString>;
using PropertyColor = PropertyValue<QColor>;
using PropertyPointF = PropertyValue<QPointF>;
using PropertyRect = PropertyValue<QRectF>;
using PropertyVector3D = PropertyValue<QVector3D>;
using PropertyCircle = PropertyValue<GCircle>;
using PropertyPolygon = PropertyValue<GPolygonF>;
using PropertyFilename = PropertyValue<GFileName>;
