#include "trouble.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>
#include <unistd.h>

namespace simulated {
namespace {

[[noreturn]] void hang()
{
    for (;;)
        pause(); // until a signal; its default action may end the process
}

/// Accesses memory that does not exist. The kernel then sends the signal, as for a defect.
[[noreturn]] void crash()
{
    std::signal(SIGSEGV, SIG_DFL);  // sanitizers, test libraries and hosts may handle it
    volatile quintptr address = 16; // a sanitizer does not report it as null or misaligned
    *reinterpret_cast<volatile int *>(address) = 0;
    std::abort(); // not reached
}

[[noreturn]] void abortProcess()
{
    std::signal(SIGABRT, SIG_DFL);
    std::abort();
}

} // namespace

void happen(TroubleKind kind)
{
    switch (kind.event) {
    case TroubleKind::Sleep:
        std::this_thread::sleep_for(std::chrono::milliseconds(kind.number)); // continues after a signal
        break;
    case TroubleKind::Hang:
        hang();
    case TroubleKind::Crash:
        crash();
    case TroubleKind::Abort:
        abortProcess();
    case TroubleKind::Exit:
        _exit(int(kind.number));
    }
}

} // namespace simulated
