#include "server_process.h"

#include <csignal>
#include <sys/prctl.h>

namespace qt_environment {

ServerProcess::~ServerProcess()
{
    terminate();
    if (!waitForFinished(timeout))
        kill();
    waitForFinished();
}

void ServerProcess::setupChildProcess()
{
    prctl(PR_SET_PDEATHSIG, SIGTERM);
}

} // namespace qt_environment
