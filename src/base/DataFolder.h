#pragma once

#include <QString>

/// The folder of what the program keeps for itself on this computer, such as its log; it need not
/// exist. The application has its name.
QString dataFolder();
