#pragma once

#include <QStringList>

class QWidget;

/// What can be focused without a name, and texts of too little contrast.
QStringList readingFaultsOf(QWidget &window);
