// must precede machine.h: removes macros with the names of its members
#include "windows_calls.h"

#include "capture_system.h"

#include <QtCore/QDir>
#include <algorithm>

namespace {

using namespace machine;

constexpr DWORD longestPath = 32768; // in units; no path of Windows is longer

template <typename T>
Answer<T> failed()
{
    Answer<T> answer;
    answer.error = GetLastError();
    return answer;
}

template <typename T>
Answer<T> given(T value)
{
    Answer<T> answer;
    answer.value = std::move(value);
    return answer;
}

QString text(const std::vector<wchar_t> &buffer, DWORD length)
{
    return QString(reinterpret_cast<const QChar *>(buffer.data()), int(length));
}

QString text(const wchar_t *terminated)
{
    return QString::fromWCharArray(terminated);
}

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

Answer<VersionRecord> version()
{
    OSVERSIONINFOEXW info = {};
    info.dwOSVersionInfoSize = sizeof info;
    if (!GetVersionExW(reinterpret_cast<OSVERSIONINFOW *>(&info)))
        return failed<VersionRecord>();
    VersionRecord record;
    record.dwMajorVersion = info.dwMajorVersion;
    record.dwMinorVersion = info.dwMinorVersion;
    record.dwBuildNumber = info.dwBuildNumber;
    record.dwPlatformId = info.dwPlatformId;
    record.szCSDVersion = text(info.szCSDVersion);
    record.wServicePackMajor = info.wServicePackMajor;
    record.wServicePackMinor = info.wServicePackMinor;
    record.wSuiteMask = info.wSuiteMask;
    record.wProductType = info.wProductType;
    return given(record);
}

void productInfo(SystemAnswers &system)
{
    using Function = BOOL(WINAPI *)(DWORD, DWORD, DWORD, DWORD, PDWORD);
    const auto getProductInfo = reinterpret_cast<Function>(
        reinterpret_cast<void *>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetProductInfo")));
    if (!getProductInfo)
        return;
    system.GetProductInfo.emplace();
    if (!system.GetVersionEx)
        return;
    DWORD type = 0; // same arguments as in the report
    if (getProductInfo(system.GetVersionEx->dwMajorVersion, system.GetVersionEx->dwMinorVersion, 0, 0, &type))
        system.GetProductInfo = given(ProductInfoRecord {quint32(type)});
    else
        system.GetProductInfo = failed<ProductInfoRecord>();
}

SystemInfoRecord systemInfo()
{
    SYSTEM_INFO info = {};
    GetSystemInfo(&info);
    SystemInfoRecord record;
    record.wProcessorArchitecture = info.wProcessorArchitecture;
    record.dwPageSize = info.dwPageSize;
    record.lpMinimumApplicationAddress = reinterpret_cast<quintptr>(info.lpMinimumApplicationAddress);
    record.lpMaximumApplicationAddress = reinterpret_cast<quintptr>(info.lpMaximumApplicationAddress);
    record.dwActiveProcessorMask = info.dwActiveProcessorMask;
    record.dwNumberOfProcessors = info.dwNumberOfProcessors;
    record.dwProcessorType = info.dwProcessorType;
    record.dwAllocationGranularity = info.dwAllocationGranularity;
    record.wProcessorLevel = info.wProcessorLevel;
    record.wProcessorRevision = info.wProcessorRevision;
    return record;
}

Answer<MemoryRecord> memory()
{
    MEMORYSTATUSEX status = {};
    status.dwLength = sizeof status;
    if (!GlobalMemoryStatusEx(&status))
        return failed<MemoryRecord>();
    return given(MemoryRecord {quint32(status.dwMemoryLoad), status.ullTotalPhys, status.ullAvailPhys, status.ullTotalPageFile,
                               status.ullAvailPageFile, status.ullTotalVirtual, status.ullAvailVirtual});
}

Answer<QString> computerName(int format)
{
    std::vector<wchar_t> buffer(longestPath);
    DWORD size = longestPath;
    if (!GetComputerNameExW(static_cast<COMPUTER_NAME_FORMAT>(format), buffer.data(), &size))
        return failed<QString>();
    return given(text(buffer, size));
}

Answer<QString> userName()
{
    std::vector<wchar_t> buffer(longestPath);
    DWORD size = longestPath;
    if (!GetUserNameW(buffer.data(), &size))
        return failed<QString>();
    return given(text(buffer, size > 0 ? size - 1 : 0));
}

Answer<QuotaRecord> registryQuota()
{
    DWORD allowed = 0;
    DWORD used = 0;
    if (!GetSystemRegistryQuota(&allowed, &used))
        return failed<QuotaRecord>();
    return given(QuotaRecord {quint32(allowed), quint32(used)});
}

Answer<QString> directory(UINT(WINAPI *call)(LPWSTR, UINT))
{
    std::vector<wchar_t> buffer(longestPath);
    const UINT length = call(buffer.data(), longestPath);
    return length == 0 ? failed<QString>() : given(text(buffer, length));
}

Answer<VolumeRecord> volume(const wchar_t *root)
{
    wchar_t name[MAX_PATH] = {};
    wchar_t fileSystem[MAX_PATH] = {};
    if (!GetVolumeInformationW(root, name, MAX_PATH, nullptr, nullptr, nullptr, fileSystem, MAX_PATH))
        return failed<VolumeRecord>();
    return given(VolumeRecord {text(name), text(fileSystem)});
}

Answer<FreeSpaceRecord> freeSpace(const wchar_t *root)
{
    ULARGE_INTEGER freeToCaller = {};
    ULARGE_INTEGER total = {};
    if (!GetDiskFreeSpaceExW(root, &freeToCaller, &total, nullptr))
        return failed<FreeSpaceRecord>();
    return given(FreeSpaceRecord {freeToCaller.QuadPart, total.QuadPart});
}

void drives(SystemAnswers &system)
{
    const UINT previous = SetErrorMode(SEM_FAILCRITICALERRORS);
    const DWORD mask = GetLogicalDrives();
    system.GetLogicalDrives = mask ? given(quint32(mask)) : failed<quint32>();
    for (int i = 0; i < 26; ++i) {
        if (!(mask >> i & 1))
            continue;
        const QString root = QChar('A' + i) + QStringLiteral(":\\");
        DriveRecord record;
        record.GetDriveType = given(quint32(GetDriveTypeW(wide(root))));
        record.GetVolumeInformation = volume(wide(root));
        record.GetDiskFreeSpaceEx = freeSpace(wide(root));
        system.drives.insert(root, record);
    }
    SetErrorMode(previous);
}

/// Only the variables that the report shows, because others may contain secrets.
void environment(SystemAnswers &system)
{
    for (const char *name : {"OS", "PATH", "HOMEPATH", "TEMP", "PROCESSOR_IDENTIFIER"}) {
        std::vector<wchar_t> buffer(longestPath);
        const DWORD length = GetEnvironmentVariableW(wide(QString::fromLatin1(name)), buffer.data(), longestPath);
        if (length > 0 || GetLastError() != ERROR_ENVVAR_NOT_FOUND)
            system.environment.insert(QString::fromLatin1(name), text(buffer, length));
    }
}

void folders(SystemAnswers &system)
{
    for (int folder : {CSIDL_PERSONAL, CSIDL_PROGRAMS, CSIDL_PROGRAM_FILES, CSIDL_LOCAL_APPDATA, CSIDL_APPDATA}) {
        wchar_t path[MAX_PATH] = {};
        system.SHGetSpecialFolderPath[folder] = SHGetSpecialFolderPathW(nullptr, path, folder, FALSE)
            ? given(text(path))
            : failed<QString>();
    }
    if (!system.GetSystemWindowsDirectory)
        return;
    const QString path = *system.GetSystemWindowsDirectory + QStringLiteral("\\WinSxS");
    const QDir winSxS(path);
    if (winSxS.exists())
        system.folders[path].directories = winSxS.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

/// The modules of this program. Those of a host that calls the library differ.
Answer<std::vector<std::optional<QString>>> modules()
{
    std::vector<HMODULE> handles(65536);
    DWORD needed = 0;
    if (!K32EnumProcessModules(GetCurrentProcess(), handles.data(), DWORD(handles.size() * sizeof(HMODULE)), &needed))
        return failed<std::vector<std::optional<QString>>>();
    handles.resize(std::min(handles.size(), std::size_t(needed / sizeof(HMODULE))));
    std::vector<std::optional<QString>> names;
    for (HMODULE module : handles) {
        std::vector<wchar_t> buffer(longestPath);
        const DWORD length = GetModuleFileNameExW(GetCurrentProcess(), module, buffer.data(), longestPath);
        names.push_back(length > 0 ? std::make_optional(text(buffer, length)) : std::nullopt);
    }
    return given(std::move(names));
}

void library(const QString &fileName, SystemAnswers &system)
{
    using Function = qint32(WINAPI *)(const char *, void *, DWORD *);
    const HMODULE module = LoadLibraryW(wide(fileName));
    if (!module)
        return;
    LibraryRecord record;
    const auto getProperty = reinterpret_cast<Function>(
        reinterpret_cast<void *>(GetProcAddress(module, "DNSServiceGetProperty")));
    if (getProperty) {
        DWORD daemonVersion = 0;
        DWORD size = sizeof daemonVersion;
        const qint32 error = getProperty("DaemonVersion", &daemonVersion, &size);
        record.DNSServiceGetProperty = DnsServiceRecord {error, quint32(daemonVersion)};
    }
    system.libraries.insert(fileName, record);
    FreeLibrary(module);
}

AddressRecord address(const IP_ADDR_STRING &entry)
{
    return {QString::fromLocal8Bit(entry.IpAddress.String), QString::fromLocal8Bit(entry.IpMask.String)};
}

std::vector<AddressRecord> addresses(const IP_ADDR_STRING &list)
{
    std::vector<AddressRecord> records;
    for (const IP_ADDR_STRING *entry = &list; entry; entry = entry->Next)
        records.push_back(address(*entry));
    return records;
}

AdapterRecord adapter(const IP_ADAPTER_INFO &info)
{
    AdapterRecord record;
    record.Index = info.Index;
    record.AdapterName = QString::fromLocal8Bit(info.AdapterName);
    record.Description = QString::fromLocal8Bit(info.Description);
    record.DhcpEnabled = info.DhcpEnabled;
    record.GatewayList = addresses(info.GatewayList);
    record.DhcpServer = addresses(info.DhcpServer);
    record.HaveWins = info.HaveWins;
    record.PrimaryWinsServer = address(info.PrimaryWinsServer);
    record.SecondaryWinsServer = address(info.SecondaryWinsServer);
    record.LeaseObtained = info.LeaseObtained;
    record.LeaseExpires = info.LeaseExpires;
    return record;
}

Answer<std::vector<AdapterRecord>> adapters()
{
    ULONG size = 0;
    ULONG status = ERROR_BUFFER_OVERFLOW;
    std::vector<IP_ADAPTER_INFO> buffer(1);
    for (int tries = 0; tries < 10 && status == ERROR_BUFFER_OVERFLOW; ++tries) {
        size = ULONG(buffer.size() * sizeof(IP_ADAPTER_INFO));
        status = GetAdaptersInfo(buffer.data(), &size);
        if (status == ERROR_BUFFER_OVERFLOW)
            buffer.resize(size / sizeof(IP_ADAPTER_INFO) + 1);
    }
    Answer<std::vector<AdapterRecord>> answer;
    answer.error = status;
    if (status == ERROR_NO_DATA)
        answer.value.emplace();
    if (status != ERROR_SUCCESS)
        return answer;
    answer.value.emplace();
    for (const IP_ADAPTER_INFO *info = buffer.data(); info; info = info->Next)
        answer.value->push_back(adapter(*info));
    return answer;
}

qint32 timeZoneBias()
{
    TIME_ZONE_INFORMATION zone = {};
    const DWORD season = GetTimeZoneInformation(&zone);
    return zone.Bias + (season == TIME_ZONE_ID_DAYLIGHT ? zone.DaylightBias : zone.StandardBias);
}

int ansiCodePage(const std::function<void(const QString &)> &note)
{
    const UINT codePage = GetACP();
    for (UINT known : {1252u, 1250u, 1251u, 932u, 65001u}) {
        if (codePage == known)
            return int(codePage);
    }
    note(QStringLiteral("a description cannot have the ANSI code page %1; 1252 is written instead").arg(codePage));
    return 1252;
}

/// Some systems create the registry keys of the display adapters when a program first queries the
/// displays, which a host does before it calls the library.
void wakeDisplays()
{
    DISPLAY_DEVICEW device = {};
    device.cb = sizeof device;
    EnumDisplayDevicesW(nullptr, 0, &device, 0);
}

} // namespace

SystemAnswers captureSystem(const std::function<void(const QString &)> &note)
{
    wakeDisplays();
    SystemAnswers system;
    system.ansiCodePage = ansiCodePage(note);
    system.GetVersionEx = version();
    productInfo(system);
    system.GetSystemMetrics[SM_SERVERR2] = GetSystemMetrics(SM_SERVERR2);
    system.GetSystemInfo = systemInfo();
    system.GlobalMemoryStatusEx = memory();
    for (int format = 0; format < 8; ++format)
        system.GetComputerNameEx[format] = computerName(format);
    system.GetUserName = userName();
    system.GetSystemRegistryQuota = registryQuota();
    drives(system);
    system.GetSystemWindowsDirectory = directory(GetSystemWindowsDirectoryW);
    system.GetSystemWow64Directory = directory(GetSystemWow64DirectoryW);
    environment(system);
    folders(system);
    system.EnumProcessModules = modules();
    library(QStringLiteral("dnssd.dll"), system);
    library(QStringLiteral("vkdnssd.dll"), system);
    system.GetAdaptersInfo = adapters();
    system.timeZone = timeZoneBias();
    return system;
}
