#include "message_writer.h"

#include "program_output.h"

#include <QtCore/QStringList>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace {

constexpr int largestQueue = 256 * 1024; // characters
constexpr auto longestWait = std::chrono::seconds(1);

} // namespace

struct MessageWriter::State
{
    std::mutex mutex;
    std::condition_variable changed;
    QStringList queue;
    int size = 0; ///< of the queue and of what is being written
    bool hasThread = false;
    bool isEnding = false;

    void run();
};

void MessageWriter::State::run()
{
    std::unique_lock<std::mutex> lock(mutex);
    for (;;) {
        changed.wait(lock, [this] { return isEnding || !queue.isEmpty(); });
        if (queue.isEmpty())
            return;
        const QString lines = queue.takeFirst();
        lock.unlock();
        tell(lines);
        lock.lock();
        size -= lines.size();
        changed.notify_all();
    }
}

MessageWriter::MessageWriter()
    : m_state(std::make_shared<State>())
{
}

MessageWriter::~MessageWriter()
{
    flush();
    const std::lock_guard<std::mutex> lock(m_state->mutex);
    m_state->isEnding = true;
    m_state->queue.clear();
    m_state->changed.notify_all();
}

void MessageWriter::write(const QString &lines)
{
    if (lines.isEmpty())
        return;
    const std::lock_guard<std::mutex> lock(m_state->mutex);
    if (m_state->size + lines.size() > largestQueue)
        return;
    m_state->queue += lines;
    m_state->size += lines.size();
    if (!m_state->hasThread)
        std::thread([state = m_state] { state->run(); }).detach();
    m_state->hasThread = true;
    m_state->changed.notify_all();
}

void MessageWriter::flush()
{
    std::unique_lock<std::mutex> lock(m_state->mutex);
    m_state->changed.wait_for(lock, longestWait, [this] { return m_state->size == 0; });
}
