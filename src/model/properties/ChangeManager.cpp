#include "model/properties/ChangeManager.h"

#include "model/properties/Observer.h"

/// One registration. A side is set to null when it goes, so that a notification that is under way
/// over a copy of the links passes it over.
struct Observation::Link
{
    Observable *observable = nullptr;
    Observer *observer = nullptr;
};

Observation::Observation(std::shared_ptr<Link> link)
    : m_link(std::move(link))
{
}

Observation::~Observation()
{
    if (m_link)
        ChangeManager::instance().unregister(m_link);
}

Observation &Observation::operator=(Observation &&other) noexcept
{
    std::swap(m_link, other.m_link);
    return *this;
}

ChangeManager &ChangeManager::instance()
{
    static ChangeManager manager;
    return manager;
}

Observation ChangeManager::observe(Observable &observable, Observer &observer)
{
    auto link = std::make_shared<Observation::Link>();
    link->observable = &observable;
    link->observer = &observer;
    m_links[&observable].append(link);
    return Observation(link);
}

void ChangeManager::notify(Observable &observable)
{
    if (m_held.contains(&observable)) {
        if (!m_pending.contains(&observable))
            m_pending.append(&observable);
        return;
    }
    const auto links = m_links.value(&observable);
    for (const auto &link : links) {
        if (link->observable && link->observer)
            link->observer->observableChanged(*link->observable);
    }
}

void ChangeManager::hold(const QVector<Observable *> &observables)
{
    m_held += observables;
}

void ChangeManager::release()
{
    m_held.clear();
    // Taken one by one: an observer may destroy an observable that still waits for its turn.
    while (!m_pending.isEmpty())
        notify(*m_pending.takeFirst());
}

void ChangeManager::forget(Observable &observable)
{
    const auto links = m_links.take(&observable);
    for (const auto &link : links)
        link->observable = nullptr;
    m_held.removeAll(&observable);
    m_pending.removeAll(&observable);
}

void ChangeManager::unregister(const std::shared_ptr<Observation::Link> &link)
{
    link->observer = nullptr;
    if (!link->observable)
        return;
    const auto place = m_links.find(link->observable);
    place->removeOne(link);
    if (place->isEmpty())
        m_links.erase(place);
}
