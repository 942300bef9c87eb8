// winsock2.h goes before windows.h, iphlpapi.h behind it
#include <winsock2.h>

#include "call_list.h"

#include <QtCore/QHash>
#include <QtCore/QStringList>

#include <iphlpapi.h>
#include <psapi.h>
#include <shlobj.h>
#include <time.h>

namespace bench {

struct Step
{
    void (*make)(CallPlayer &, const Step &) = nullptr;
    HKEY root = nullptr;
    std::size_t slot = 0; // of the key
    QByteArray narrow;    // the sub-key or name of a call that takes bytes
    QString path;         // Call::key of a call without a registry key
    QString text;         // Call::value
    DWORD number = 0;     // Call::value as a number
    DWORD access = 0;
    DWORD size = 0;

    const char *nameOrNull() const { return narrow.isEmpty() ? nullptr : narrow.constData(); }
};

struct CallPlayer
{
    HKEY *keys = nullptr;
    LPVOID memory = nullptr;
    HMODULE module = nullptr;
    FARPROC function = nullptr;
    DWORD type = 0;
    struct tm time = {};
    HMODULE modules[1024];
    char narrow[2049];
    char data[2049];
    wchar_t wide[2049];
    wchar_t label[MAX_PATH];
};

namespace {

using GetProductInfoFunction = BOOL(WINAPI *)(DWORD, DWORD, DWORD, DWORD, PDWORD);
using GetPropertyFunction = qint32(WINAPI *)(const char *, void *, DWORD *);

template <typename Function>
Function as(FARPROC function)
{
    return reinterpret_cast<Function>(reinterpret_cast<void *>(function));
}

template <typename T>
T *as(char *buffer)
{
    return reinterpret_cast<T *>(buffer);
}

const wchar_t *units(const QString &string)
{
    return reinterpret_cast<const wchar_t *>(string.utf16());
}

void getProductInfo(CallPlayer &player, const Step &step)
{
    const QStringList numbers = step.text.split(QLatin1Char('.'));
    DWORD code = 0;
    as<GetProductInfoFunction>(player.function)(numbers.value(0).toUInt(), numbers.value(1).toUInt(), 0, 0, &code);
}

struct KnownCall
{
    const char *name;
    void (*make)(CallPlayer &player, const Step &step);
};

// Clears nothing that Windows does not want cleared.
const KnownCall knownCalls[] = {
    {"RegOpenKeyExA", [](CallPlayer &player, const Step &step) {
         RegOpenKeyExA(step.root, step.narrow.constData(), 0, step.access, &player.keys[step.slot]);
     }},
    {"RegCloseKey", [](CallPlayer &player, const Step &step) { RegCloseKey(player.keys[step.slot]); }},
    {"RegQueryValueExA", [](CallPlayer &player, const Step &step) {
         DWORD size = step.size;
         RegQueryValueExA(player.keys[step.slot], step.nameOrNull(), nullptr, nullptr, as<BYTE>(player.data), &size);
     }},
    {"RegQueryValueExW", [](CallPlayer &player, const Step &step) {
         DWORD size = step.size;
         RegQueryValueExW(player.keys[step.slot], units(step.text), nullptr, &player.type, reinterpret_cast<LPBYTE>(player.wide), &size);
     }},
    {"RegEnumKeyExA", [](CallPlayer &player, const Step &step) {
         DWORD size = step.size;
         RegEnumKeyExA(player.keys[step.slot], step.number, player.narrow, &size, nullptr, nullptr, nullptr, nullptr);
     }},
    {"RegEnumKeyExW", [](CallPlayer &player, const Step &step) {
         DWORD size = step.size;
         RegEnumKeyExW(player.keys[step.slot], step.number, player.wide, &size, nullptr, nullptr, nullptr, nullptr);
     }},
    {"RegEnumKeyA", [](CallPlayer &player, const Step &step) {
         RegEnumKeyA(player.keys[step.slot], step.number, player.narrow, step.size);
     }},
    {"RegEnumValueA", [](CallPlayer &player, const Step &step) {
         DWORD nameSize = step.size;
         DWORD size = step.size;
         RegEnumValueA(player.keys[step.slot], step.number, player.narrow, &nameSize, nullptr, &player.type,
                       as<BYTE>(player.data), &size);
     }},
    {"GetSystemRegistryQuota", [](CallPlayer &, const Step &) {
         DWORD allowed = 0;
         DWORD used = 0;
         GetSystemRegistryQuota(&allowed, &used);
     }},
    {"GetVersionExA", [](CallPlayer &, const Step &step) {
         OSVERSIONINFOEXA version;
         version.dwOSVersionInfoSize = step.size;
         GetVersionExA(reinterpret_cast<LPOSVERSIONINFOA>(&version));
     }},
    {"GetVersionExW", [](CallPlayer &, const Step &step) {
         OSVERSIONINFOEXW version;
         version.dwOSVersionInfoSize = step.size;
         GetVersionExW(reinterpret_cast<LPOSVERSIONINFOW>(&version));
     }},
    {"GetSystemInfo", [](CallPlayer &, const Step &) {
         SYSTEM_INFO information;
         GetSystemInfo(&information);
     }},
    {"GetSystemMetrics", [](CallPlayer &, const Step &step) { GetSystemMetrics(int(step.number)); }},
    {"GlobalMemoryStatusEx", [](CallPlayer &, const Step &step) {
         MEMORYSTATUSEX status;
         status.dwLength = step.size;
         GlobalMemoryStatusEx(&status);
     }},
    {"GetComputerNameExW", [](CallPlayer &player, const Step &step) {
         DWORD size = step.size;
         GetComputerNameExW(COMPUTER_NAME_FORMAT(step.number), player.wide, &size);
     }},
    {"GetUserNameW", [](CallPlayer &player, const Step &step) {
         DWORD size = step.size;
         GetUserNameW(player.wide, &size);
     }},
    {"SetErrorMode", [](CallPlayer &, const Step &step) { SetErrorMode(step.number); }},
    {"GetLogicalDrives", [](CallPlayer &, const Step &) { GetLogicalDrives(); }},
    {"GetDriveTypeW", [](CallPlayer &, const Step &step) { GetDriveTypeW(units(step.path)); }},
    {"GetVolumeInformationW", [](CallPlayer &player, const Step &step) {
         GetVolumeInformationW(units(step.path), player.label, MAX_PATH, nullptr, nullptr, nullptr, player.wide, MAX_PATH);
     }},
    {"GetDiskFreeSpaceExW", [](CallPlayer &, const Step &step) {
         ULARGE_INTEGER freeToCaller;
         ULARGE_INTEGER total;
         GetDiskFreeSpaceExW(units(step.path), &freeToCaller, &total, nullptr);
     }},
    {"GetSystemWindowsDirectoryW", [](CallPlayer &player, const Step &step) {
         GetSystemWindowsDirectoryW(player.wide, step.size);
     }},
    {"GetSystemWow64DirectoryW", [](CallPlayer &player, const Step &step) {
         GetSystemWow64DirectoryW(player.wide, step.size);
     }},
    {"ExpandEnvironmentStringsW", [](CallPlayer &player, const Step &step) {
         ExpandEnvironmentStringsW(units(step.text), static_cast<wchar_t *>(player.memory), step.size);
     }},
    {"SHGetSpecialFolderPathW", [](CallPlayer &player, const Step &step) {
         SHGetSpecialFolderPathW(nullptr, player.wide, int(step.number), BOOL(step.access));
     }},
    {"wsprintfW", [](CallPlayer &player, const Step &step) {
         wsprintfW(player.label, L"%c:\\", int(step.text.at(0).unicode()));
     }},
    {"EnumProcessModules", [](CallPlayer &player, const Step &) {
         DWORD needed = 0;
         EnumProcessModules(GetCurrentProcess(), player.modules, sizeof player.modules, &needed);
     }},
    {"GetModuleFileNameExW", [](CallPlayer &player, const Step &step) {
         GetModuleFileNameExW(GetCurrentProcess(), player.modules[step.number], player.wide, step.size);
     }},
    {"GetModuleHandleW", [](CallPlayer &player, const Step &step) { player.module = GetModuleHandleW(units(step.path)); }},
    {"LoadLibraryW", [](CallPlayer &player, const Step &step) { player.module = LoadLibraryW(units(step.path)); }},
    {"FreeLibrary", [](CallPlayer &player, const Step &) { FreeLibrary(player.module); }},
    {"GetProcAddress", [](CallPlayer &player, const Step &step) {
         player.function = GetProcAddress(player.module, step.narrow.constData());
     }},
    {"GetProductInfo", getProductInfo},
    {"DNSServiceGetProperty", [](CallPlayer &player, const Step &step) {
         DWORD version = 0;
         DWORD size = step.size;
         as<GetPropertyFunction>(player.function)(step.narrow.constData(), &version, &size);
     }},
    {"HeapAlloc", [](CallPlayer &player, const Step &step) {
         player.memory = HeapAlloc(GetProcessHeap(), step.access, step.size);
     }},
    {"HeapFree", [](CallPlayer &player, const Step &step) { HeapFree(GetProcessHeap(), step.access, player.memory); }},
    {"GetAdaptersInfo", [](CallPlayer &player, const Step &step) {
         ULONG size = step.size;
         GetAdaptersInfo(static_cast<PIP_ADAPTER_INFO>(player.memory), &size);
     }},
    {"_localtime32_s", [](CallPlayer &player, const Step &step) {
         const auto seconds = static_cast<__time32_t>(step.number);
         _localtime32_s(&player.time, &seconds);
     }},
    {"asctime_s", [](CallPlayer &player, const Step &step) { asctime_s(player.narrow, step.size, &player.time); }},
};

const KnownCall &knownCall(const QByteArray &name)
{
    for (const KnownCall &call : knownCalls) {
        if (name == call.name)
            return call;
    }
    qFatal("there is no baseline for the call %s", name.constData());
    Q_UNREACHABLE(); // Qt does not tell MSVC that qFatal() does not return
}

HKEY rootOf(const QString &path)
{
    if (path.startsWith(QLatin1String("HKEY_CLASSES_ROOT")))
        return HKEY_CLASSES_ROOT;
    return path.startsWith(QLatin1String("HKEY_CURRENT_USER")) ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

/// Converts the fields of \a call to the types of arguments. An entry of knownCalls uses those that its call has.
void setArguments(Step &step, const Call &call)
{
    const bool named = call.name.startsWith("RegQuery") || call.name == "GetProcAddress" || call.name == "DNSServiceGetProperty";
    step.narrow = named ? call.value.toLatin1() : QByteArray();
    step.path = call.key;
    step.text = call.value;
    step.number = named ? 0 : DWORD(call.value.toLongLong());
    step.access = call.access;
    step.size = DWORD(call.sizeIn);
}

} // namespace

// Keys of the same path are never open at the same time.
CallList::CallList(const std::vector<Call> &calls)
{
    QHash<QString, std::size_t> slots;
    for (const Call &call : calls) {
        Step step;
        step.make = knownCall(call.name).make;
        setArguments(step, call);
        if (call.name == "RegOpenKeyExA") {
            step.slot = m_slots++;
            step.root = rootOf(call.key);
            step.narrow = call.key.section(QLatin1Char('\\'), 1).toLatin1();
            slots.insert(call.key, step.slot);
        } else if (call.name.startsWith("Reg")) {
            step.slot = slots.value(call.key);
        }
        m_steps.push_back(step);
    }
}

CallList::~CallList() = default;
CallList::CallList(CallList &&other) noexcept = default;

std::size_t CallList::size() const
{
    return m_steps.size();
}

void CallList::play() const
{
    static CallPlayer player;
    static std::vector<HKEY> keys;
    if (keys.size() < m_slots)
        keys.resize(m_slots);
    player.keys = keys.data();
    for (const Step &step : m_steps)
        step.make(player, step);
}

} // namespace bench
