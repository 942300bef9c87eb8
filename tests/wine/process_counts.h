// What the process holds at a moment.
#pragma once

#include <QtCore/qglobal.h>

#include <windows.h>

#include <psapi.h>

/// Counted one by one: Wine does not tell the number.
inline DWORD handleCount()
{
    constexpr quintptr beyond = 0x8000; // handles are multiples of 4, low ones first
    DWORD count = 0;
    DWORD flags = 0;
    for (quintptr handle = 4; handle < beyond; handle += 4)
        count += GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags) ? 1 : 0;
    return count;
}

/// In bytes.
inline SIZE_T workingSet()
{
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.WorkingSetSize;
}
