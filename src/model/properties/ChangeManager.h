#pragma once

#include <QHash>
#include <QVector>

#include <memory>

class Observable;
class Observer;

/// Keeps an observer registered for as long as it lives. The observed may be destroyed before.
class Observation
{
public:
    struct Link;

    Observation() = default;
    explicit Observation(std::shared_ptr<Link> link);
    ~Observation();
    Observation(Observation &&) = default;
    Observation &operator=(Observation &&other) noexcept;

private:
    std::shared_ptr<Link> m_link;
};

/// The registry of who observes what; one a process, used on the interface thread only. It owns
/// neither observers nor observables; both may come and go while a notification is under way.
class ChangeManager
{
public:
    static ChangeManager &instance();

    [[nodiscard]] Observation observe(Observable &observable, Observer &observer);
    /// Calls every observer of @p observable, or remembers to while it is held back.
    void notify(Observable &observable);
    /// Holds the notifications of @p observables back until release().
    void hold(const QVector<Observable *> &observables);
    /// Delivers what was held back, once for each observable, in the order of the first changes.
    void release();
    /// Drops all that is known of an observable that is being destroyed.
    void forget(Observable &observable);

private:
    friend class Observation;
    void unregister(const std::shared_ptr<Observation::Link> &link);

    QHash<Observable *, QVector<std::shared_ptr<Observation::Link>>> m_links;
    QVector<Observable *> m_held;
    QVector<Observable *> m_pending;
};
