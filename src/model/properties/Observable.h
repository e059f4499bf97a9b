#pragma once

/// Base of what can be observed. Whoever observes it is registered with the ChangeManager, which
/// forgets it when it is destroyed.
class Observable
{
public:
    Observable() = default;
    virtual ~Observable();
    Observable(const Observable &) = delete;
    Observable &operator=(const Observable &) = delete;
};
