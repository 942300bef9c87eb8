// The part of MSVC's run time that initialises static variables of functions once, and the
// variables of threads, which it needs.
#include <windows.h>

extern "C" {

// The loader gives each thread a copy of the sections from ".tls" to ".tls$ZZZ".
#pragma section(".tls", long, read, write)
#pragma section(".tls$ZZZ", long, read, write)
#pragma section(".CRT$XLA", long, read)
#pragma section(".CRT$XLZ", long, read)
unsigned long _tls_index = 0;
__declspec(allocate(".tls")) char _tls_start = 0;
__declspec(allocate(".tls$ZZZ")) char _tls_end = 0;
__declspec(allocate(".CRT$XLA")) extern const PIMAGE_TLS_CALLBACK firstThreadCallback = nullptr;
__declspec(allocate(".CRT$XLZ")) extern const PIMAGE_TLS_CALLBACK endOfThreadCallbacks = nullptr;

// The linker enters it into the header of the DLL.
extern const IMAGE_TLS_DIRECTORY64 _tls_used = {
    reinterpret_cast<ULONGLONG>(&_tls_start),
    reinterpret_cast<ULONGLONG>(&_tls_end),
    reinterpret_cast<ULONGLONG>(&_tls_index),
    reinterpret_cast<ULONGLONG>(&firstThreadCallback + 1),
    0,
    0,
};

// A guard is 0 before the initialisation, -1 during it, and then the value of the counter at its
// end. Code whose thread has seen this value calls none of these functions.
enum : int {
    NotInitialised = 0,
    BeingInitialised = -1,
    FirstEpoch = static_cast<int>(0x80000000)
};
static int globalEpoch = FirstEpoch;
__declspec(thread) int _Init_thread_epoch = FirstEpoch;
static SRWLOCK lock = SRWLOCK_INIT;
static CONDITION_VARIABLE changed = CONDITION_VARIABLE_INIT;

void _Init_thread_header(int *guard)
{
    AcquireSRWLockExclusive(&lock);
    while (*guard == BeingInitialised)
        SleepConditionVariableSRW(&changed, &lock, INFINITE, 0);
    if (*guard == NotInitialised)
        *guard = BeingInitialised; // by the caller
    else
        _Init_thread_epoch = globalEpoch;
    ReleaseSRWLockExclusive(&lock);
}

static void endInitialisation(int *guard, int value)
{
    *guard = value;
    ReleaseSRWLockExclusive(&lock);
    WakeAllConditionVariable(&changed);
}

void _Init_thread_footer(int *guard)
{
    AcquireSRWLockExclusive(&lock);
    _Init_thread_epoch = ++globalEpoch;
    endInitialisation(guard, globalEpoch);
}

// The initialisation threw an exception.
void _Init_thread_abort(int *guard)
{
    AcquireSRWLockExclusive(&lock);
    endInitialisation(guard, NotInitialised);
}
}
