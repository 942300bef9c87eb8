// The sections of the report's Windows half. Each queries Windows at the moment of the
// call and returns its text, every line ended. A failed query drops its line or becomes a
// fixed line. None needs an application object.
//
// A function ...Reads() returns what its section reads from the registry.
#pragma once

#include "win/registry_reads.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// The whole Windows half, from its heading to its last separator line.
QString allWinInfos();

/// The Windows release: a block with a title if \a detailed, otherwise the name only.
QString windowsVersion(bool detailed);
RegistryReads registryVersionReads();
/// The values that Windows setup wrote about the installation.
QString windowsVersionFromRegistry();
RegistryReads windowsVersionReads();
QString wordSize();
QString internetExplorerInfo();
RegistryReads internetExplorerReads();

QString processorInfo();
QString processorRegistryInfo();
RegistryReads processorReads();
QString memoryInfo();

QString computerNames();
/// The user's line below the computer names; empty if the query fails.
QString userName();

QString oemInfoFromRegistry();
RegistryReads oemReads();
QString systemInformationFromRegistry();
RegistryReads systemInformationReads();
QString biosInfoFromRegistry();
RegistryReads biosReads();
QString timeZoneInfoFromRegistry();
RegistryReads timeZoneReads();

QString videoInfoFromRegistry();
RegistryReads videoReads();
/// Every device setup class with its drivers.
QString driverInfoFromRegistry();
RegistryReads driverReads();

/// The maker's applications that Windows Installer has installed for the machine.
QString installedApplicationsFromRegistry();
RegistryReads applicationReads();
/// The maker's update tools that Windows Installer has installed for the user.
QString installedVisualBasicApplications();
RegistryReads visualBasicApplicationReads();

/// One bus of HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum, such as "USBSTOR".
QString diskDevicesFromRegistry(const QString &enumeratorName);
RegistryReads diskDeviceReads(const QString &enumeratorName);
/// One map of HKEY_LOCAL_MACHINE\HARDWARE\DEVICEMAP, such as "SERIALCOMM".
QString portsFromRegistry(const QString &deviceMapName);
RegistryReads portReads(const QString &deviceMapName);

QString winSxSDirectoryEntries();
QString someEnvironmentVariables();
QString diskInformation();
QString windowsSystemDirectories();
QString specialFolders();

QString registryQuota();

/// The checks of the public header as the report shows them.
QString checkStandardBonjourText();
QString checkVelkorBonjourText();

/// Reads how many installers have registered a DLL of the system directory. Returns false
/// if there is no count; \a refCount is then unchanged.
bool refCountSharedDll(const QString &dllName, unsigned int &refCount);
QString refCountSharedDllText();
RegistryReads sharedDllReads();

/// File names of the modules of this process. Windows lists the program first.
QStringList loadedModules();
QString loadedModulesText();

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
