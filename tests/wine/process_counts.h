// Counts the handles and the memory of the process.
#pragma once

#include <QtCore/qglobal.h>

#include <windows.h>

#include <psapi.h>

/// Tests every possible handle, because Wine does not report their number.
inline DWORD handleCount()
{
    constexpr quintptr end = 0x8000; // handles are multiples of 4; Wine uses low numbers first
    DWORD count = 0;
    DWORD flags = 0;
    for (quintptr handle = 4; handle < end; handle += 4)
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
