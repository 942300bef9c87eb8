#include "running_program.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QMap>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void pause(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

/// The two ends of a stream: that of the program and that of the test. -1: none.
struct Ends
{
    int program = -1;
    int test = -1;
};

int terminalOf(int &masterEnd)
{
    masterEnd = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    char name[128];
    if (masterEnd < 0 || ::grantpt(masterEnd) || ::unlockpt(masterEnd) || ::ptsname_r(masterEnd, name, sizeof name))
        return -1;
    winsize size = {};
    size.ws_row = 24;
    size.ws_col = 100;
    const int fd = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    ::ioctl(fd, TIOCSWINSZ, &size);
    return fd;
}

Ends open(Stream stream)
{
    Ends ends;
    switch (stream) {
    case Stream::Closed:
        break;
    case Stream::FullDevice:
        ends.program = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
        break;
    case Stream::Terminal:
        ends.program = terminalOf(ends.test);
        break;
    case Stream::Pipe:
    case Stream::WithoutReader: {
        int fds[2];
        if (::pipe2(fds, O_CLOEXEC))
            break;
        ends = {fds[1], fds[0]};
        if (stream == Stream::WithoutReader) {
            ::close(ends.test);
            ends.test = -1;
        }
        break;
    }
    }
    if (ends.test >= 0)
        ::fcntl(ends.test, F_SETFL, O_NONBLOCK);
    return ends;
}

/// Between fork() and execve(): only functions that are safe in a signal handler.
void connect(int from, int to)
{
    if (from < 0)
        ::close(to);
    else
        ::dup2(from, to); // clears O_CLOEXEC
}

struct ProcessState
{
    char state = 0; // 0: no such process
    pid_t parent = 0;
    quint64 ticks = 0; // of processor time
};

ProcessState stateOf(pid_t pid)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
    ProcessState result;
    if (!file.open(QIODevice::ReadOnly))
        return result;
    const QByteArray text = file.readAll();
    const QByteArrayList fields = text.mid(text.lastIndexOf(')') + 2).split(' '); // from the third field on
    if (fields.size() < 13)
        return result;
    result.state = fields.at(0).at(0);
    result.parent = fields.at(1).toInt();
    result.ticks = fields.at(11).toULongLong() + fields.at(12).toULongLong();
    return result;
}

QMap<pid_t, ProcessState> allProcesses()
{
    QMap<pid_t, ProcessState> result;
    const QStringList names = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        const pid_t pid = name.toInt();
        const ProcessState state = pid > 0 ? stateOf(pid) : ProcessState();
        if (state.state && state.state != 'Z' && state.state != 'X')
            result.insert(pid, state);
    }
    return result;
}

bool usesFolder(pid_t pid, const QByteArray &folder)
{
    char target[4096];
    const QByteArray link = "/proc/" + QByteArray::number(pid) + "/cwd";
    const ssize_t length = ::readlink(link.constData(), target, sizeof target);
    return length > 0 && QByteArray(target, int(length)) == folder;
}

/// Reads what there is. Closes \a fd at its end.
void drain(int &fd, QByteArray &bytes)
{
    char buffer[16384];
    while (fd >= 0) {
        const ssize_t size = ::read(fd, buffer, sizeof buffer);
        if (size > 0) {
            bytes.append(buffer, int(size));
        } else if (size < 0 && (errno == EAGAIN || errno == EINTR)) {
            return;
        } else { // a terminal whose other end is closed gives EIO
            ::close(fd);
            fd = -1;
        }
    }
}

} // namespace

RunningProgram::RunningProgram(const ProgramStart &start)
    : m_start(Clock::now())
{
    if (!start.trouble.isNull()) {
        QFile trouble(m_folder.filePath(QStringLiteral("trouble")));
        if (!trouble.open(QIODevice::WriteOnly) || trouble.write(start.trouble) != start.trouble.size())
            return;
    }
    QByteArrayList words {QFile::encodeName(start.program)};
    for (const QString &argument : start.arguments)
        words += argument.toUtf8();
    QByteArrayList variables = start.environment;
    std::vector<char *> argv, environment;
    for (QByteArray &word : words)
        argv.push_back(word.data());
    for (QByteArray &variable : variables)
        environment.push_back(variable.data());
    argv.push_back(nullptr);
    environment.push_back(nullptr);
    const std::vector<int> ignored(start.ignoredSignals.begin(), start.ignoredSignals.end());
    const QByteArray folder = QFile::encodeName(m_folder.path());
    const Ends output = open(start.output);
    const Ends errors = open(start.errors);
    const int input = start.inputClosed ? -1 : ::open("/dev/null", O_RDONLY | O_CLOEXEC);

    m_start = Clock::now();
    m_pid = ::fork();
    if (m_pid == 0) {
        ::setpgid(0, 0);
        sigset_t none;
        ::sigemptyset(&none);
        ::sigprocmask(SIG_SETMASK, &none, nullptr);
        for (const int number : {SIGINT, SIGQUIT, SIGPIPE, SIGCHLD, SIGHUP, SIGTERM})
            ::signal(number, SIG_DFL);
        for (const int number : ignored)
            ::signal(number, SIG_IGN);
        rlimit cores = {RLIM_INFINITY, RLIM_INFINITY}; // a core dump must be possible
        if (::setrlimit(RLIMIT_CORE, &cores)) {
            ::getrlimit(RLIMIT_CORE, &cores);
            cores.rlim_cur = cores.rlim_max;
            ::setrlimit(RLIMIT_CORE, &cores);
        }
        if (::chdir(folder.constData()))
            ::_exit(126);
        connect(input, 0);
        connect(output.program, 1);
        connect(errors.program, 2);
        ::execve(argv.front(), argv.data(), environment.data());
        ::_exit(127);
    }
    ::setpgid(m_pid, m_pid); // also here: the test may send a signal to the group at once
    m_outputFd = output.test;
    m_errorsFd = errors.test;
    for (const int fd : {input, output.program, errors.program}) {
        if (fd >= 0)
            ::close(fd);
    }
}

RunningProgram::~RunningProgram()
{
    const QList<pid_t> left = processes();
    if (m_pid > 0 && !m_reaped)
        ::kill(m_pid, SIGKILL);
    for (const pid_t pid : left)
        ::kill(pid, SIGKILL);
    if (m_pid > 0 && !m_reaped)
        ::waitpid(m_pid, &m_status, 0);
    for (const int fd : {m_outputFd, m_errorsFd}) {
        if (fd >= 0)
            ::close(fd);
    }
}

double RunningProgram::seconds() const
{
    return secondsSince(m_start);
}

bool RunningProgram::reap()
{
    if (!m_reaped && m_pid > 0 && ::waitpid(m_pid, &m_status, WNOHANG) == m_pid) {
        m_seconds = seconds();
        m_reaped = true;
    }
    return m_reaped;
}

void RunningProgram::read(int milliseconds)
{
    pollfd fds[2] = {{m_outputFd, POLLIN, 0}, {m_errorsFd, POLLIN, 0}}; // a negative one is ignored
    ::poll(fds, 2, milliseconds);
    drain(m_outputFd, m_output);
    drain(m_errorsFd, m_errors);
}

bool RunningProgram::isRunningAfter(double seconds)
{
    const auto start = Clock::now();
    while (!reap() && secondsSince(start) < seconds) {
        read(10);
        pause(2);
    }
    return !m_reaped;
}

ProgramEnd RunningProgram::wait(double seconds)
{
    while (!reap() && this->seconds() < seconds) {
        read(10);
        if (m_outputFd < 0 && m_errorsFd < 0)
            pause(5);
    }
    ProgramEnd end;
    end.ended = m_reaped;
    end.seconds = m_reaped ? m_seconds : this->seconds();
    // The last of the output can come a moment later. A process that is left must not block the test.
    for (int i = 0; i < 20 && (m_outputFd >= 0 || m_errorsFd >= 0); ++i)
        read(10);
    if (m_reaped && WIFEXITED(m_status))
        end.exitCode = WEXITSTATUS(m_status);
    else if (m_reaped && WIFSIGNALED(m_status))
        end.signal = WTERMSIG(m_status);
    end.processes = waitForTheEndOf(processes(), m_reaped ? 1 : 0);
    end.output = m_output;
    end.errors = m_errors;
    end.files = QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    end.files.removeAll(QStringLiteral("trouble"));
    return end;
}

QList<pid_t> RunningProgram::waitForSleepingChildren(double seconds)
{
    const double limit = this->seconds() + seconds;
    QMap<pid_t, quint64> before;
    auto since = Clock::now();
    while (!reap() && this->seconds() < limit) {
        read(20);
        pause(20);
        QMap<pid_t, quint64> now;
        for (const pid_t pid : processes()) {
            if (pid != m_pid)
                now.insert(pid, stateOf(pid).ticks);
        }
        if (now.isEmpty() || now != before) {
            before = now;
            since = Clock::now();
        } else if (secondsSince(since) >= 0.5) {
            return now.keys();
        }
    }
    return {};
}

QList<pid_t> RunningProgram::processes() const
{
    const QMap<pid_t, ProcessState> all = allProcesses();
    const QByteArray folder = QFile::encodeName(QDir(m_folder.path()).canonicalPath());
    QList<pid_t> result;
    for (auto process = all.begin(); process != all.end(); ++process) {
        const bool own = !m_reaped && process.key() == m_pid;
        bool descends = false;
        pid_t ancestor = process->parent;
        for (int depth = 0; depth < 20 && ancestor > 1 && !m_reaped; ++depth) {
            descends = descends || ancestor == m_pid;
            ancestor = all.value(ancestor).parent;
        }
        if (own || descends || usesFolder(process.key(), folder))
            result += process.key();
    }
    return result;
}

ProgramEnd runToItsEnd(const ProgramStart &start, double seconds)
{
    RunningProgram program(start);
    return program.wait(seconds);
}

bool isAlive(pid_t pid)
{
    const char state = stateOf(pid).state;
    return state && state != 'Z' && state != 'X';
}

QList<pid_t> waitForTheEndOf(const QList<pid_t> &processes, double seconds)
{
    const auto start = Clock::now();
    for (;;) {
        QList<pid_t> living;
        for (const pid_t pid : processes) {
            if (isAlive(pid))
                living += pid;
        }
        if (living.isEmpty() || secondsSince(start) >= seconds)
            return living;
        pause(20);
    }
}

QList<pid_t> processesWithVariable(const QByteArray &entry)
{
    QList<pid_t> result;
    for (const pid_t pid : allProcesses().keys()) {
        QFile file(QStringLiteral("/proc/%1/environ").arg(pid));
        if (pid != ::getpid() && file.open(QIODevice::ReadOnly) && file.readAll().split('\0').contains(entry))
            result += pid;
    }
    return result;
}
