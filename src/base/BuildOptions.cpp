#include "base/BuildOptions.h"

QUrl updateFeedAddress()
{
    const QUrl address(QStringLiteral(VESPERINE_UPDATE_FEED), QUrl::StrictMode);
    return address.scheme() == QLatin1String("https") ? address : QUrl();
}

QString feedbackAddress()
{
    return QStringLiteral(VESPERINE_FEEDBACK_ADDRESS);
}
