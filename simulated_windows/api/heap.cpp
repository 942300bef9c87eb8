#include "call_scope.h"

#include <cstdlib>

using namespace simulated;

HANDLE GetProcessHeap()
{
    return reinterpret_cast<HANDLE>(quintptr(1));
}

LPVOID HeapAlloc(HANDLE, DWORD flags, SIZE_T bytes)
{
    CallScope scope("HeapAlloc", {});
    scope.call.access = flags;
    scope.call.sizeIn = scope.call.sizeOut = bytes;
    if (scope.anyFault())
        return nullptr;
    scope.call.result = 1;
    return std::malloc(bytes); // sanitizers and valgrind then find leaks and overruns
}

BOOL HeapFree(HANDLE, DWORD flags, LPVOID memory)
{
    CallScope scope("HeapFree", {});
    scope.call.access = flags;
    std::free(memory); // also freed if the call fails
    if (scope.anyFault())
        return scope.failure(*scope.anyFault());
    return scope.success(TRUE);
}
