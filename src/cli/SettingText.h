#pragma once

#include <QString>

class Property;

/// The value of a project's setting as it is typed and shown.
QString settingText(Property &setting);

/// Sets a setting from text. Throws Error that names the values that do.
void setSettingText(Property &setting, const QString &text);
