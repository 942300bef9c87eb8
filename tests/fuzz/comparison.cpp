#include "comparison.h"

#include <algorithm>
#include <tuple>

namespace machine {
namespace {

// Each record as a tuple of all its fields.

auto fields(const VersionRecord &r)
{
    return std::tie(r.dwMajorVersion, r.dwMinorVersion, r.dwBuildNumber, r.dwPlatformId, r.szCSDVersion,
                    r.wServicePackMajor, r.wServicePackMinor, r.wSuiteMask, r.wProductType);
}

auto fields(const SystemInfoRecord &r)
{
    return std::tie(r.wProcessorArchitecture, r.dwPageSize, r.lpMinimumApplicationAddress,
                    r.lpMaximumApplicationAddress, r.dwActiveProcessorMask, r.dwNumberOfProcessors, r.dwProcessorType,
                    r.dwAllocationGranularity, r.wProcessorLevel, r.wProcessorRevision);
}

auto fields(const MemoryRecord &r)
{
    return std::tie(r.dwMemoryLoad, r.ullTotalPhys, r.ullAvailPhys, r.ullTotalPageFile, r.ullAvailPageFile,
                    r.ullTotalVirtual, r.ullAvailVirtual);
}

auto fields(const QuotaRecord &r) { return std::tie(r.allowed, r.used); }
auto fields(const VolumeRecord &r) { return std::tie(r.volumeName, r.fileSystemName); }
auto fields(const FreeSpaceRecord &r) { return std::tie(r.freeBytesAvailableToCaller, r.totalNumberOfBytes); }
auto fields(const DriveRecord &r) { return std::tie(r.GetDriveType, r.GetVolumeInformation, r.GetDiskFreeSpaceEx); }
auto fields(const DnsServiceRecord &r) { return std::tie(r.error, r.DaemonVersion); }
auto fields(const LibraryRecord &r) { return std::tie(r.DNSServiceGetProperty); }
auto fields(const AddressRecord &r) { return std::tie(r.address, r.mask); }

auto fields(const AdapterRecord &r)
{
    return std::tie(r.Index, r.AdapterName, r.Description, r.DhcpEnabled, r.GatewayList, r.DhcpServer, r.HaveWins,
                    r.PrimaryWinsServer, r.SecondaryWinsServer, r.LeaseObtained, r.LeaseExpires);
}

} // namespace

// In the records' namespace, where the containers' own comparisons find it.
template <typename T>
auto operator==(const T &left, const T &right) -> decltype(fields(left) == fields(right))
{
    return fields(left) == fields(right);
}

template <typename T>
bool operator==(const Answer<T> &left, const Answer<T> &right)
{
    return left.value == right.value && (left.value || left.error == right.error);
}

} // namespace machine

namespace {

using machine::RegistryKey;
using machine::RegistryRoot;
using machine::RegistryValue;

bool isSame(const RegistryValue &left, const RegistryValue &right)
{
    return left.name == right.name && left.type == right.type && left.data == right.data;
}

bool isSame(const RegistryKey &left, const RegistryKey &right)
{
    if (left.name() != right.name() || left.isDenied() != right.isDenied() || left.subKeyCount() != right.subKeyCount())
        return false;
    if (!std::equal(left.values().begin(), left.values().end(), right.values().begin(), right.values().end(),
                    [](const RegistryValue &a, const RegistryValue &b) { return isSame(a, b); }))
        return false;
    for (std::size_t i = 0; i < left.subKeyCount(); ++i) {
        if (!isSame(*left.subKeyAt(i), *right.subKeyAt(i)))
            return false;
    }
    return true;
}

} // namespace

bool isSame(const machine::Registry &left, const machine::Registry &right)
{
    for (const RegistryRoot root : {RegistryRoot::ClassesRoot, RegistryRoot::CurrentUser, RegistryRoot::LocalMachine,
                                    RegistryRoot::Users}) {
        if (!isSame(*left.root(root), *right.root(root)))
            return false;
    }
    return true;
}

QByteArray differenceOf(const machine::SystemAnswers &left, const machine::SystemAnswers &right)
{
    using machine::operator==;
    const std::pair<const char *, bool> members[] = {
        {"ansiCodePage", left.ansiCodePage == right.ansiCodePage},
        {"GetVersionEx", left.GetVersionEx == right.GetVersionEx},
        {"exportsGetProductInfo", left.exportsGetProductInfo == right.exportsGetProductInfo},
        {"GetProductInfo", left.GetProductInfo == right.GetProductInfo},
        {"GetSystemMetrics", left.GetSystemMetrics == right.GetSystemMetrics},
        {"GetSystemInfo", left.GetSystemInfo == right.GetSystemInfo},
        {"GlobalMemoryStatusEx", left.GlobalMemoryStatusEx == right.GlobalMemoryStatusEx},
        {"GetComputerNameEx", left.GetComputerNameEx == right.GetComputerNameEx},
        {"computerNamesError", left.computerNamesError == right.computerNamesError},
        {"GetUserName", left.GetUserName == right.GetUserName},
        {"GetSystemRegistryQuota", left.GetSystemRegistryQuota == right.GetSystemRegistryQuota},
        {"GetLogicalDrives", left.GetLogicalDrives == right.GetLogicalDrives},
        {"drives", left.drives == right.drives},
        {"GetSystemWindowsDirectory", left.GetSystemWindowsDirectory == right.GetSystemWindowsDirectory},
        {"GetSystemWow64Directory", left.GetSystemWow64Directory == right.GetSystemWow64Directory},
        {"environment", left.environment == right.environment},
        {"ExpandEnvironmentStrings", left.ExpandEnvironmentStrings == right.ExpandEnvironmentStrings},
        {"SHGetSpecialFolderPath", left.SHGetSpecialFolderPath == right.SHGetSpecialFolderPath},
        {"EnumProcessModules", left.EnumProcessModules == right.EnumProcessModules},
        {"WinSxS", left.WinSxS == right.WinSxS},
        {"libraries", left.libraries == right.libraries},
        {"GetAdaptersInfo", left.GetAdaptersInfo == right.GetAdaptersInfo},
        {"timeZone", left.timeZone == right.timeZone},
    };
    for (const auto &member : members) {
        if (!member.second)
            return member.first;
    }
    return QByteArray();
}
