#include "imaging/AsyncUpdateThread.h"

#include <QCoreApplication>
#include <QTest>
#include <QThread>

#include <atomic>
#include <semaphore>
#include <thread>

namespace {

using Numbers = QVector<int>;
using Results = QVector<Numbers>;

// Hands its request back; each computation stops at the gate until it is let through.
struct Gated : public SynchronousUpdateAlgorithm<Numbers, Numbers>
{
    Numbers compute(const Numbers &params) override
    {
        if (std::exchange(isComputing, true))
            qFatal("two tasks at once");
        entered.release();
        gate.acquire();
        isComputing = false;
        ++computed;
        return params;
    }
    Numbers merge(const Numbers &pending, const Numbers &incoming) const override
    {
        return joins ? pending + incoming : SynchronousUpdateAlgorithm::merge(pending, incoming);
    }

    std::counting_semaphore<> entered{0};
    std::counting_semaphore<> gate{0};
    std::atomic<int> computed = 0;
    bool isComputing = false;
    bool joins = false;
};

// A thread, and what it delivers in order.
struct Run
{
    explicit Run(int open, bool merges = false, bool joins = false)
        : thread(std::make_unique<AsyncUpdateThread<Numbers, Numbers>>(&algorithm, merges))
    {
        algorithm.gate.release(open);
        algorithm.joins = joins;
        QObject::connect(thread.get(), &AsyncUpdateThreadBase::resultAvailable, [this] {
            const bool isInTime = QThread::currentThread() == thread->thread() && !thread->isBusy();
            if (!isInTime || thread->finishedParams() != thread->result())
                qFatal("delivered from elsewhere, too early or for another request");
            results.append(thread->result());
        });
    }
    void request(const Numbers &numbers) const
    {
        for (const int number : numbers)
            thread->requestUpdate({number});
    }

    Gated algorithm;
    std::unique_ptr<AsyncUpdateThread<Numbers, Numbers>> thread;
    Results results;
};

} // namespace

class TestAsyncUpdateThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Who waits gets the results at once, who doesn't from the event loop.
    void requestsWhileOneRuns()
    {
        const auto check = [](bool waits, bool merges, bool joins, const Results &expected) {
            Run run(0, merges, joins);
            run.thread->waitForIdle();
            run.request({1});
            run.algorithm.entered.acquire();
            QVERIFY(run.thread->isBusy());
            run.request({2, 3, 4});
            run.algorithm.gate.release(9);
            if (waits)
                run.thread->waitForIdle();
            else
                QTRY_COMPARE(run.results.size(), expected.size());
            QVERIFY(!run.thread->isBusy());
            QCoreApplication::processEvents();
            QCOMPARE(run.results, expected);
            QCOMPARE(run.algorithm.computed.load(), expected.size());
        };
        for (const bool waits : {true, false}) {
            check(waits, false, true, {{1}, {2}, {3}, {4}});
            check(waits, true, true, {{1}, {2, 3, 4}});
            check(waits, true, false, {{1}, {4}});
        }
    }

    void aLateCallFinishesNothing()
    {
        Run run(1);
        run.thread->updateTaskFinished();
        run.request({1});
        run.thread->waitForIdle();
        run.thread->updateTaskFinished();
        QCOMPARE(run.results.size(), 1);
        // The first task's own call is still on its way while the second one runs.
        run.algorithm.entered.acquire();
        run.request({2});
        run.algorithm.entered.acquire();
        QCoreApplication::processEvents();
        run.thread->updateTaskFinished();
        QVERIFY(run.thread->isBusy() && run.results.size() == 1);
        run.algorithm.gate.release();
        QTRY_COMPARE(run.results, (Results{{1}, {2}}));
    }

    void destroyedWhileRunning()
    {
        Run run(0);
        run.request({1, 2});
        run.algorithm.entered.acquire();
        std::thread opener([&] { run.algorithm.gate.release(9); });
        run.thread.reset();
        QCOMPARE(run.algorithm.computed.load(), 1);
        opener.join();
        QCoreApplication::processEvents();
        QVERIFY(run.results.isEmpty() && !run.algorithm.entered.try_acquire());
    }

    void tasksHandTheirErrorsOver()
    {
        PoolTask<int> task([]() -> int { throw std::bad_alloc(); });
        task.wait();
        QVERIFY(task.isFinished());
        QVERIFY_EXCEPTION_THROWN(task.take(), std::bad_alloc);
    }
};

QTEST_GUILESS_MAIN(TestAsyncUpdateThread)

#include "tst_AsyncUpdateThread.moc"
