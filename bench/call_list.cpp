// winsock2.h goes before windows.h, iphlpapi.h after it
#include <winsock2.h>

#include "call_list.h"

#include <QtCore/QHash>
#include <QtCore/QStringList>

#include <iphlpapi.h>
#include <psapi.h>
#include <shlobj.h>
#include <time.h>

namespace bench {
namespace {

struct Step
{
    void (*make)(const Step &) = nullptr;
    HKEY root = nullptr;
    std::size_t slot = 0; // of the key in `keys`
    QByteArray narrow;    // sub-key or name, for calls that take bytes
    QString path;         // Call::key of a call without a registry key
    QString text;         // Call::value
    DWORD number = 0;     // Call::value as a number, up to its first point
    DWORD minor = 0;      // and after this point
    DWORD access = 0;
    DWORD size = 0;
};

// Results that later calls need, and sizes that are in and out.
std::vector<HKEY> keys;
DWORD size = 0;
DWORD nameSize = 0;
LPVOID memory = nullptr;
HMODULE module = nullptr;
HMODULE modules[1024];
FARPROC function = nullptr;
struct tm localTime = {};

/// A buffer of any type, for results that no later call needs.
struct Unused
{
    template <typename T>
    operator T *()
    {
        return reinterpret_cast<T *>(data);
    }

    /// For records that begin with their size.
    Unused &withSize(DWORD recordSize)
    {
        *static_cast<DWORD *>(*this) = recordSize;
        return *this;
    }

    alignas(std::max_align_t) char data[8192];
} unused;

HKEY key(const Step &s)
{
    return keys[s.slot];
}

const wchar_t *units(const QString &string)
{
    return reinterpret_cast<const wchar_t *>(string.utf16());
}

const QHash<QByteArray, void (*)(const Step &)> knownCalls = {
    {"RegOpenKeyExA", [](const Step &s) { RegOpenKeyExA(s.root, s.narrow.constData(), 0, s.access, &keys[s.slot]); }},
    {"RegCloseKey", [](const Step &s) { RegCloseKey(key(s)); }},
    {"RegQueryValueExA", [](const Step &s) {
         const char *name = s.narrow.isEmpty() ? nullptr : s.narrow.constData();
         RegQueryValueExA(key(s), name, nullptr, nullptr, unused, &size);
     }},
    {"RegQueryValueExW", [](const Step &s) { RegQueryValueExW(key(s), units(s.text), nullptr, unused, unused, &size); }},
    {"RegEnumKeyExA", [](const Step &s) {
         RegEnumKeyExA(key(s), s.number, unused, &size, nullptr, nullptr, nullptr, nullptr);
     }},
    {"RegEnumKeyExW", [](const Step &s) {
         RegEnumKeyExW(key(s), s.number, unused, &size, nullptr, nullptr, nullptr, nullptr);
     }},
    {"RegEnumKeyA", [](const Step &s) { RegEnumKeyA(key(s), s.number, unused, s.size); }},
    {"RegEnumValueA", [](const Step &s) {
         nameSize = s.size;
         RegEnumValueA(key(s), s.number, unused, &nameSize, nullptr, unused, unused, &size);
     }},
    {"GetSystemRegistryQuota", [](const Step &) { GetSystemRegistryQuota(unused, unused); }},
    {"GetVersionExA", [](const Step &s) { GetVersionExA(unused.withSize(s.size)); }},
    {"GetVersionExW", [](const Step &s) { GetVersionExW(unused.withSize(s.size)); }},
    {"GetSystemInfo", [](const Step &) { GetSystemInfo(unused); }},
    {"GetSystemMetrics", [](const Step &s) { GetSystemMetrics(int(s.number)); }},
    {"GlobalMemoryStatusEx", [](const Step &s) { GlobalMemoryStatusEx(unused.withSize(s.size)); }},
    {"GetComputerNameExW", [](const Step &s) { GetComputerNameExW(COMPUTER_NAME_FORMAT(s.number), unused, &size); }},
    {"GetUserNameW", [](const Step &) { GetUserNameW(unused, &size); }},
    {"SetErrorMode", [](const Step &s) { SetErrorMode(s.number); }},
    {"GetLogicalDrives", [](const Step &) { GetLogicalDrives(); }},
    {"GetDriveTypeW", [](const Step &s) { GetDriveTypeW(units(s.path)); }},
    {"GetVolumeInformationW", [](const Step &s) {
         GetVolumeInformationW(units(s.path), unused, MAX_PATH, nullptr, nullptr, nullptr, unused, MAX_PATH);
     }},
    {"GetDiskFreeSpaceExW", [](const Step &s) { GetDiskFreeSpaceExW(units(s.path), unused, unused, nullptr); }},
    {"GetSystemWindowsDirectoryW", [](const Step &s) { GetSystemWindowsDirectoryW(unused, s.size); }},
    {"GetSystemWow64DirectoryW", [](const Step &s) { GetSystemWow64DirectoryW(unused, s.size); }},
    {"ExpandEnvironmentStringsW", [](const Step &s) {
         ExpandEnvironmentStringsW(units(s.text), static_cast<wchar_t *>(memory), s.size);
     }},
    {"SHGetSpecialFolderPathW", [](const Step &s) {
         SHGetSpecialFolderPathW(nullptr, unused, int(s.number), BOOL(s.access));
     }},
    {"wsprintfW", [](const Step &s) { wsprintfW(unused, L"%c:\\", int(s.text.at(0).unicode())); }},
    {"EnumProcessModules", [](const Step &) {
         EnumProcessModules(GetCurrentProcess(), modules, sizeof modules, unused);
     }},
    {"GetModuleFileNameExW", [](const Step &s) {
         GetModuleFileNameExW(GetCurrentProcess(), modules[s.number], unused, s.size);
     }},
    {"GetModuleHandleW", [](const Step &s) { module = GetModuleHandleW(units(s.path)); }},
    {"LoadLibraryW", [](const Step &s) { module = LoadLibraryW(units(s.path)); }},
    {"FreeLibrary", [](const Step &) { FreeLibrary(module); }},
    {"GetProcAddress", [](const Step &s) { function = GetProcAddress(module, s.narrow.constData()); }},
    {"GetProductInfo", [](const Step &s) {
         using Function = BOOL(WINAPI *)(DWORD, DWORD, DWORD, DWORD, PDWORD);
         reinterpret_cast<Function>(reinterpret_cast<void *>(function))(s.number, s.minor, 0, 0, unused);
     }},
    {"DNSServiceGetProperty", [](const Step &s) {
         using Function = qint32(WINAPI *)(const char *, void *, DWORD *);
         reinterpret_cast<Function>(reinterpret_cast<void *>(function))(s.narrow.constData(), unused, &size);
     }},
    {"HeapAlloc", [](const Step &s) { memory = HeapAlloc(GetProcessHeap(), s.access, s.size); }},
    {"HeapFree", [](const Step &s) { HeapFree(GetProcessHeap(), s.access, memory); }},
    {"GetAdaptersInfo", [](const Step &) { GetAdaptersInfo(static_cast<PIP_ADAPTER_INFO>(memory), &size); }},
    {"_localtime32_s", [](const Step &s) {
         const auto seconds = static_cast<__time32_t>(s.number);
         _localtime32_s(&localTime, &seconds);
     }},
    {"asctime_s", [](const Step &s) { asctime_s(unused, s.size, &localTime); }},
};

HKEY rootOf(const QString &path)
{
    if (path.startsWith(QLatin1String("HKEY_CLASSES_ROOT")))
        return HKEY_CLASSES_ROOT;
    return path.startsWith(QLatin1String("HKEY_CURRENT_USER")) ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

/// Converts the fields of \a call to the types of arguments. Each call uses some of them.
Step makeStep(const simulated::Call &call)
{
    Step step;
    step.make = knownCalls.value(call.name);
    if (!step.make)
        qFatal("call_list.cpp does not know the call %s", call.name.constData());
    step.root = rootOf(call.key);
    const bool opensKey = call.name == "RegOpenKeyExA";
    step.narrow = (opensKey ? call.key.section(QLatin1Char('\\'), 1) : call.value).toLatin1();
    step.path = call.key;
    step.text = call.value;
    step.number = DWORD(call.value.section(QLatin1Char('.'), 0, 0).toLongLong());
    step.minor = call.value.section(QLatin1Char('.'), 1, 1).toUInt();
    step.access = call.access;
    step.size = DWORD(call.sizeIn);
    return step;
}

} // namespace

// No section has two keys of one path open at the same time.
std::function<void()> makeCallList(const Calls &calls)
{
    std::vector<Step> steps;
    QHash<QString, std::size_t> slots; // by the path of the key
    for (const simulated::Call &call : calls) {
        steps.push_back(makeStep(call));
        if (!slots.contains(call.key))
            slots.insert(call.key, std::size_t(slots.size()));
        steps.back().slot = slots.value(call.key);
    }
    keys.resize(std::max(keys.size(), std::size_t(slots.size())));
    return [steps] {
        for (const Step &step : steps) {
            size = step.size;
            step.make(step);
        }
    };
}

} // namespace bench
