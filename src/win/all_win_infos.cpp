#include "report/text.h"
#include "vkSystemInfo.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

QString heading()
{
    return QStringLiteral("############ Windows specific section ###########") + newline;
}

QString detailedVersion()
{
    return windowsVersion(true);
}

// There is no other build.
QString wordSize()
{
    return QStringLiteral("This is a 64bit application.") + newline;
}

QString allDiskDevices()
{
    QString text;
    for (const char *enumerator : {"FDC", "IDE", "SCSI", "USBSTOR"})
        append(text, diskDevicesFromRegistry(QString::fromLatin1(enumerator)));
    return text;
}

QString allPorts()
{
    QString text;
    for (const char *deviceMap : {"PARALLEL PORTS", "SERIALCOMM"})
        text += portsFromRegistry(QString::fromLatin1(deviceMap));
    return text;
}

/// The Windows half, in its order. Where no separator stands between two sections
/// they belong together.
constexpr QString (*steps[])() = {
    heading,
    detailedVersion,
    windowsVersionFromRegistry,
    separator,
    wordSize,
    separator,
    internetExplorerInfo,
    separator,
    processorInfo,
    processorRegistryInfo,
    separator,
    memoryInfo,
    separator,
    computerNames,
    userName,
    separator,
    oemInfoFromRegistry,
    separator,
    systemInformationFromRegistry,
    separator,
    biosInfoFromRegistry,
    separator,
    videoInfoFromRegistry,
    separator,
    driverInfoFromRegistry,
    separator,
    timeZoneInfoFromRegistry,
    separator,
    installedApplicationsFromRegistry,
    installedVisualBasicApplications,
    separator,
    winSxSDirectoryEntries,
    separator,
    someEnvironmentVariables,
    separator,
    diskInformation,
    separator,
    allDiskDevices,
    separator,
    allPorts,
    separator,
    registryQuota,
    separator,
    windowsSystemDirectories,
    specialFolders,
    separator,
    standardBonjourStatus,
    separator,
    velkorBonjourStatus,
    sharedDllRefCount,
    separator,
    loadedModulesList,
    separator,
};

} // namespace

QString allWinInfos()
{
    QString text;
    for (const auto step : steps)
        appendSection(text, step());
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
