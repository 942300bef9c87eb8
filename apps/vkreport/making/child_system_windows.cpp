#include "child_system.h"

#include <windows.h>

namespace {

struct ExceptionName
{
    unsigned code;
    const char *name;
};

constexpr ExceptionName exceptionNames[] = {
    {0xc0000005, "access violation"},
    {0xc0000006, "in-page error"},
    {0xc000001d, "illegal instruction"},
    {0xc0000094, "integer division by zero"},
    {0xc00000fd, "stack overflow"},
    {0xc0000135, "DLL not found"},
    {0xc0000139, "entry point not found"},
    {0xc0000142, "DLL initialization failed"},
    {0xc0000374, "heap corruption"},
    {0xc0000409, "stack buffer overrun"},
    {0xc000013a, "Ctrl+C"},
};

/// Windows 7 does not accept the child if this process is in a job already; then the child itself notices the
/// end of this process.
HANDLE jobWithChild(HANDLE child)
{
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    if (!job)
        return nullptr;
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE | JOB_OBJECT_LIMIT_DIE_ON_UNHANDLED_EXCEPTION;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    AssignProcessToJobObject(job, child);
    return job;
}

} // namespace

ChildProcess::ChildProcess(bool hasLowPriority)
    : m_hasLowPriority(hasLowPriority)
{
    if (m_hasLowPriority) {
        setCreateProcessArgumentsModifier(
            [](CreateProcessArguments *arguments) { arguments->flags |= BELOW_NORMAL_PRIORITY_CLASS; });
    }
}

ChildProcess::~ChildProcess()
{
    if (m_bond)
        CloseHandle(reinterpret_cast<HANDLE>(m_bond)); // ends the child
}

bool ChildProcess::startWithParent(const QString &program, const QStringList &arguments)
{
    start(program, arguments);
    if (!waitForStarted(-1))
        return false;
    if (const HANDLE child = OpenProcess(PROCESS_SET_QUOTA | PROCESS_TERMINATE, FALSE, DWORD(processId()))) {
        m_bond = reinterpret_cast<quintptr>(jobWithChild(child));
        CloseHandle(child);
    }
    return true;
}

QString crashName(int exitCode)
{
    const auto code = unsigned(exitCode);
    const QString number = QStringLiteral("0x%1").arg(code, 8, 16, QLatin1Char('0'));
    for (const ExceptionName &known : exceptionNames) {
        if (known.code == code)
            return QStringLiteral("%1, %2").arg(QLatin1String(known.name), number);
    }
    return number;
}

bool isEndWithoutDisplay(const Failure &)
{
    return false;
}

bool hasDisplay()
{
    return true;
}

void sayIfNoMachine() { }

// Windows has no signal for it.
void surviveBrokenPipes() { }

// QProcess lets the child inherit every handle that can be inherited.
void keepOutputFromChildren()
{
    for (const DWORD stream : {STD_OUTPUT_HANDLE, STD_ERROR_HANDLE})
        SetHandleInformation(GetStdHandle(stream), HANDLE_FLAG_INHERIT, 0);
}
