#pragma once

#include "model/properties/ChangeManager.h"
#include "model/properties/Observer.h"

#include <functional>

/// Counts what it hears and may act on it.
class RecordingObserver : public Observer
{
public:
    explicit RecordingObserver(Observable &observable)
        : m_observation(ChangeManager::instance().observe(observable, *this))
    {
    }

    void observableChanged(Observable &) override
    {
        ++calls;
        if (action)
            action();
    }

    int calls = 0;
    std::function<void()> action;

private:
    Observation m_observation;
};
