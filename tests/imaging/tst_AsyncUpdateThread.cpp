#include "imaging/AsyncUpdateThread.h"
#include "imaging/PoolTask.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <atomic>
#include <semaphore>
#include <thread>

namespace {

using Numbers = QVector<int>;
using Thread = AsyncUpdateThread<Numbers, Numbers>;

// Hands its request back; each computation stops at the gate until it is let through.
class Gated : public SynchronousUpdateAlgorithm<Numbers, Numbers>
{
public:
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

    std::counting_semaphore<> entered{0};
    std::counting_semaphore<> gate{0};
    std::atomic<int> computed = 0;
    bool isComputing = false;
};

class Joining : public Gated
{
public:
    Numbers merge(const Numbers &pending, const Numbers &incoming) const override
    {
        return pending + incoming;
    }
};

// What a thread delivers, in order.
class Delivered
{
public:
    explicit Delivered(Thread &thread)
    {
        QObject::connect(
            &thread, &AsyncUpdateThreadBase::resultAvailable, &thread, [this, &thread] {
                if (QThread::currentThread() != thread.thread() || thread.isBusy())
                    qFatal("delivered from elsewhere or too early");
                results.append(thread.result());
                params.append(thread.finishedParams());
            });
    }

    QVector<Numbers> results;
    QVector<Numbers> params;
};

} // namespace

class TestAsyncUpdateThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void requestsWhileOneRuns_data();
    void requestsWhileOneRuns();
    void theEventLoopDelivers();
    void aLateCallFinishesNothing();
    void waitingInAResult();
    void requestingInAResult();
    void destroyedInAResult();
    void destroyedWhileRunning();
    void destroyedAnyTime();
    void tasksHandTheirErrorsOver();
};

void TestAsyncUpdateThread::requestsWhileOneRuns_data()
{
    QTest::addColumn<bool>("joins");
    QTest::addColumn<bool>("mergeRequests");
    QTest::addColumn<QVector<Numbers>>("expected");

    const Numbers one{1};
    QTest::newRow("queued") << true << false << QVector<Numbers>{one, {2}, {3}, {4}};
    QTest::newRow("merged") << true << true << QVector<Numbers>{one, {2, 3, 4}};
    QTest::newRow("dropped by default") << false << true << QVector<Numbers>{one, {4}};
}

void TestAsyncUpdateThread::requestsWhileOneRuns()
{
    QFETCH(bool, joins);
    QFETCH(bool, mergeRequests);
    QFETCH(QVector<Numbers>, expected);
    Gated dropping;
    Joining joining;
    Gated &algorithm = joins ? joining : dropping;
    Thread thread(&algorithm, mergeRequests);
    Delivered delivered(thread);
    QVERIFY(!thread.isBusy());
    thread.waitForIdle();

    thread.requestUpdate({1});
    algorithm.entered.acquire();
    QVERIFY(thread.isBusy());
    for (int number : {2, 3, 4})
        thread.requestUpdate({number});
    algorithm.gate.release(9);
    thread.waitForIdle();
    QVERIFY(!thread.isBusy());
    QCOMPARE(delivered.results, expected);
    QCOMPARE(delivered.params, expected);
    QCoreApplication::processEvents();
    QCOMPARE(delivered.results, expected);
    QCOMPARE(algorithm.computed.load(), expected.size());
}

void TestAsyncUpdateThread::theEventLoopDelivers()
{
    Joining algorithm;
    Thread thread(&algorithm, true);
    Delivered delivered(thread);
    thread.requestUpdate({1});
    thread.requestUpdate({2});
    algorithm.gate.release(2);
    QTRY_COMPARE(delivered.results, (QVector<Numbers>{{1}, {2}}));
    QVERIFY(!thread.isBusy());
}

void TestAsyncUpdateThread::aLateCallFinishesNothing()
{
    Gated algorithm;
    Thread thread(&algorithm, false);
    Delivered delivered(thread);
    thread.updateTaskFinished();
    thread.requestUpdate({1});
    algorithm.gate.release();
    thread.waitForIdle();
    thread.updateTaskFinished();
    QCOMPARE(delivered.results.size(), 1);

    // The first task's own call is still on its way while the second one runs.
    thread.requestUpdate({2});
    algorithm.entered.acquire();
    QCoreApplication::processEvents();
    thread.updateTaskFinished();
    QVERIFY(thread.isBusy());
    QCOMPARE(delivered.results.size(), 1);
    algorithm.gate.release();
    QTRY_COMPARE(delivered.results, (QVector<Numbers>{{1}, {2}}));
}

void TestAsyncUpdateThread::waitingInAResult()
{
    Gated algorithm;
    algorithm.gate.release(9);
    Thread thread(&algorithm, false);
    QVector<int> order;
    connect(&thread, &AsyncUpdateThreadBase::resultAvailable, this, [&] {
        order.append(thread.result().first());
        thread.waitForIdle();
        order.append(-1);
    });
    for (int number : {1, 2, 3})
        thread.requestUpdate({number});
    thread.waitForIdle();
    QCOMPARE(order, (QVector<int>{1, 2, 3, -1, -1, -1}));
    QVERIFY(!thread.isBusy());
}

void TestAsyncUpdateThread::requestingInAResult()
{
    Joining algorithm;
    algorithm.gate.release(9);
    Thread thread(&algorithm, true);
    QVector<Numbers> results;
    connect(&thread, &AsyncUpdateThreadBase::resultAvailable, this, [&] {
        results.append(thread.result());
        if (thread.result() == Numbers{1})
            thread.requestUpdate({3});
    });
    thread.requestUpdate({1});
    thread.requestUpdate({2});
    thread.waitForIdle();
    QCOMPARE(results, (QVector<Numbers>{{1}, {2, 3}}));
}

void TestAsyncUpdateThread::destroyedInAResult()
{
    for (bool waits : {true, false}) {
        Gated algorithm;
        algorithm.gate.release(9);
        auto *thread = new Thread(&algorithm, false);
        const QPointer<QObject> alive(thread);
        connect(thread, &AsyncUpdateThreadBase::resultAvailable, this, [thread] { delete thread; });
        thread->requestUpdate({1});
        thread->requestUpdate({2});
        if (waits)
            thread->waitForIdle();
        QTRY_VERIFY(!alive);
        QCOMPARE(algorithm.computed.load(), 1);
    }
}

void TestAsyncUpdateThread::destroyedWhileRunning()
{
    Gated algorithm;
    auto thread = std::make_unique<Thread>(&algorithm, false);
    QSignalSpy spy(thread.get(), &AsyncUpdateThreadBase::resultAvailable);
    thread->requestUpdate({1});
    thread->requestUpdate({2});
    algorithm.entered.acquire();
    std::thread opener([&] { algorithm.gate.release(9); });
    thread.reset();
    QCOMPARE(algorithm.computed.load(), 1);
    opener.join();
    QCoreApplication::processEvents();
    QCOMPARE(spy.count(), 0);
    QVERIFY(!algorithm.entered.try_acquire());
}

void TestAsyncUpdateThread::destroyedAnyTime()
{
    for (int round = 0; round < 2000; ++round) {
        Joining algorithm;
        algorithm.gate.release(9);
        Thread thread(&algorithm, true);
        for (int number = 0; number < round % 4; ++number)
            thread.requestUpdate({number});
        if (round % 5 == 0)
            QCoreApplication::processEvents();
    }
}

void TestAsyncUpdateThread::tasksHandTheirErrorsOver()
{
    PoolTask<int> task([]() -> int { throw std::bad_alloc(); });
    task.wait();
    QVERIFY(task.isFinished());
    QVERIFY_EXCEPTION_THROWN(task.take(), std::bad_alloc);
}

QTEST_GUILESS_MAIN(TestAsyncUpdateThread)

#include "tst_AsyncUpdateThread.moc"
