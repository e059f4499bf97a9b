#pragma once

#include <QStringList>
#include <QVariant>
#include <QVector>

class Property;

// Properties of one type and description taken together. A value is the property's own; that of an
// enumeration is the element's name, that of a reference the preset's.

/// What several properties have in common.
struct CommonValue
{
    QVariant value; ///< of the first one; invalid for a type that no editor knows
    bool isMixed = false;
};

CommonValue commonValue(const QVector<Property *> &properties);

/// Sets @p value on all by undo steps that never merge with others. Throws Error when it is none
/// that they may hold.
void setCommonValue(const QVector<Property *> &properties,
                    const QVariant &value,
                    const QString &undoText);

/// The names among which the value is chosen; empty where it is free.
QStringList choicesOf(Property &property);
