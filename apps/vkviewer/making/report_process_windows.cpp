#include "report_process_system.h"

#include <windows.h>

void startWithoutConsole(QProcess &process)
{
    process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments *arguments) { arguments->flags |= CREATE_NO_WINDOW; });
}

void ProcessJob::take(const QProcess &process)
{
    end();
    const HANDLE started = OpenProcess(PROCESS_SET_QUOTA | PROCESS_TERMINATE, FALSE, DWORD(process.processId()));
    if (!started)
        return;
    if (const HANDLE job = CreateJobObjectW(nullptr, nullptr)) {
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        AssignProcessToJobObject(job, started);
        m_job = reinterpret_cast<quintptr>(job);
    }
    CloseHandle(started);
}

void ProcessJob::end()
{
    if (m_job)
        CloseHandle(reinterpret_cast<HANDLE>(m_job)); // ends the processes
    m_job = 0;
}
