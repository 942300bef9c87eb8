// Work that would stop the window from answering.
#pragma once

#include <QtCore/QObject>
#include <atomic>
#include <functional>
#include <memory>

/// Runs one piece of work at a time in a thread of its own. The thread is not waited for if the work is cancelled or if
/// this object is destroyed: what it found is dropped. QCoreApplication waits for it at its end. Work that is started before
/// the thread has ended waits for it; of several only the last one.
class BackgroundTask : public QObject
{
    Q_OBJECT

public:
    /// Is to stop soon once its argument is true. It owns all that it uses.
    using Work = std::function<void(const std::atomic_bool &cancelled)>;
    using Done = std::function<void()>;

    explicit BackgroundTask(QObject *parent = nullptr);
    ~BackgroundTask() override;

    /// Cancels what runs and what waits, and starts \a work. Afterwards calls \a done in the thread of this object, but not if it was
    /// cancelled. std::bad_alloc ends the work.
    void start(Work work, Done done);
    void cancel();
    /// Whether something runs or waits that was not cancelled.
    bool isRunning() const { return m_isWanted; }

private:
    void startThread();
    void takeEnd();

    Work m_work;                                   ///< that waits for its thread
    Done m_done;                                   ///< of the last start()
    std::shared_ptr<std::atomic_bool> m_cancelled; ///< of the thread; null if there is none
    bool m_isWanted = false;
};
