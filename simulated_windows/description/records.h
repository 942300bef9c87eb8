// The results of calls of Windows. The fields have the names of the members of Windows' structures.
//
// Each record lists its fields once: fields(visit) calls visit with the name of each field and a
// pointer to member. Code that handles all fields uses this list, so a new field needs only its
// declaration and a line in the list.
#pragma once

#include <QtCore/QString>
#include <optional>
#include <vector>

namespace machine {

/// The answer of a call: a value, or the Windows error with which it fails (0 if the
/// description has no error).
template <typename T>
struct Answer
{
    std::optional<T> value;
    quint32 error = 0;

    explicit operator bool() const { return value.has_value(); }
    const T &operator*() const { return *value; }
    const T *operator->() const { return &*value; }
};

struct VersionRecord
{
    quint32 dwMajorVersion = 0;
    quint32 dwMinorVersion = 0;
    quint32 dwBuildNumber = 0;
    quint32 dwPlatformId = 0;
    QString szCSDVersion;
    quint16 wServicePackMajor = 0;
    quint16 wServicePackMinor = 0;
    quint16 wSuiteMask = 0;
    quint8 wProductType = 0;

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("dwMajorVersion", &VersionRecord::dwMajorVersion);
        visit("dwMinorVersion", &VersionRecord::dwMinorVersion);
        visit("dwBuildNumber", &VersionRecord::dwBuildNumber);
        visit("dwPlatformId", &VersionRecord::dwPlatformId);
        visit("szCSDVersion", &VersionRecord::szCSDVersion);
        visit("wServicePackMajor", &VersionRecord::wServicePackMajor);
        visit("wServicePackMinor", &VersionRecord::wServicePackMinor);
        visit("wSuiteMask", &VersionRecord::wSuiteMask);
        visit("wProductType", &VersionRecord::wProductType);
    }
};

struct ProductInfoRecord
{
    quint32 dwReturnedProductType = 0;

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("dwReturnedProductType", &ProductInfoRecord::dwReturnedProductType);
    }
};

struct SystemInfoRecord
{
    quint16 wProcessorArchitecture = 0;
    quint32 dwPageSize = 0;
    quint64 lpMinimumApplicationAddress = 0;
    quint64 lpMaximumApplicationAddress = 0;
    quint64 dwActiveProcessorMask = 0;
    quint32 dwNumberOfProcessors = 0;
    quint32 dwProcessorType = 0;
    quint32 dwAllocationGranularity = 0;
    quint16 wProcessorLevel = 0;
    quint16 wProcessorRevision = 0;

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("wProcessorArchitecture", &SystemInfoRecord::wProcessorArchitecture);
        visit("dwPageSize", &SystemInfoRecord::dwPageSize);
        visit("lpMinimumApplicationAddress", &SystemInfoRecord::lpMinimumApplicationAddress);
        visit("lpMaximumApplicationAddress", &SystemInfoRecord::lpMaximumApplicationAddress);
        visit("dwActiveProcessorMask", &SystemInfoRecord::dwActiveProcessorMask);
        visit("dwNumberOfProcessors", &SystemInfoRecord::dwNumberOfProcessors);
        visit("dwProcessorType", &SystemInfoRecord::dwProcessorType);
        visit("dwAllocationGranularity", &SystemInfoRecord::dwAllocationGranularity);
        visit("wProcessorLevel", &SystemInfoRecord::wProcessorLevel);
        visit("wProcessorRevision", &SystemInfoRecord::wProcessorRevision);
    }
};

struct MemoryRecord
{
    quint32 dwMemoryLoad = 0;
    quint64 ullTotalPhys = 0;
    quint64 ullAvailPhys = 0;
    quint64 ullTotalPageFile = 0;
    quint64 ullAvailPageFile = 0;
    quint64 ullTotalVirtual = 0;
    quint64 ullAvailVirtual = 0;

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("dwMemoryLoad", &MemoryRecord::dwMemoryLoad);
        visit("ullTotalPhys", &MemoryRecord::ullTotalPhys);
        visit("ullAvailPhys", &MemoryRecord::ullAvailPhys);
        visit("ullTotalPageFile", &MemoryRecord::ullTotalPageFile);
        visit("ullAvailPageFile", &MemoryRecord::ullAvailPageFile);
        visit("ullTotalVirtual", &MemoryRecord::ullTotalVirtual);
        visit("ullAvailVirtual", &MemoryRecord::ullAvailVirtual);
    }
};

struct QuotaRecord
{
    quint32 allowed = 0;
    quint32 used = 0;

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("allowed", &QuotaRecord::allowed);
        visit("used", &QuotaRecord::used);
    }
};

struct VolumeRecord
{
    QString volumeName;
    QString fileSystemName;

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("volumeName", &VolumeRecord::volumeName);
        visit("fileSystemName", &VolumeRecord::fileSystemName);
    }
};

struct FreeSpaceRecord
{
    quint64 freeBytesAvailableToCaller = 0;
    quint64 totalNumberOfBytes = 0;

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("freeBytesAvailableToCaller", &FreeSpaceRecord::freeBytesAvailableToCaller);
        visit("totalNumberOfBytes", &FreeSpaceRecord::totalNumberOfBytes);
    }
};

struct DriveRecord
{
    Answer<quint32> GetDriveType;
    Answer<VolumeRecord> GetVolumeInformation;
    Answer<FreeSpaceRecord> GetDiskFreeSpaceEx;

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("GetDriveType", &DriveRecord::GetDriveType);
        visit("GetVolumeInformation", &DriveRecord::GetVolumeInformation);
        visit("GetDiskFreeSpaceEx", &DriveRecord::GetDiskFreeSpaceEx);
    }
};

struct DnsServiceRecord
{
    qint32 error = 0;
    quint32 DaemonVersion = 0;

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("error", &DnsServiceRecord::error);
        visit("DaemonVersion", &DnsServiceRecord::DaemonVersion);
    }
};

struct LibraryRecord
{
    std::optional<DnsServiceRecord> DNSServiceGetProperty; // absent: the function is not exported

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("DNSServiceGetProperty", &LibraryRecord::DNSServiceGetProperty);
    }
};

struct AddressRecord
{
    QString address;
    QString mask;

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("address", &AddressRecord::address);
        visit("mask", &AddressRecord::mask);
    }
};

struct AdapterRecord
{
    quint32 Index = 0;
    QString AdapterName;
    QString Description;
    quint32 DhcpEnabled = 0;
    std::vector<AddressRecord> GatewayList = std::vector<AddressRecord>(1);
    std::vector<AddressRecord> DhcpServer = std::vector<AddressRecord>(1);
    qint32 HaveWins = 0;
    AddressRecord PrimaryWinsServer;
    AddressRecord SecondaryWinsServer;
    qint64 LeaseObtained = 0;
    qint64 LeaseExpires = 0;

    template <typename Visit>
    static void fields(Visit visit)
    {
        visit("Index", &AdapterRecord::Index);
        visit("AdapterName", &AdapterRecord::AdapterName);
        visit("Description", &AdapterRecord::Description);
        visit("DhcpEnabled", &AdapterRecord::DhcpEnabled);
        visit("GatewayList", &AdapterRecord::GatewayList);
        visit("DhcpServer", &AdapterRecord::DhcpServer);
        visit("HaveWins", &AdapterRecord::HaveWins);
        visit("PrimaryWinsServer", &AdapterRecord::PrimaryWinsServer);
        visit("SecondaryWinsServer", &AdapterRecord::SecondaryWinsServer);
        visit("LeaseObtained", &AdapterRecord::LeaseObtained);
        visit("LeaseExpires", &AdapterRecord::LeaseExpires);
    }
};

} // namespace machine
