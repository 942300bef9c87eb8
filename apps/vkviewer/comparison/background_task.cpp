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
    m_work = std::move(work);
    m_done = std::move(done);
    m_isWanted = true;
    if (!m_cancelled)
        startThread();
}

void BackgroundTask::startThread()
{
    m_cancelled = std::make_shared<std::atomic_bool>(false);
    auto *thread = new WorkThread(std::move(m_work), m_cancelled);
    m_work = nullptr;
    connect(thread, &QThread::finished, this, &BackgroundTask::takeEnd);
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

void BackgroundTask::takeEnd()
{
    const bool isDropped = *m_cancelled;
    m_cancelled.reset();
    if (m_work) {
        startThread();
    } else if (!isDropped) {
        m_isWanted = false;
        const Done done = std::move(m_done);
        m_done = nullptr;
        done();
    }
}

void BackgroundTask::cancel()
{
    if (m_cancelled)
        *m_cancelled = true;
    m_work = nullptr;
    m_done = nullptr;
    m_isWanted = false;
}
