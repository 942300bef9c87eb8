// On Windows this program calls through the table of its imports. While it records,
// the table leads to functions of this file, which note the call and make it.

#include "recording.h"

// winsock2.h goes before windows.h, iphlpapi.h behind it
#include <winsock2.h>

#include <windows.h>

#include <QtCore/QHash>
#include <algorithm>
#include <iphlpapi.h>
#include <psapi.h>
#include <shlobj.h>
#include <time.h>

// Every call of the sections that a journal of the simulated Windows can hold.
// Formatted by hand: clang-format nests the items.
// clang-format off
#define EACH_CALL(HOOK)                                                                                                \
    HOOK(RegOpenKeyExA) HOOK(RegCloseKey) HOOK(RegQueryValueExA) HOOK(RegQueryValueExW) HOOK(RegEnumKeyExA)            \
    HOOK(RegEnumKeyExW) HOOK(RegEnumKeyA) HOOK(RegEnumValueA) HOOK(GetSystemRegistryQuota) HOOK(GetVersionExA)         \
    HOOK(GetVersionExW) HOOK(GetSystemInfo) HOOK(GetSystemMetrics) HOOK(GlobalMemoryStatusEx)                          \
    HOOK(GetComputerNameExW) HOOK(GetUserNameW) HOOK(SetErrorMode) HOOK(GetLogicalDrives) HOOK(GetDriveTypeW)          \
    HOOK(GetVolumeInformationW) HOOK(GetDiskFreeSpaceExW) HOOK(GetSystemWindowsDirectoryW)                             \
    HOOK(GetSystemWow64DirectoryW) HOOK(ExpandEnvironmentStringsW) HOOK(SHGetSpecialFolderPathW) HOOK(wsprintfW)       \
    HOOK(GetModuleHandleW) HOOK(LoadLibraryW) HOOK(FreeLibrary) HOOK(GetProcAddress) HOOK(HeapAlloc) HOOK(HeapFree)    \
    HOOK(GetAdaptersInfo) HOOK(_localtime32_s) HOOK(asctime_s) HOOK(EnumProcessModules) HOOK(GetModuleFileNameExW)
// clang-format on

// A name may be a macro for another one, as those of psapi.h are.
#define PLACE_OF(name) __imp_##name
#define PLACE(name) PLACE_OF(name)
#define DECLARE_PLACE(name) extern "C" void *PLACE(name);
EACH_CALL(DECLARE_PLACE)

namespace bench {
namespace {

#define DECLARE_REAL(name) decltype(&::name) name = nullptr;
struct
{
    EACH_CALL(DECLARE_REAL)
} real;

std::vector<Call> calls;
QHash<HKEY, QString> keyPaths;
std::vector<HMODULE> modules;
FARPROC realFunction = nullptr; // of the last GetProcAddress

QString fromWide(const wchar_t *text)
{
    return QString(reinterpret_cast<const QChar *>(text));
}

QString pathOf(HKEY key)
{
    if (key == HKEY_CLASSES_ROOT)
        return QStringLiteral("HKEY_CLASSES_ROOT");
    if (key == HKEY_CURRENT_USER)
        return QStringLiteral("HKEY_CURRENT_USER");
    return key == HKEY_LOCAL_MACHINE ? QStringLiteral("HKEY_LOCAL_MACHINE") : keyPaths.value(key);
}

/// Notes a call once it is made. Each field holds what the journal of the simulated Windows holds there.
template <typename Result>
Result noted(const char *name, const QString &key, const QString &value, quint64 sizeIn, quint64 sizeOut, Result result,
             quint32 access = 0)
{
    calls.push_back({name, key, value, access, sizeIn, sizeOut, qint64(result)});
    return result;
}

namespace hooks {

LSTATUS WINAPI RegOpenKeyExA(HKEY root, LPCSTR subKey, DWORD options, REGSAM access, PHKEY result)
{
    const LSTATUS status = real.RegOpenKeyExA(root, subKey, options, access, result);
    const QString path = pathOf(root) + QLatin1Char('\\') + QString::fromLatin1(subKey);
    if (status == ERROR_SUCCESS)
        keyPaths.insert(*result, path);
    return noted("RegOpenKeyExA", path, options ? QString::number(options) : QString(), 0, 0, status, access);
}

LSTATUS WINAPI RegCloseKey(HKEY key)
{
    return noted("RegCloseKey", pathOf(key), QString(), 0, 0, real.RegCloseKey(key));
}

LSTATUS WINAPI RegQueryValueExA(HKEY key, LPCSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size)
{
    const DWORD room = *size;
    const LSTATUS status = real.RegQueryValueExA(key, name, reserved, type, data, size);
    return noted("RegQueryValueExA", pathOf(key), QString::fromLatin1(name), room, *size, status);
}

LSTATUS WINAPI RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size)
{
    const DWORD room = *size;
    const LSTATUS status = real.RegQueryValueExW(key, name, reserved, type, data, size);
    return noted("RegQueryValueExW", pathOf(key), fromWide(name), room, *size, status);
}

LSTATUS WINAPI RegEnumKeyExA(HKEY key, DWORD index, LPSTR name, LPDWORD size, LPDWORD reserved, LPSTR keyClass,
                             LPDWORD classSize, PFILETIME lastWrite)
{
    const DWORD room = *size;
    const LSTATUS status = real.RegEnumKeyExA(key, index, name, size, reserved, keyClass, classSize, lastWrite);
    return noted("RegEnumKeyExA", pathOf(key), QString::number(index), room, *size, status);
}

LSTATUS WINAPI RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD size, LPDWORD reserved, LPWSTR keyClass,
                             LPDWORD classSize, PFILETIME lastWrite)
{
    const DWORD room = *size;
    const LSTATUS status = real.RegEnumKeyExW(key, index, name, size, reserved, keyClass, classSize, lastWrite);
    return noted("RegEnumKeyExW", pathOf(key), QString::number(index), room, *size, status);
}

LSTATUS WINAPI RegEnumKeyA(HKEY key, DWORD index, LPSTR name, DWORD size)
{
    return noted("RegEnumKeyA", pathOf(key), QString::number(index), size, size, real.RegEnumKeyA(key, index, name, size));
}

LSTATUS WINAPI RegEnumValueA(HKEY key, DWORD index, LPSTR name, LPDWORD nameSize, LPDWORD reserved, LPDWORD type,
                             LPBYTE data, LPDWORD size)
{
    const DWORD room = *size;
    const LSTATUS status = real.RegEnumValueA(key, index, name, nameSize, reserved, type, data, size);
    return noted("RegEnumValueA", pathOf(key), QString::number(index), room, *size, status);
}

BOOL WINAPI GetSystemRegistryQuota(PDWORD allowed, PDWORD used)
{
    return noted("GetSystemRegistryQuota", QString(), QString(), 0, 0, real.GetSystemRegistryQuota(allowed, used));
}

BOOL WINAPI GetVersionExA(LPOSVERSIONINFOA version)
{
    const DWORD size = version->dwOSVersionInfoSize;
    return noted("GetVersionExA", QString(), QString(), size, size, real.GetVersionExA(version));
}

BOOL WINAPI GetVersionExW(LPOSVERSIONINFOW version)
{
    const DWORD size = version->dwOSVersionInfoSize;
    return noted("GetVersionExW", QString(), QString(), size, size, real.GetVersionExW(version));
}

void WINAPI GetSystemInfo(LPSYSTEM_INFO information)
{
    real.GetSystemInfo(information);
    noted("GetSystemInfo", QString(), QString(), 0, 0, 0);
}

int WINAPI GetSystemMetrics(int index)
{
    return noted("GetSystemMetrics", QString(), QString::number(index), 0, 0, real.GetSystemMetrics(index));
}

BOOL WINAPI GlobalMemoryStatusEx(LPMEMORYSTATUSEX status)
{
    const DWORD size = status->dwLength;
    return noted("GlobalMemoryStatusEx", QString(), QString(), size, size, real.GlobalMemoryStatusEx(status));
}

BOOL WINAPI GetComputerNameExW(COMPUTER_NAME_FORMAT format, LPWSTR buffer, LPDWORD size)
{
    const DWORD room = *size;
    const BOOL done = real.GetComputerNameExW(format, buffer, size);
    return noted("GetComputerNameExW", QString(), QString::number(int(format)), room, *size, done);
}

BOOL WINAPI GetUserNameW(LPWSTR buffer, LPDWORD size)
{
    const DWORD room = *size;
    const BOOL done = real.GetUserNameW(buffer, size);
    return noted("GetUserNameW", QString(), QString(), room, *size, done);
}

UINT WINAPI SetErrorMode(UINT mode)
{
    return noted("SetErrorMode", QString(), QString::number(mode), 0, 0, real.SetErrorMode(mode));
}

DWORD WINAPI GetLogicalDrives()
{
    return noted("GetLogicalDrives", QString(), QString(), 0, 0, real.GetLogicalDrives());
}

UINT WINAPI GetDriveTypeW(LPCWSTR root)
{
    return noted("GetDriveTypeW", fromWide(root), QString(), 0, 0, real.GetDriveTypeW(root));
}

BOOL WINAPI GetVolumeInformationW(LPCWSTR root, LPWSTR volumeName, DWORD volumeNameSize, LPDWORD serialNumber,
                                  LPDWORD longest, LPDWORD flags, LPWSTR fileSystemName, DWORD fileSystemNameSize)
{
    const BOOL done = real.GetVolumeInformationW(root, volumeName, volumeNameSize, serialNumber, longest, flags,
                                                 fileSystemName, fileSystemNameSize);
    return noted("GetVolumeInformationW", fromWide(root), QString::number(fileSystemNameSize), volumeNameSize,
                 volumeNameSize, done);
}

BOOL WINAPI GetDiskFreeSpaceExW(LPCWSTR root, PULARGE_INTEGER freeToCaller, PULARGE_INTEGER total,
                                PULARGE_INTEGER totalFree)
{
    const BOOL done = real.GetDiskFreeSpaceExW(root, freeToCaller, total, totalFree);
    return noted("GetDiskFreeSpaceExW", fromWide(root), QString(), 0, 0, done);
}

UINT WINAPI GetSystemWindowsDirectoryW(LPWSTR buffer, UINT size)
{
    return noted("GetSystemWindowsDirectoryW", QString(), QString(), size, size,
                 real.GetSystemWindowsDirectoryW(buffer, size));
}

UINT WINAPI GetSystemWow64DirectoryW(LPWSTR buffer, UINT size)
{
    return noted("GetSystemWow64DirectoryW", QString(), QString(), size, size,
                 real.GetSystemWow64DirectoryW(buffer, size));
}

DWORD WINAPI ExpandEnvironmentStringsW(LPCWSTR source, LPWSTR buffer, DWORD size)
{
    return noted("ExpandEnvironmentStringsW", QString(), fromWide(source), size, size,
                 real.ExpandEnvironmentStringsW(source, buffer, size));
}

BOOL WINAPI SHGetSpecialFolderPathW(HWND owner, LPWSTR path, int folder, BOOL create)
{
    return noted("SHGetSpecialFolderPathW", QString(), QString::number(folder), 0, 0,
                 real.SHGetSpecialFolderPathW(owner, path, folder, create), quint32(create));
}

int WINAPIV wsprintfW(LPWSTR buffer, LPCWSTR format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = wvsprintfW(buffer, format, arguments);
    va_end(arguments);
    return noted("wsprintfW", QString(), fromWide(buffer), 0, 0, length);
}

HMODULE WINAPI GetModuleHandleW(LPCWSTR name)
{
    const HMODULE module = real.GetModuleHandleW(name);
    noted("GetModuleHandleW", fromWide(name), QString(), 0, 0, int(module != nullptr));
    return module;
}

HMODULE WINAPI LoadLibraryW(LPCWSTR name)
{
    const HMODULE module = real.LoadLibraryW(name);
    noted("LoadLibraryW", fromWide(name), QString(), 0, 0, int(module != nullptr));
    return module;
}

BOOL WINAPI FreeLibrary(HMODULE module)
{
    return noted("FreeLibrary", QString(), QString(), 0, 0, real.FreeLibrary(module));
}

BOOL WINAPI getProductInfo(DWORD major, DWORD minor, DWORD servicePackMajor, DWORD servicePackMinor, PDWORD type)
{
    const auto function = reinterpret_cast<decltype(&getProductInfo)>(reinterpret_cast<void *>(realFunction));
    const BOOL done = function(major, minor, servicePackMajor, servicePackMinor, type);
    const QString numbers = QStringLiteral("%1.%2.%3.%4").arg(major).arg(minor).arg(servicePackMajor).arg(servicePackMinor);
    return noted("GetProductInfo", QString(), numbers, 0, 0, done);
}

qint32 WINAPI dnsServiceGetProperty(const char *property, void *result, DWORD *size)
{
    const auto function = reinterpret_cast<decltype(&dnsServiceGetProperty)>(reinterpret_cast<void *>(realFunction));
    const DWORD room = *size;
    const qint32 error = function(property, result, size);
    return noted("DNSServiceGetProperty", QString(), QString::fromLatin1(property), room, *size, error);
}

FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name)
{
    realFunction = real.GetProcAddress(module, name);
    noted("GetProcAddress", QString(), QString::fromLatin1(name), 0, 0, int(realFunction != nullptr));
    if (realFunction && qstrcmp(name, "GetProductInfo") == 0)
        return reinterpret_cast<FARPROC>(reinterpret_cast<void *>(&getProductInfo));
    if (realFunction && qstrcmp(name, "DNSServiceGetProperty") == 0)
        return reinterpret_cast<FARPROC>(reinterpret_cast<void *>(&dnsServiceGetProperty));
    return realFunction;
}

LPVOID WINAPI HeapAlloc(HANDLE heap, DWORD flags, SIZE_T bytes)
{
    const LPVOID memory = real.HeapAlloc(heap, flags, bytes);
    noted("HeapAlloc", QString(), QString(), bytes, bytes, int(memory != nullptr), flags);
    return memory;
}

BOOL WINAPI HeapFree(HANDLE heap, DWORD flags, LPVOID memory)
{
    return noted("HeapFree", QString(), QString(), 0, 0, real.HeapFree(heap, flags, memory), flags);
}

DWORD WINAPI GetAdaptersInfo(PIP_ADAPTER_INFO adapters, PULONG size)
{
    const ULONG room = *size;
    const DWORD error = real.GetAdaptersInfo(adapters, size);
    return noted("GetAdaptersInfo", QString(), QString(), room, *size, error);
}

errno_t __cdecl _localtime32_s(struct tm *result, const __time32_t *time)
{
    const errno_t error = real._localtime32_s(result, time);
    return noted("_localtime32_s", QString(), QString::number(*time), 0, 0, error);
}

errno_t __cdecl asctime_s(char *buffer, size_t size, const struct tm *time)
{
    return noted("asctime_s", QString(), QString(), size, size, real.asctime_s(buffer, size, time));
}

BOOL WINAPI EnumProcessModules(HANDLE process, HMODULE *list, DWORD bytes, LPDWORD needed)
{
    const BOOL done = real.EnumProcessModules(process, list, bytes, needed);
    modules.assign(list, list + std::min(bytes, *needed) / sizeof(HMODULE));
    return noted("EnumProcessModules", QString(), QString(), bytes, *needed, done);
}

DWORD WINAPI GetModuleFileNameExW(HANDLE process, HMODULE module, LPWSTR name, DWORD size)
{
    const DWORD length = real.GetModuleFileNameExW(process, module, name, size);
    const auto index = std::find(modules.begin(), modules.end(), module) - modules.begin();
    return noted("GetModuleFileNameExW", QString(), QString::number(index), size, size, length);
}

} // namespace hooks

/// Puts \a function into a place of the table, which is read-only at other times.
void *exchange(void *&place, void *function)
{
    void *const before = place;
    DWORD protection = 0;
    ::VirtualProtect(&place, sizeof place, PAGE_READWRITE, &protection);
    place = function;
    ::VirtualProtect(&place, sizeof place, protection, &protection);
    return before;
}

template <typename Function>
void replace(void *&place, Function hook, Function &realPlace)
{
    realPlace = reinterpret_cast<Function>(exchange(place, reinterpret_cast<void *>(hook)));
}

/// mingw-w64 finds these in the run-time library when they are first called, and puts
/// them into the table itself.
void useTimeFunctions()
{
    const __time32_t seconds = 0;
    struct tm time = {};
    char text[26];
    ::_localtime32_s(&time, &seconds);
    ::asctime_s(text, sizeof text, &time);
}

} // namespace

std::vector<Call> recorded(const std::function<void()> &run)
{
    useTimeFunctions();
    calls.clear();
    keyPaths.clear();
#define REPLACE(name) replace(PLACE(name), &hooks::name, real.name);
    EACH_CALL(REPLACE)
    run();
#define RESTORE(name) exchange(PLACE(name), reinterpret_cast<void *>(real.name));
    EACH_CALL(RESTORE)
    return std::move(calls);
}

} // namespace bench
