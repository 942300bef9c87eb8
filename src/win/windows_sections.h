// The sections of the report's Windows half. Each asks Windows at the moment of the
// call and returns its text, every line ended; a failed query drops its line or
// becomes a fixed one. None needs an application object.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// The whole Windows half; begins with its heading and ends with a separator line.
QString allWinInfos();

/// The Windows release: a titled block when \a detailed, else its name alone.
QString windowsVersion(bool detailed);
/// What the installation says of itself under "Windows NT\CurrentVersion".
QString windowsVersionFromRegistry();
QString internetExplorerInfo();

QString processorInfo();
QString processorRegistryInfo();
QString memoryInfo();

QString computerNames();
/// The user's line of the computer names; empty when Windows does not tell.
QString userName();

QString oemInfoFromRegistry();
QString systemInformationFromRegistry();
QString biosInfoFromRegistry();
QString timeZoneInfoFromRegistry();

QString videoInfoFromRegistry();
/// Every device setup class with its drivers.
QString driverInfoFromRegistry();

/// The maker's applications that Windows Installer knows for the machine, and the
/// update tools it knows for the user.
QString installedApplicationsFromRegistry();
QString installedVisualBasicApplications();

/// One bus of HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum, such as "USBSTOR".
QString diskDevicesFromRegistry(const QString &enumeratorName);
/// One map of HKEY_LOCAL_MACHINE\HARDWARE\DEVICEMAP, such as "SERIALCOMM".
QString portsFromRegistry(const QString &deviceMapName);

QString winSxSDirectoryEntries();
QString someEnvironmentVariables();
QString diskInformation();
QString windowsSystemDirectories();
QString specialFolders();

QString registryQuota();

/// File names of the modules of this process, the program's own first as a rule.
QStringList loadedModules();
/// What installers counted for a DLL of the system directory. False when there is
/// no such count; \a refCount then is as it was.
bool refCountSharedDll(const QString &dllName, unsigned int &refCount);
/// The two queries above as the report shows them.
QString loadedModulesList();
QString sharedDllRefCount();

/// The checks of both DNS-SD client libraries as the report shows them.
QString standardBonjourStatus();
QString velkorBonjourStatus();

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
