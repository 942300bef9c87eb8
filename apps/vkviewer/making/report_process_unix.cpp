#include "report_process_system.h"

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

JobProcess::JobProcess()
    : m_job(quintptr(getpid()))
{
}

JobProcess::~JobProcess() = default;

void JobProcess::startJob(const QString &program, const QStringList &arguments)
{
    start(program, arguments);
}

// Called in the child between fork() and exec(). If the parent has ended in between, no signal comes.
void JobProcess::setupChildProcess()
{
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != pid_t(m_job))
        _exit(1);
}

void JobProcess::endJob()
{
    if (const qint64 process = processId()) // otherwise the number may belong to somebody else
        ::kill(-pid_t(process), SIGKILL);
    kill(); // before it has a group
}
