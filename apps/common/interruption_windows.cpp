#include "interruption.h"

#include <windows.h>

namespace {

SRWLOCK writing = SRWLOCK_INIT;

/// Windows calls it on a thread of its own. After it, the default handler ends the process.
BOOL WINAPI waitForEndOfWriting(DWORD)
{
    AcquireSRWLockExclusive(&writing);
    return FALSE; // still locked: nothing is written any more
}

} // namespace

InterruptionBlocker::InterruptionBlocker()
{
    static const bool isInstalled = SetConsoleCtrlHandler(waitForEndOfWriting, TRUE) != 0;
    (void)isInstalled;
    AcquireSRWLockExclusive(&writing);
}

InterruptionBlocker::~InterruptionBlocker()
{
    ReleaseSRWLockExclusive(&writing);
}
