#include "report_process_system.h"

#include <windows.h>

JobProcess::JobProcess()
{
    setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments *arguments) { arguments->flags |= CREATE_NO_WINDOW; });
}

JobProcess::~JobProcess()
{
    endJob();
}

void JobProcess::startJob(const QString &program, const QStringList &arguments)
{
    start(program, arguments);
    const HANDLE started = OpenProcess(PROCESS_SET_QUOTA | PROCESS_TERMINATE, FALSE, DWORD(processId()));
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

void JobProcess::endJob()
{
    kill();
    if (m_job)
        CloseHandle(reinterpret_cast<HANDLE>(m_job)); // ends the processes
    m_job = 0;
}
