#include "base/DataFolder.h"

#include <QStandardPaths>

QString dataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
}
