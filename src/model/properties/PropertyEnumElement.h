#pragma once

#include <QString>

/// One element of an enumeration: its numeric value, and the name under which it is saved.
struct PropertyEnumElement
{
    int value = 0;
    QString name;

    bool operator==(const PropertyEnumElement &) const = default;
};
