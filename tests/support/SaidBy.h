#pragma once

#include <QByteArray>
#include <QStringList>

/// What @p program says on both of its outputs; ends the test unless it ends with status 0.
QByteArray said(const QString &program, const QStringList &arguments);
