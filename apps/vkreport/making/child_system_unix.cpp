#include "child_system.h"

#include "program_output.h"

#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr int lowPriority = 10; // nice value

struct SignalName
{
    int number;
    const char *name;
};

constexpr SignalName signalNames[] = {
    {SIGABRT, "SIGABRT"},
    {SIGBUS, "SIGBUS"},
    {SIGFPE, "SIGFPE"},
    {SIGHUP, "SIGHUP"},
    {SIGILL, "SIGILL"},
    {SIGINT, "SIGINT"},
    {SIGKILL, "SIGKILL"},
    {SIGPIPE, "SIGPIPE"},
    {SIGSEGV, "SIGSEGV"},
    {SIGSYS, "SIGSYS"},
    {SIGTERM, "SIGTERM"},
    {SIGTRAP, "SIGTRAP"},
    {SIGXCPU, "SIGXCPU"},
    {SIGXFSZ, "SIGXFSZ"},
};

} // namespace

ChildProcess::ChildProcess(bool hasLowPriority)
    : m_hasLowPriority(hasLowPriority), m_bond(quintptr(getpid()))
{
}

ChildProcess::~ChildProcess() = default;

bool ChildProcess::startWithParent(const QString &program, const QStringList &arguments)
{
    start(program, arguments);
    return waitForStarted(-1);
}

// Called in the child between fork() and exec(). If the parent has ended in between, no signal comes.
void ChildProcess::setupChildProcess()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != pid_t(m_bond))
        _exit(1);
    if (m_hasLowPriority)
        setpriority(PRIO_PROCESS, 0, qMax(getpriority(PRIO_PROCESS, 0), lowPriority));
}

QString crashName(int exitCode)
{
    for (const SignalName &known : signalNames) {
        if (known.number == exitCode)
            return QLatin1String(known.name);
    }
    return QStringLiteral("signal %1").arg(exitCode);
}

/// Qt calls abort().
bool isEndWithoutDisplay(const Failure &failure)
{
    return failure.reason == FailureReason::Crashed && failure.code == QLatin1String("SIGABRT");
}

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

void sayIfNoMachine()
{
    if (qEnvironmentVariableIsEmpty("VKSYSTEMINFO_MACHINE"))
        complain(QStringLiteral("no machine is described, so every Windows call fails: set VKSYSTEMINFO_MACHINE to the folder of one"));
}

// QProcess resets it in the child.
void surviveBrokenPipes()
{
    std::signal(SIGPIPE, SIG_IGN);
}

// QProcess replaces them in the child.
void keepOutputFromChildren() { }
