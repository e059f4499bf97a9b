#include "tools/effects/EffectRunner.h"

#include <utility>

void EffectRunner::request(Body *body)
{
    if (!m_waiting.contains(body))
        m_waiting.append(body);
    startNext();
}

void EffectRunner::requestAnew(Body *body)
{
    m_isOutdated = m_isOutdated || m_running == body;
    request(body);
}

void EffectRunner::drop()
{
    m_waiting.clear();
    m_isOutdated = m_running != nullptr;
}

int EffectRunner::left() const
{
    return m_waiting.size() + (m_running ? 1 : 0);
}

void EffectRunner::startNext()
{
    if (m_running || m_waiting.isEmpty())
        return;
    m_running = m_waiting.takeFirst();
    start(*m_running);
}

void EffectRunner::finish(const AngleImage &surface)
{
    Body *body = std::exchange(m_running, nullptr);
    const bool isOutdated = std::exchange(m_isOutdated, false);
    // The next one is computed while this one is shown.
    startNext();
    if (!isOutdated)
        Q_EMIT computed(body, surface);
}
