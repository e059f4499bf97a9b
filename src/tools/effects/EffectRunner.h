#pragma once

#include "imaging/AngleImage.h"
#include "imaging/AsyncUpdateThread.h"
#include "model/Body.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"

#include <QObject>
#include <QVector>

#include <chrono>
#include <functional>
#include <memory>

/// Computes in the background what an effect makes of several bodies, one body at a time and in
/// turn. Settings change faster than that: a body that waits already is computed once, from the
/// settings as they are when its turn comes. Bodies are borrowed.
class EffectRunner : public QObject
{
    Q_OBJECT

public:
    void request(Body *body);
    /// What the body is made of has changed: what is computed for it now is never seen.
    void requestAnew(Body *body);
    /// Nothing waits any more; what is computed now is never seen.
    void drop();
    /// The bodies that wait or are computed.
    int left() const;
    /// Waits at most @p patience for the next result, and delivers it.
    virtual void waitForResult(std::chrono::milliseconds patience) = 0;

Q_SIGNALS:
    void computed(Body *body, AngleImage surface);

protected:
    /// Begins to compute for @p body.
    virtual void start(const Body &body) = 0;
    void finish(const AngleImage &surface);

private:
    void startNext();

    QVector<Body *> m_waiting;
    Body *m_running = nullptr;
    bool m_isOutdated = false; ///< what is computed now
};

/// The runner of one algorithm. What its parameters hold of the body itself is set here: sprite,
/// stored surface, and what tells bodies apart.
template <class Params>
class EffectRunnerOf : public EffectRunner
{
public:
    using Algorithm = SynchronousUpdateAlgorithm<Params, AngleImage>;
    /// The settings as they are, for one body.
    using Settings = std::function<Params(const Body &)>;

    EffectRunnerOf(std::unique_ptr<Algorithm> algorithm, Settings settings)
        : m_algorithm(std::move(algorithm))
        , m_settings(std::move(settings))
        , m_thread(m_algorithm.get(), false)
    {
        connect(&m_thread, &AsyncUpdateThreadBase::resultAvailable, this, [this] {
            finish(m_thread.result());
        });
    }

    void waitForResult(std::chrono::milliseconds patience) override
    {
        m_thread.waitForResult(patience);
    }

protected:
    void start(const Body &body) override
    {
        Params params = m_settings(body);
        params.sprite = body.sprite().image();
        params.base = body.paintedNormalMap().angleImage();
        params.bodyKey = reinterpret_cast<quintptr>(&body);
        m_thread.requestUpdate(params);
    }

private:
    std::unique_ptr<Algorithm> m_algorithm;
    Settings m_settings;
    AsyncUpdateThread<Params, AngleImage> m_thread;
};
