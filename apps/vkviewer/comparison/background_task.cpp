#include "background_task.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QThread>
#include <new>

namespace {

class WorkThread : public QThread
{
public:
    WorkThread(BackgroundTask::Work work, std::shared_ptr<std::atomic_bool> cancelled)
        : QThread(QCoreApplication::instance()), m_work(std::move(work)), m_cancelled(std::move(cancelled))
    {
    }
    ~WorkThread() override { wait(); }

protected:
    void run() override
    {
        try {
            m_work(*m_cancelled);
        } catch (const std::bad_alloc &) {
            // Whoever started the work sees that there is no result.
        }
        m_work = nullptr;
    }

private:
    BackgroundTask::Work m_work;
    std::shared_ptr<std::atomic_bool> m_cancelled;
};

} // namespace

BackgroundTask::BackgroundTask(QObject *parent) : QObject(parent) { }

BackgroundTask::~BackgroundTask()
{
    cancel();
}

void BackgroundTask::start(Work work, Done done)
{
    cancel();
    m_cancelled = std::make_shared<std::atomic_bool>(false);
    auto *thread = new WorkThread(std::move(work), m_cancelled);
    connect(thread, &QThread::finished, this, [this, cancelled = m_cancelled, done = std::move(done)] {
        if (*cancelled)
            return;
        m_cancelled.reset();
        done();
    });
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

void BackgroundTask::cancel()
{
    if (m_cancelled)
        *m_cancelled = true;
    m_cancelled.reset();
}
