#include "forked_child.h"

#include <csignal>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

int pipeOfChild = -1;

} // namespace

ForkedChild::ForkedChild(const std::function<void()> &run)
{
    int ends[2];
    if (pipe(ends) != 0)
        qFatal("no pipe");
    m_id = fork();
    if (m_id < 0)
        qFatal("no child");
    if (m_id == 0) {
        const rlimit noCore = {0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        std::signal(SIGTERM, SIG_DFL); // QtTest handles it
        close(ends[0]);
        pipeOfChild = ends[1];
        run();
        _exit(0);
    }
    close(ends[1]);
    m_pipe = ends[0];
}

ForkedChild::~ForkedChild()
{
    if (m_id > 0) {
        kill(m_id, SIGKILL);
        waitpid(m_id, nullptr, 0);
    }
    close(m_pipe);
}

void ForkedChild::tell(char c)
{
    if (write(pipeOfChild, &c, 1) != 1)
        _exit(100);
}

char ForkedChild::told()
{
    constexpr int timeout = 60000; // milliseconds
    pollfd wait = {m_pipe, POLLIN, 0};
    char c = 0;
    return poll(&wait, 1, timeout) == 1 && read(m_pipe, &c, 1) == 1 ? c : '\0';
}

QByteArray ForkedChild::end()
{
    QByteArray result;
    while (const char c = told())
        result += c;
    if (!result.isEmpty())
        result += ", ";
    pollfd wait = {m_pipe, POLLIN, 0};
    if (poll(&wait, 1, 0) != 1) // neither data nor the end of the pipe
        return result + "still running";
    int status = 0;
    waitpid(m_id, &status, 0);
    m_id = -1;
    if (WIFSIGNALED(status))
        return result + "signal " + QByteArray::number(WTERMSIG(status));
    return result + "exit code " + QByteArray::number(WEXITSTATUS(status));
}

QByteArray endOf(const std::function<void()> &run)
{
    return ForkedChild(run).end();
}
