#include "framework/QuotedName.h"

#include "base/PlainText.h"

#include <QCoreApplication>

namespace {
struct Words
{
    Q_DECLARE_TR_FUNCTIONS(QuotedName)
};
} // namespace

QString quoted(const QString &name)
{
    return Words::tr("“%1”").arg(shownText(name));
}
