#include "call_scope.h"

#include <cstdlib>

using namespace simulated;

HANDLE GetProcessHeap()
{
    return reinterpret_cast<HANDLE>(quintptr(1));
}

LPVOID HeapAlloc(HANDLE, DWORD flags, SIZE_T bytes)
{
    CallScope scope("HeapAlloc");
    scope.call.access = flags;
    scope.call.sizeIn = scope.call.sizeOut = bytes;
    if (scope.anyFault())
        return nullptr;
    scope.call.result = 1;
    return std::malloc(bytes); // so that a leak or an overrun is found by the usual tools
}

BOOL HeapFree(HANDLE, DWORD flags, LPVOID memory)
{
    CallScope scope("HeapFree");
    scope.call.access = flags;
    std::free(memory); // gone all the same when it is made to fail
    if (scope.anyFault())
        return scope.failure(*scope.anyFault());
    return scope.success(TRUE);
}
