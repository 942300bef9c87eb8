// Work in a thread: how much of it runs at once, and whose result counts.

#include "comparison/background_task.h"
#include "test_main.h"

#include <QtCore/QSemaphore>

class BackgroundTaskTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneRunsAndTheLastOneWaits();
    void cancelledWorkIsDropped();
    void whatIsStartedAfterTheEndOfAnother();
    void aTaskThatIsDestroyed();
};

namespace {

/// What the threads did. The work waits until it is let go.
struct Log
{
    std::atomic_int running {0};
    std::atomic_int mostRunning {0};
    std::atomic_int started {0};
    QSemaphore gate;

    void work()
    {
        ++started;
        const int now = ++running;
        if (now > mostRunning)
            mostRunning = now;
        gate.acquire();
        --running;
    }
};

constexpr int many = 1000;

} // namespace

void BackgroundTaskTest::oneRunsAndTheLastOneWaits()
{
    const auto log = std::make_shared<Log>();
    BackgroundTask task;
    QList<int> done;
    std::atomic_bool wasCancelled {false};
    task.start(
        [log, &wasCancelled](const std::atomic_bool &cancelled) {
        log->work();
        wasCancelled = bool(cancelled);
        },
        [&done] { done << 0; });
    QTRY_COMPARE(int(log->started), 1);
    for (int i = 1; i <= 20; ++i)
        task.start([log](const std::atomic_bool &) { log->work(); }, [&done, i] { done << i; });
    QTest::qWait(50); // a thread that does not wait would begin now
    QCOMPARE(int(log->started), 1);
    QVERIFY(task.isRunning());
    log->gate.release(many);
    QTRY_COMPARE(done, QList<int>({20}));
    QVERIFY(!task.isRunning());
    QVERIFY(wasCancelled);
    QCOMPARE(int(log->mostRunning), 1);
    QCOMPARE(int(log->started), 2);
}

void BackgroundTaskTest::cancelledWorkIsDropped()
{
    const auto log = std::make_shared<Log>();
    BackgroundTask task;
    int done = 0;
    task.start([log](const std::atomic_bool &) { log->work(); }, [&done] { ++done; });
    task.start([log](const std::atomic_bool &) { log->work(); }, [&done] { ++done; });
    task.cancel();
    QVERIFY(!task.isRunning());
    log->gate.release(many);
    QTest::qWait(50);
    QCOMPARE(done, 0);
    QVERIFY(int(log->started) <= 1);
    task.start([log](const std::atomic_bool &) { log->work(); }, [&done] { ++done; });
    QTRY_COMPARE(done, 1);
}

void BackgroundTaskTest::whatIsStartedAfterTheEndOfAnother()
{
    BackgroundTask task;
    int done = 0;
    const BackgroundTask::Work nothing = [](const std::atomic_bool &) {};
    const auto startsAnother = [&] {
        ++done;
        task.start(nothing, [&done] { ++done; });
    };
    task.start(nothing, startsAnother);
    QTRY_COMPARE(done, 2);
    task.start([](const std::atomic_bool &) { throw std::bad_alloc(); }, [&done] { ++done; });
    QTRY_COMPARE(done, 3);
    QVERIFY(!task.isRunning());
}

void BackgroundTaskTest::aTaskThatIsDestroyed()
{
    const auto log = std::make_shared<Log>();
    int done = 0;
    {
        BackgroundTask task;
        task.start([log](const std::atomic_bool &) { log->work(); }, [&done] { ++done; });
        QTRY_COMPARE(int(log->started), 1);
        task.start([log](const std::atomic_bool &) { log->work(); }, [&done] { ++done; });
    }
    log->gate.release(many);
    QTest::qWait(50);
    QCOMPARE(done, 0);
    QCOMPARE(int(log->started), 1);
}

TEST_WITH_CORE_APPLICATION(BackgroundTaskTest);
#include "tst_background_task.moc"
