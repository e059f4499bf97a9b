#pragma once

#include <QtGlobal>

/// What an AsyncUpdateThread computes. An algorithm may keep state between calls of compute(),
/// which never run side by side; merge() is called on the interface thread meanwhile and knows no
/// state.
template <class Params, class Result>
class SynchronousUpdateAlgorithm
{
public:
    /// Called on a thread of the pool.
    virtual Result compute(const Params &params) = 0;
    /// The request that takes the place of two, @p pending having waited longer; by default the
    /// pending one is dropped.
    virtual Params merge(const Params &pending, const Params &incoming) const;
    virtual ~SynchronousUpdateAlgorithm() = default;

protected:
    SynchronousUpdateAlgorithm() = default;
    Q_DISABLE_COPY_MOVE(SynchronousUpdateAlgorithm)
};

template <class Params, class Result>
Params SynchronousUpdateAlgorithm<Params, Result>::merge(const Params & /*pending*/,
                                                         const Params &incoming) const
{
    return incoming;
}
