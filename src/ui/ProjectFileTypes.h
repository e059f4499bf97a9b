#pragma once

#include "framework/FileAssociation.h"

#include <QVector>

/// The types of project files in the order in which the desktop is told of them: the obsolete one
/// first, so that what both share is the present one's. The icon lies beside the executable, which
/// is in @p programFolder.
QVector<FileAssociation> projectFileTypes(const QString &programFolder);
