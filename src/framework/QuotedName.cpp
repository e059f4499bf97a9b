#include "framework/QuotedName.h"

#include <QCoreApplication>

QString quoted(const QString &name)
{
    return QCoreApplication::translate("QuotedName", "“%1”").arg(name);
}
