#include "base/Error.h"

#include "base/PlainText.h"

// Whatever a file is called, its name does no harm where the message is shown.
Error::Error(const QString &message)
    : m_message(shownLines(message))
    , m_utf8(m_message.toUtf8())
{
}
