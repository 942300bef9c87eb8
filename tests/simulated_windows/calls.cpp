#include "calls.h"

#include <iphlpapi.h>
#include <psapi.h>
#include <shlobj.h>
#include <time.h>

namespace {

constexpr DWORD bufferSize = 512; // bytes; large enough for the result of every call

template <typename T>
qint64 given(T *pointer)
{
    return pointer ? 1 : 0;
}

/// The buffer as a record whose first member is its size.
template <typename Record>
Record *sized(PoisonedBuffer &buffer)
{
    auto *record = reinterpret_cast<Record *>(buffer.bytes());
    *reinterpret_cast<DWORD *>(record) = sizeof(Record);
    return record;
}

/// Permits a cast to another function type without a warning.
void *plain(FARPROC function)
{
    return reinterpret_cast<void *>(function);
}

FARPROC kernelFunction(const char *name)
{
    return GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name);
}

qint64 callProductInfo(PoisonedBuffer &buffer)
{
    using Function = BOOL(WINAPI *)(DWORD, DWORD, DWORD, DWORD, PDWORD);
    const auto function = reinterpret_cast<Function>(plain(kernelFunction("GetProductInfo")));
    return function ? function(6, 1, 0, 0, reinterpret_cast<PDWORD>(buffer.bytes())) : 0;
}

qint64 callServiceProperty(PoisonedBuffer &buffer)
{
    using Function = qint32(WINAPI *)(const char *, void *, DWORD *);
    const HMODULE library = LoadLibraryW(L"dnssd.dll");
    const auto function = reinterpret_cast<Function>(plain(GetProcAddress(library, "DNSServiceGetProperty")));
    DWORD size = 4;
    const qint64 result = function ? function("DaemonVersion", buffer.bytes(), &size) : 0;
    FreeLibrary(library);
    return result;
}

void addRegistryCalls(std::vector<FailingCall> &calls)
{
    const HKEY root = HKEY_LOCAL_MACHINE;
    static HKEY opened;
    static DWORD nameSize;
    static DWORD size;
    const auto add = [&](const char *name, std::function<qint64(PoisonedBuffer &)> make) {
        calls.push_back({name, [make](PoisonedBuffer &buffer) {
                             nameSize = 32;
                             size = bufferSize;
                             return make(buffer);
                         },
                         FailingCall::Status});
    };
    add("RegOpenKeyExA", [=](PoisonedBuffer &) { return RegOpenKeyExA(root, "K", 0, KEY_READ, &opened); });
    add("RegOpenKeyExW", [=](PoisonedBuffer &) { return RegOpenKeyExW(root, L"K", 0, KEY_READ, &opened); });
    add("RegQueryValueExA", [=](PoisonedBuffer &b) { return RegQueryValueExA(root, "V", nullptr, nullptr, b.bytes(), &size); });
    add("RegQueryValueExW", [=](PoisonedBuffer &b) { return RegQueryValueExW(root, L"V", nullptr, nullptr, b.bytes(), &size); });
    add("RegEnumKeyExA", [=](PoisonedBuffer &b) {
        return RegEnumKeyExA(root, 0, b.narrow(), &nameSize, nullptr, nullptr, nullptr, nullptr);
    });
    add("RegEnumKeyExW", [=](PoisonedBuffer &b) {
        return RegEnumKeyExW(root, 0, b.wide(), &nameSize, nullptr, nullptr, nullptr, nullptr);
    });
    add("RegEnumKeyA", [=](PoisonedBuffer &b) { return RegEnumKeyA(root, 0, b.narrow(), 32); });
    add("RegEnumKeyW", [=](PoisonedBuffer &b) { return RegEnumKeyW(root, 0, b.wide(), 32); });
    add("RegEnumValueA", [=](PoisonedBuffer &b) {
        return RegEnumValueA(root, 0, b.narrow(), &nameSize, nullptr, nullptr, b.bytes() + 64, &size);
    });
    add("RegEnumValueW", [=](PoisonedBuffer &b) {
        return RegEnumValueW(root, 0, b.wide(), &nameSize, nullptr, nullptr, b.bytes() + 64, &size);
    });
}

void addSystemCalls(std::vector<FailingCall> &calls)
{
    const auto add = [&](const char *name, std::function<qint64(PoisonedBuffer &)> make) {
        calls.push_back({name, std::move(make), FailingCall::LastError});
    };
    static DWORD size;
    add("GetSystemRegistryQuota", [](PoisonedBuffer &b) {
        return GetSystemRegistryQuota(reinterpret_cast<PDWORD>(b.bytes()), reinterpret_cast<PDWORD>(b.bytes() + 4));
    });
    add("GetVersionExA", [](PoisonedBuffer &b) { return GetVersionExA(sized<OSVERSIONINFOA>(b)); });
    add("GetVersionExW", [](PoisonedBuffer &b) { return GetVersionExW(sized<OSVERSIONINFOW>(b)); });
    add("GlobalMemoryStatusEx", [](PoisonedBuffer &b) { return GlobalMemoryStatusEx(sized<MEMORYSTATUSEX>(b)); });
    add("GetComputerNameExW", [](PoisonedBuffer &b) {
        size = 64;
        return GetComputerNameExW(ComputerNameNetBIOS, b.wide(), &size);
    });
    add("GetUserNameW", [](PoisonedBuffer &b) {
        size = 64;
        return GetUserNameW(b.wide(), &size);
    });
    add("GetSystemWindowsDirectoryW", [](PoisonedBuffer &b) { return GetSystemWindowsDirectoryW(b.wide(), 64); });
    add("GetSystemWow64DirectoryW", [](PoisonedBuffer &b) { return GetSystemWow64DirectoryW(b.wide(), 64); });
    add("ExpandEnvironmentStringsW", [](PoisonedBuffer &b) { return ExpandEnvironmentStringsW(L"%A%", b.wide(), 64); });
    add("SHGetSpecialFolderPathW", [](PoisonedBuffer &b) {
        return SHGetSpecialFolderPathW(nullptr, b.wide(), CSIDL_PERSONAL, FALSE);
    });
    add("GetProductInfo", callProductInfo);
}

void addDriveCalls(std::vector<FailingCall> &calls)
{
    const auto numbers = [](PoisonedBuffer &b) { return reinterpret_cast<PULARGE_INTEGER>(b.bytes()); };
    calls.push_back({"GetLogicalDrives", [](PoisonedBuffer &) { return GetLogicalDrives(); }, FailingCall::LastError});
    calls.push_back({"GetDriveTypeW", [](PoisonedBuffer &) { return GetDriveTypeW(L"C:\\"); }, FailingCall::Zero});
    calls.push_back({"GetVolumeInformationW", [](PoisonedBuffer &b) {
                         return GetVolumeInformationW(L"C:\\", b.wide(), 32, nullptr, nullptr, nullptr, b.wide() + 64, 32);
                     },
                     FailingCall::LastError});
    calls.push_back({"GetDiskFreeSpaceExW", [=](PoisonedBuffer &b) {
                         return GetDiskFreeSpaceExW(L"C:\\", numbers(b), numbers(b) + 1, nullptr);
                     },
                     FailingCall::LastError});
}

void addModuleCalls(std::vector<FailingCall> &calls)
{
    const auto add = [&](const char *name, std::function<qint64(PoisonedBuffer &)> make) {
        calls.push_back({name, std::move(make), FailingCall::LastError});
    };
    static DWORD needed;
    add("EnumProcessModules", [](PoisonedBuffer &b) {
        return EnumProcessModules(GetCurrentProcess(), reinterpret_cast<HMODULE *>(b.bytes()), bufferSize, &needed);
    });
    add("GetModuleFileNameExW", [](PoisonedBuffer &b) {
        HMODULE module = nullptr;
        EnumProcessModules(GetCurrentProcess(), &module, sizeof module, &needed);
        return GetModuleFileNameExW(GetCurrentProcess(), module, b.wide(), 64);
    });
    add("GetModuleHandleW", [](PoisonedBuffer &) { return given(GetModuleHandleW(L"kernel32.dll")); });
    add("LoadLibraryW", [](PoisonedBuffer &) {
        const HMODULE library = LoadLibraryW(L"dnssd.dll");
        const DWORD error = GetLastError();
        FreeLibrary(library);
        SetLastError(error);
        return given(library);
    });
    add("GetProcAddress", [](PoisonedBuffer &) { return given(kernelFunction("GetProductInfo")); });
    add("FreeLibrary", [](PoisonedBuffer &) { return FreeLibrary(LoadLibraryW(L"dnssd.dll")); });
}

void addOtherCalls(std::vector<FailingCall> &calls)
{
    calls.push_back({"RegCloseKey", [](PoisonedBuffer &) { return RegCloseKey(HKEY_LOCAL_MACHINE); }, FailingCall::Status, false});
    calls.push_back({"GetSystemMetrics", [](PoisonedBuffer &) { return GetSystemMetrics(SM_SERVERR2); }, FailingCall::Zero});
    calls.push_back({"DNSServiceGetProperty", callServiceProperty, FailingCall::Status, false});
    calls.push_back({"GetAdaptersInfo", [](PoisonedBuffer &b) {
                         ULONG size = 0;
                         const DWORD result = GetAdaptersInfo(reinterpret_cast<PIP_ADAPTER_INFO>(b.bytes()), &size);
                         return qint64(result == ERROR_BUFFER_OVERFLOW ? DWORD(ERROR_SUCCESS) : result);
                     },
                     FailingCall::Status});
    calls.push_back({"_localtime32_s", [](PoisonedBuffer &) {
                         const __time32_t time = 0;
                         struct tm local;
                         return _localtime32_s(&local, &time);
                     },
                     FailingCall::InvalidArgument, false});
    calls.push_back({"asctime_s", [](PoisonedBuffer &) {
                         struct tm time = {};
                         time.tm_mday = 1;
                         char text[26];
                         return asctime_s(text, sizeof text, &time);
                     },
                     FailingCall::InvalidArgument, false});
    calls.push_back({"HeapAlloc", [](PoisonedBuffer &) {
                         LPVOID memory = HeapAlloc(GetProcessHeap(), 0, 16);
                         const qint64 result = given(memory);
                         HeapFree(GetProcessHeap(), 0, memory);
                         return result;
                     },
                     FailingCall::Zero, false});
    calls.push_back({"HeapFree", [](PoisonedBuffer &) {
                         return HeapFree(GetProcessHeap(), 0, HeapAlloc(GetProcessHeap(), 0, 16));
                     },
                     FailingCall::LastError, false});
}

} // namespace

std::vector<FailingCall> failingCalls()
{
    std::vector<FailingCall> calls;
    addRegistryCalls(calls);
    addSystemCalls(calls);
    addDriveCalls(calls);
    addModuleCalls(calls);
    addOtherCalls(calls);
    return calls;
}

QByteArray answeringRegistry()
{
    return "[HKEY_LOCAL_MACHINE]\n\"V\"=\"value\"\n[HKEY_LOCAL_MACHINE\\K]\n";
}

QByteArray answeringSystem()
{
    return R"({
        "GetVersionEx": {"dwMajorVersion": 6}, "GetProductInfo": {"dwReturnedProductType": 48},
        "GetSystemMetrics": {"89": 1}, "GlobalMemoryStatusEx": {"dwMemoryLoad": 1},
        "GetComputerNameEx": {"0": "PC"}, "GetUserName": "Jim",
        "GetSystemRegistryQuota": {"allowed": 2, "used": 1}, "GetLogicalDrives": 4,
        "drives": {"C:\\": {"GetDriveType": 3, "GetVolumeInformation": {"volumeName": "V", "fileSystemName": "NTFS"},
                            "GetDiskFreeSpaceEx": {"freeBytesAvailableToCaller": 1, "totalNumberOfBytes": 2}}},
        "GetSystemWindowsDirectory": "C:\\Windows", "GetSystemWow64Directory": "C:\\Windows\\SysWOW64",
        "environment": {"A": "a"}, "SHGetSpecialFolderPath": {"5": "C:\\Documents"},
        "EnumProcessModules": ["C:\\a.exe"],
        "libraries": {"dnssd.dll": {"DNSServiceGetProperty": {"error": 0, "DaemonVersion": 1}}},
        "GetAdaptersInfo": [{"Index": 1}]})";
}
