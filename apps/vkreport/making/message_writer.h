// Writes messages to standard error on a thread of its own. A terminal that is stopped, or a host that does not read, blocks
// only this thread.
#pragma once

#include <QtCore/QString>
#include <memory>

class MessageWriter
{
public:
    MessageWriter();
    /// Waits a second for the messages; what nobody has read by then is dropped.
    ~MessageWriter();
    MessageWriter(const MessageWriter &) = delete;
    MessageWriter &operator=(const MessageWriter &) = delete;

    /// Returns at once. If too many messages wait already, this one is dropped.
    void write(const QString &lines);
    /// Waits a second for the messages, so that later ones of other writers come after them.
    void flush();

private:
    struct State;
    std::shared_ptr<State> m_state; ///< the thread may outlive this object
};
