#include "base/ApplicationName.h"

#include <QCoreApplication>

void nameApplication()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Vesperine"));
    QCoreApplication::setApplicationName(QStringLiteral("Vesperine"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VESPERINE_VERSION));
}
