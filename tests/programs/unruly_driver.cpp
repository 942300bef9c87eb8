// A library that a test loads into vkreport and its children. In the children it behaves like a bad driver. The
// variable UNRULY_DRIVER says how:
//
//   noisy           writes to standard output when the host name is asked for
//   never_unloads   sleeps when the process ends
//   crashes_at_end  crashes when the process ends

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <sys/syscall.h>
#include <sys/utsname.h>
#include <unistd.h>

namespace {

/// The test started vkreport itself. Its process id is the value of RUN_OF_TEST.
bool isChild()
{
    const char *test = std::getenv("RUN_OF_TEST");
    return test && std::atol(test) != long(::getppid());
}

bool behaves(const char *how)
{
    const char *value = std::getenv("UNRULY_DRIVER");
    return value && std::strcmp(value, how) == 0 && isChild();
}

} // namespace

// Overrides the function of the C library.
extern "C" __attribute__((visibility("default"))) int uname(utsname *name) noexcept
{
    const char noise[] = "noise of a driver\n";
    if (behaves("noisy") && ::write(STDOUT_FILENO, noise, sizeof noise - 1) < 0)
        std::abort();
    return int(::syscall(SYS_uname, name));
}

extern "C" __attribute__((destructor)) void unload()
{
    if (behaves("never_unloads"))
        ::sleep(100);
    if (behaves("crashes_at_end"))
        ::raise(SIGSEGV);
}
