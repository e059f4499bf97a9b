#include "base/Error.h"

Error::Error(const QString &message)
    : m_message(message)
    , m_utf8(message.toUtf8())
{
}
