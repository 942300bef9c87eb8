#include "child_protection.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

/// A limit of 1 byte also prevents that the kernel passes the dump to a program (core(5)).
void forbidCoreDumps()
{
    rlimit limit = {};
    if (getrlimit(RLIMIT_CORE, &limit) != 0)
        return;
    if (limit.rlim_max < 1) // only this prevents it then
        prctl(PR_SET_DUMPABLE, 0);
    limit.rlim_cur = qMin<rlim_t>(1, limit.rlim_max);
    setrlimit(RLIMIT_CORE, &limit);
}

} // namespace

// The parent has set the parent-death signal before it started this program.
int protectChild()
{
    forbidCoreDumps();
    const int pipe = dup(STDOUT_FILENO);
    dup2(STDERR_FILENO, STDOUT_FILENO);
    return pipe;
}

void endProcess(int exitCode)
{
    _exit(exitCode);
}

QString programFile()
{
    const QString file = QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
    return file.isEmpty() ? QCoreApplication::applicationFilePath() : file;
}
