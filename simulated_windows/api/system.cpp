#include "call_scope.h"
#include "text.h"

#include <cstddef>

namespace simulated {
namespace {

void copyText(const QString &text, CHAR (&field)[128])
{
    copyNarrow(ansi().fromUtf16(text), field, 128);
}

void copyText(const QString &text, WCHAR (&field)[128])
{
    copyWide(text.left(127), field);
}

/// Fills the plain or the extended structure, depending on the size that the caller set.
template <typename Plain, typename Extended>
BOOL getVersion(const char *callName, Plain *information)
{
    CallScope scope(callName, {});
    scope.call.sizeIn = scope.call.sizeOut = information->dwOSVersionInfoSize;
    const auto &version = machineInUse().system.GetVersionEx;
    if (scope.fault())
        return scope.failure(*scope.fault());
    if (!version)
        return scope.failure(version.error);
    const bool extended = information->dwOSVersionInfoSize == sizeof(Extended);
    if (!extended && information->dwOSVersionInfoSize != sizeof(Plain))
        return scope.failure(ERROR_INSUFFICIENT_BUFFER);
    information->dwMajorVersion = version->dwMajorVersion;
    information->dwMinorVersion = version->dwMinorVersion;
    information->dwBuildNumber = version->dwBuildNumber;
    information->dwPlatformId = version->dwPlatformId;
    copyText(version->szCSDVersion, information->szCSDVersion);
    if (extended) {
        auto *record = reinterpret_cast<Extended *>(information);
        record->wServicePackMajor = version->wServicePackMajor;
        record->wServicePackMinor = version->wServicePackMinor;
        record->wSuiteMask = version->wSuiteMask;
        record->wProductType = version->wProductType;
        record->wReserved = 0;
    }
    return scope.success(TRUE);
}

} // namespace
} // namespace simulated

using namespace simulated;

BOOL GetVersionExA(LPOSVERSIONINFOA information)
{
    return getVersion<OSVERSIONINFOA, OSVERSIONINFOEXA>("GetVersionExA", information);
}

BOOL GetVersionExW(LPOSVERSIONINFOW information)
{
    return getVersion<OSVERSIONINFOW, OSVERSIONINFOEXW>("GetVersionExW", information);
}

void GetSystemInfo(LPSYSTEM_INFO information)
{
    CallScope scope("GetSystemInfo", {});
    const machine::SystemInfoRecord &record = machineInUse().system.GetSystemInfo;
    information->wProcessorArchitecture = record.wProcessorArchitecture;
    information->wReserved = 0;
    information->dwPageSize = record.dwPageSize;
    information->lpMinimumApplicationAddress = reinterpret_cast<LPVOID>(record.lpMinimumApplicationAddress);
    information->lpMaximumApplicationAddress = reinterpret_cast<LPVOID>(record.lpMaximumApplicationAddress);
    information->dwActiveProcessorMask = record.dwActiveProcessorMask;
    information->dwNumberOfProcessors = record.dwNumberOfProcessors;
    information->dwProcessorType = record.dwProcessorType;
    information->dwAllocationGranularity = record.dwAllocationGranularity;
    information->wProcessorLevel = record.wProcessorLevel;
    information->wProcessorRevision = record.wProcessorRevision;
}

int GetSystemMetrics(int index)
{
    CallScope scope("GetSystemMetrics", {{}, QString::number(index)});
    if (scope.fault())
        return 0;
    return scope.success(machineInUse().system.GetSystemMetrics.value(index));
}

BOOL GlobalMemoryStatusEx(LPMEMORYSTATUSEX status)
{
    CallScope scope("GlobalMemoryStatusEx", {});
    scope.call.sizeIn = scope.call.sizeOut = status->dwLength;
    const auto &memory = machineInUse().system.GlobalMemoryStatusEx;
    if (scope.fault())
        return scope.failure(*scope.fault());
    if (!memory)
        return scope.failure(memory.error);
    if (status->dwLength != sizeof *status)
        return scope.failure(ERROR_INVALID_PARAMETER);
    status->dwMemoryLoad = memory->dwMemoryLoad;
    status->ullTotalPhys = memory->ullTotalPhys;
    status->ullAvailPhys = memory->ullAvailPhys;
    status->ullTotalPageFile = memory->ullTotalPageFile;
    status->ullAvailPageFile = memory->ullAvailPageFile;
    status->ullTotalVirtual = memory->ullTotalVirtual;
    status->ullAvailVirtual = memory->ullAvailVirtual;
    status->ullAvailExtendedVirtual = 0;
    return scope.success(TRUE);
}
