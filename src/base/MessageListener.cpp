#include "base/MessageListener.h"

#include <utility>

namespace {
thread_local MessageListener *present = nullptr;
} // namespace

MessageListener::MessageListener()
    : m_former(std::exchange(present, this))
{
}

MessageListener::~MessageListener()
{
    present = m_former;
}

void MessageListener::tell(const QString &message)
{
    if (present)
        present->m_messages.append(message);
}
