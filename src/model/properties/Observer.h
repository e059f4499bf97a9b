#pragma once

class Observable;

/// Base of what observes. It is registered through ChangeManager::observe() and keeps the handle.
class Observer
{
public:
    virtual ~Observer() = default;
    /// Called with what changed; the new value is read back from it.
    virtual void observableChanged(Observable &observable) = 0;
};
