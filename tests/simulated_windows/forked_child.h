// Runs a function in a copy of the process, which may crash, hang or end.
#pragma once

#include <QtCore/QByteArray>
#include <functional>
#include <sys/types.h>

/// The child runs the function and then ends with code 0. What tell() writes arrives in the parent. A
/// child that still exists is killed at the end.
class ForkedChild
{
public:
    explicit ForkedChild(const std::function<void()> &run);
    ~ForkedChild();
    ForkedChild(const ForkedChild &) = delete;
    ForkedChild &operator=(const ForkedChild &) = delete;

    /// In the child, also in a signal handler.
    static void tell(char c);

    pid_t id() const { return m_id; }
    /// Waits for the next byte; a null byte after the end of the child.
    char told();
    /// Waits for the end. Returns what was told and was not read, and how the child ended: "ab, exit
    /// code 7", "signal 11". Fails after a minute.
    QByteArray end();

private:
    pid_t m_id = -1;
    int m_pipe = -1;
};

/// end() of a child that runs the function.
QByteArray endOf(const std::function<void()> &run);
