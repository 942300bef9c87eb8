#include "interruption.h"

#include <csignal>
#include <initializer_list>

namespace {

void changeMask(int how)
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT})
        sigaddset(&signals, signal);
    pthread_sigmask(how, &signals, nullptr);
}

} // namespace

InterruptionBlocker::InterruptionBlocker()
{
    changeMask(SIG_BLOCK);
}

InterruptionBlocker::~InterruptionBlocker()
{
    changeMask(SIG_UNBLOCK);
}
