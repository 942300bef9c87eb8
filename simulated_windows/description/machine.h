// What a machine description says, as the calls will be answered from it.
//
// Fields are named after the fields of the Windows calls. An answer that is not
// given makes its call fail.
#pragma once

#include "registry_tree.h"

#include <QtCore/QMap>
#include <QtCore/QStringList>
#include <optional>
#include <vector>

namespace machine {

/// The answer of a call: a value, or the Windows error it fails with (0 when the
/// description names none).
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
};

struct QuotaRecord
{
    quint32 allowed = 0;
    quint32 used = 0;
};

struct VolumeRecord
{
    QString volumeName;
    QString fileSystemName;
};

struct FreeSpaceRecord
{
    quint64 freeBytesAvailableToCaller = 0;
    quint64 totalNumberOfBytes = 0;
};

struct DriveRecord
{
    quint32 GetDriveType = 0;
    Answer<VolumeRecord> GetVolumeInformation;
    Answer<FreeSpaceRecord> GetDiskFreeSpaceEx;
};

struct DnsServiceRecord
{
    qint32 error = 0;
    quint32 DaemonVersion = 0;
};

struct LibraryRecord
{
    std::optional<DnsServiceRecord> DNSServiceGetProperty; // not given: not exported
};

struct AddressRecord
{
    QString address;
    QString mask;
};

struct AdapterRecord
{
    quint32 Index = 0;
    QString AdapterName;
    QString Description;
    quint32 DhcpEnabled = 0;
    std::vector<AddressRecord> GatewayList;
    std::vector<AddressRecord> DhcpServer;
    qint32 HaveWins = 0;
    AddressRecord PrimaryWinsServer;
    AddressRecord SecondaryWinsServer;
    qint64 LeaseObtained = 0;
    qint64 LeaseExpires = 0;
};

struct SystemAnswers
{
    int ansiCodePage = 1252;
    Answer<VersionRecord> GetVersionEx;
    bool exportsGetProductInfo = false;
    Answer<quint32> GetProductInfo;
    QMap<int, qint32> GetSystemMetrics;
    SystemInfoRecord GetSystemInfo;
    Answer<MemoryRecord> GlobalMemoryStatusEx;
    QMap<int, Answer<QString>> GetComputerNameEx;
    quint32 computerNamesError = 0; // of the formats that are not listed
    Answer<QString> GetUserName;
    Answer<QuotaRecord> GetSystemRegistryQuota;
    Answer<quint32> GetLogicalDrives;
    QMap<QString, DriveRecord> drives; // by upper-cased root
    Answer<QString> GetSystemWindowsDirectory;
    Answer<QString> GetSystemWow64Directory;
    QMap<QString, QString> environment;          // by upper-cased name
    QMap<int, quint32> ExpandEnvironmentStrings; // errors by template index
    QMap<int, Answer<QString>> SHGetSpecialFolderPath;
    Answer<std::vector<std::optional<QString>>> EnumProcessModules;
    std::optional<QStringList> WinSxS;
    QMap<QString, LibraryRecord> libraries; // by lower-cased file name
    Answer<std::vector<AdapterRecord>> GetAdaptersInfo;
    qint32 timeZone = 0; // minutes
};

struct Machine
{
    Registry registry;
    SystemAnswers system;
};

} // namespace machine
