// Work that would stop the window from answering.
#pragma once

#include <QtCore/QObject>
#include <atomic>
#include <functional>
#include <memory>

/// Runs one piece of work at a time in a thread of its own. The thread is not waited for if the work is cancelled or if
/// this object is destroyed: what it found is dropped. QCoreApplication waits for it at its end.
class BackgroundTask : public QObject
{
    Q_OBJECT

public:
    /// Is to stop soon once its argument is true. It owns all that it uses.
    using Work = std::function<void(const std::atomic_bool &cancelled)>;
    using Done = std::function<void()>;

    explicit BackgroundTask(QObject *parent = nullptr);
    ~BackgroundTask() override;

    /// Cancels what runs, and starts \a work. Afterwards calls \a done in the thread of this object, but not if it was
    /// cancelled. std::bad_alloc ends the work.
    void start(Work work, Done done);
    void cancel();
    bool isRunning() const { return m_cancelled != nullptr; }

private:
    std::shared_ptr<std::atomic_bool> m_cancelled; ///< of what runs; null if nothing does
};
