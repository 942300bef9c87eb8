#include "meanings.h"

#include <algorithm>
#include <iterator>

namespace velkor {
namespace Reports {

namespace {

// The facts of one section and kind of item.
struct Group
{
    const char *section;
    const char *item;

    constexpr Meaning of(const char *name, const char *text) const { return {section, item, name, text}; }
};

constexpr Group windowsVersion {"windowsVersion", ""};
constexpr Group installation {"windowsVersionFromRegistry", ""};
constexpr Group wordSize {"wordSize", ""};
constexpr Group internetExplorer {"internetExplorerInfo", ""};
constexpr Group processors {"processorInfo", ""};
constexpr Group processor {"processorRegistryInfo", "processor"};
constexpr Group memory {"memoryInfo", ""};
constexpr Group names {"computerNames", ""};
constexpr Group userName {"userName", ""};
constexpr Group oem {"oemInfoFromRegistry", ""};
constexpr Group firmware {"systemInformationFromRegistry", ""};
constexpr Group bios {"biosInfoFromRegistry", ""};
constexpr Group adapter {"videoInfoFromRegistry", "adapter"};
constexpr Group configuration {"videoInfoFromRegistry", "configuration"};
constexpr Group deviceClass {"driverInfoFromRegistry", "deviceClass"};
constexpr Group driver {"driverInfoFromRegistry", "driver"};
constexpr Group timeZone {"timeZoneInfoFromRegistry", ""};
constexpr Group application {"installedApplicationsFromRegistry", "product"};
constexpr Group extension {"installedApplicationsFromRegistry", "fileExtension"};
constexpr Group openCommand {"installedApplicationsFromRegistry", "openCommand"};
constexpr Group tool {"installedVisualBasicApplications", "product"};
constexpr Group winSxS {"winSxSDirectoryEntries", ""};
constexpr Group assembly {"winSxSDirectoryEntries", "assembly"};
constexpr Group someVariables {"someEnvironmentVariables", ""};
constexpr Group disks {"diskInformation", ""};
constexpr Group drive {"diskInformation", "drive"};
constexpr Group device {"diskDevicesFromRegistry", "device"};
constexpr Group instance {"diskDevicesFromRegistry", "instance"};
constexpr Group port {"portsFromRegistry", "port"};
constexpr Group quota {"registryQuota", ""};
constexpr Group directories {"windowsSystemDirectories", ""};
constexpr Group folders {"specialFolders", ""};
constexpr Group standardBonjour {"checkStandardBonjour", ""};
constexpr Group velkorBonjour {"checkVelkorBonjour", ""};
constexpr Group refCount {"refCountSharedDll", ""};
constexpr Group module {"loadedModules", "module"};
constexpr Group dateTime {"qtDateTime", ""};
constexpr Group qtGlobal {"qtGlobal", ""};
constexpr Group coreApplication {"qtCoreApplication", ""};
constexpr Group locale {"qtLocale", ""};
constexpr Group screen {"qtScreens", "screen"};
constexpr Group desktop {"qtDesktop", ""};
constexpr Group layout {"qtDesktop", "screen"};
constexpr Group services {"qtDesktopServices", ""};
constexpr Group accessibility {"qtAccessibility", ""};
constexpr Group printers {"qtPrinterInfo", ""};
constexpr Group printer {"qtPrinterInfo", "printer"};
constexpr Group hostInfo {"qtHostInfo", ""};
constexpr Group networkInterface {"qtNetworkInterfaces", "interface"};
constexpr Group entry {"qtNetworkInterfaces", "address"};
constexpr Group gateway {"qtNetworkInterfaces", "gateway"};
constexpr Group dhcpServer {"qtNetworkInterfaces", "dhcpServer"};
constexpr Group variable {"qtSystemEnvironment", "variable"};
constexpr Group openGL {"GetOpenGLInfo", ""};
constexpr Group openGLDriver {"GetOpenGLInfo", "openGLDriver"};

// Texts of several facts
constexpr char driverVersion[] = "The version of the driver, value DriverVersion.";
constexpr char providerName[] = "Who supplied the driver package, value ProviderName.";
constexpr char productName[] = "The name of the product, value ProductName of Windows Installer.";
constexpr char productVersion[] = "The version of the product. Windows Installer packs it into one number, the raw "
                                  "value: 8 bits for the first part, 8 for the second and 16 for the third.";
constexpr char advertiseFlags[] = "Bits that Windows Installer stores about the advertisement of the product, value "
                                  "AdvertiseFlags. An advertised product is offered and installed when it is first "
                                  "used.";
constexpr char assignment[] = "0x0 if the product is installed for a user, 0x1 if it is installed for the machine. "
                              "Value Assignment of Windows Installer.";
constexpr char deploymentFlags[] = "Bits that Windows Installer stores about the deployment of the product, value "
                                   "DeploymentFlags.";
constexpr char instanceType[] = "0x0 for a normal installation, 0x1 for one of several instances of the same product. "
                                "Value InstanceType of Windows Installer.";
constexpr char productLanguage[] = "The language of the product as a language identifier of Windows: 0x407 is German, "
                                   "0x409 is English of the United States, 0x0 is neutral.";
constexpr char packageCode[] = "The code that identifies the installation package, value PackageCode. It is a GUID "
                               "without hyphens and with its digits in another order.";
constexpr char dnsSdVersionFailed[] = "The library did not tell the version of its service. The value is the error of "
                                      "DNS-SD; -65563 means that the service does not run.";
constexpr char activeBias[] = "UTC minus local time in minutes when the report was made, with daylight saving: -60 is "
                              "UTC+1.";

} // namespace

const std::vector<Meaning> &factMeanings()
{
    static const std::vector<Meaning> meanings = {
        windowsVersion.of("Version (major.minor.build): ", "A line without a value. The version numbers follow it."),
        windowsVersion.of("getVersionExFailed", "GetVersionEx failed. This line replaces all others of the section."),
        windowsVersion.of("fromGetVersionEx",
                          "The version that Windows tells this program, from GetVersionEx. Windows 8 and later say "
                          "6.2.9200, unless the manifest of the program declares support for a newer Windows."),
        windowsVersion.of("fromRegistry",
                          "The real version, build and update revision, from HKLM\\SOFTWARE\\Microsoft\\Windows "
                          "NT\\CurrentVersion. There is no line if the version or the build cannot be read."),
        windowsVersion.of("name",
                          "The release and edition, from GetVersionEx, the registry and GetProductInfo. Windows 11 "
                          "begins with build 22000. A code such as 0x7d is an edition that the report has no name "
                          "for."),
        windowsVersion.of("lastServicePackInstalled",
                          "The service pack, from GetVersionEx. It is empty if none is installed; there are none "
                          "from Windows 8 on."),

        installation.of("productId",
                        "The product ID of this installation of Windows, value ProductId. It is not the product key."),
        installation.of("editionId", "The edition in one word, such as Professional or Core (Home), value EditionID."),
        installation.of("releaseId",
                        "The feature update as year and month, such as 1909, value ReleaseId. From version 20H2 on "
                        "it stays 2009."),
        installation.of("displayVersion",
                        "The feature update as Windows shows it, such as 22H2, value DisplayVersion. Windows before "
                        "20H2 has no such value."),
        installation.of("pathName", "The directory that Windows is installed in, value PathName."),
        installation.of("productName",
                        "The name of Windows and its edition, value ProductName. Windows 11 says Windows 10 here "
                        "too, because Microsoft did not change the value."),
        installation.of("registeredOwner",
                        "The owner that was entered when Windows was set up, value RegisteredOwner."),
        installation.of("registeredOrganization",
                        "The organisation that was entered when Windows was set up, value RegisteredOrganization."),
        installation.of("csdVersion",
                        "The service pack, value CSDVersion. Windows without a service pack has no such value."),
        installation.of("csdBuildNumber", "The build number of the service pack, value CSDBuildNumber."),

        wordSize.of("wordSize",
                    "The program that made the report is a 64-bit program. The line is always the same, because the "
                    "library exists for 64-bit programs only."),

        internetExplorer.of("openFailed",
                            "The registry key HKLM\\Software\\Microsoft\\Internet Explorer could not be opened. The "
                            "line shows a placeholder instead of the key."),
        internetExplorer.of("version",
                            "The version of Internet Explorer: value svcVersion; without it Version; without both a "
                            "name for the values IVer and Build of old releases."),
        internetExplorer.of("updateVersion",
                            "The version of the last update of Internet Explorer, value svcUpdateVersion. It is read "
                            "only if svcVersion exists."),
        internetExplorer.of("kbNumber",
                            "The knowledge base article of the last update of Internet Explorer, value svcKBNumber. "
                            "It is read only if svcVersion exists."),
        internetExplorer.of("w2kVersion",
                            "A further version number that Internet Explorer stores, value W2kVersion. It is read "
                            "only if svcVersion exists."),

        processors.of("processorArchitecture",
                      "The processor architecture that GetSystemInfo reports to this program. It is unknown if it is "
                      "neither x86, x64 nor Itanium."),
        processors.of("numberOfProcessors",
                      "The number of logical processors in the processor group of the program, from GetSystemInfo. A "
                      "group has at most 64."),
        processors.of("activeProcessors",
                      "The logical processors that Windows uses, counted from 0, from GetSystemInfo. At most 32 are "
                      "listed."),
        processors.of("processorType",
                      "The name of an obsolete number that GetSystemInfo keeps for compatibility. It is AMD64 for "
                      "every x64 processor, also for those of Intel."),
        processors.of("processorRevision",
                      "The revision of the processor, from GetSystemInfo. On x86 and x64 the first two hexadecimal "
                      "digits are the model, the last two the stepping."),
        processors.of("processorLevel",
                      "The family of the processor as its manufacturer counts it, from GetSystemInfo. It is 6 for "
                      "most processors of Intel."),
        processors.of("pageSize",
                      "The size of a memory page in bytes, from GetSystemInfo. Windows protects and commits memory "
                      "in pages."),
        processors.of("minimumApplicationAddress",
                      "The lowest address that the program and its DLLs can use, from GetSystemInfo."),
        processors.of("maximumApplicationAddress",
                      "The highest address that the program and its DLLs can use, from GetSystemInfo."),
        processors.of("allocationGranularity",
                      "Addresses of allocated memory are multiples of this number of bytes, from GetSystemInfo. It "
                      "is usually 65536."),

        processor.of("index",
                     "The number of the logical processor, counted from 0. It is the name of its registry key."),
        processor.of("processorNameString", "The name that the processor gives itself, value ProcessorNameString."),
        processor.of("vendorIdentifier",
                     "The manufacturer as the processor names it, such as GenuineIntel or AuthenticAMD, value "
                     "VendorIdentifier."),
        processor.of("identifier", "The family, model and stepping of the processor, value Identifier."),
        processor.of("mmxIdentifier",
                     "The MMX instructions of the processor, value MMXIdentifier. Current Windows does not write it."),
        processor.of("mhz",
                     "The nominal frequency of the processor, value ~MHz, which Windows writes when it starts. Load "
                     "and power saving do not change it."),
        processor.of("featureSet", "Bits for the features of the processor that Windows recognises, value FeatureSet."),

        memory.of("memoryLoad",
                  "The share of the physical memory that is in use, in percent, from GlobalMemoryStatusEx."),
        memory.of("totalPhys", "The physical memory that Windows can use. It can be less than what is installed."),
        memory.of("availPhys",
                  "The physical memory that is available at once, without writing its content to disk first."),
        memory.of("totalPageFile",
                  "The limit of committed memory of the system or the process, whichever is smaller. It is about "
                  "physical memory plus paging files, not the size of the paging file alone."),
        memory.of("availPageFile",
                  "The memory that the process can still commit. It is not the free part of the paging file."),
        memory.of("totalVirtual",
                  "The address space that the process can use. It is not a property of the installed memory: 128 "
                  "TByte for 64-bit programs from Windows 8.1 on."),
        memory.of("availVirtual",
                  "The part of the address space of the process that is neither reserved nor committed."),

        names.of("netBiosName",
                 "The NetBIOS name of the computer, at most 15 characters. On a node of a cluster it can be the name "
                 "of the cluster."),
        names.of("physicalNetBiosName", "The NetBIOS name of this computer itself, also on a node of a cluster."),
        names.of("dnsDomain",
                 "The DNS domain of the computer. It is empty if there is none, and has no line if it has 16 or more "
                 "characters."),
        names.of("physicalDnsDomain",
                 "The DNS domain of this computer itself, also on a node of a cluster. It has no line if it has 16 "
                 "or more characters."),
        names.of("dnsFullyQualified",
                 "The host name and the DNS domain of the computer. It has no line if it has 16 or more characters, "
                 "so it is often missing."),
        names.of("physicalDnsFullyQualified",
                 "The host name and the DNS domain of this computer itself, also on a node of a cluster. It has no "
                 "line if it has 16 or more characters."),
        names.of("hostname", "The DNS host name of the computer. It has no line if it has 16 or more characters."),
        names.of("physicalHostname",
                 "The DNS host name of this computer itself, also on a node of a cluster. It has no line if it has "
                 "16 or more characters."),

        userName.of("userName",
                    "The name of the account that the program runs under, without a domain, from GetUserName."),

        oem.of("getVersionExFailed", "GetVersionEx failed, so the values of the section were not read."),
        oem.of("manufacturer", "The manufacturer of the computer as it was entered into Windows, value Manufacturer."),
        oem.of("model", "The model of the computer as its manufacturer entered it into Windows, value Model."),

        firmware.of("biosReleaseDate",
                    "The date of the BIOS or UEFI firmware as month/day/year, value BIOSReleaseDate."),
        firmware.of("biosVersion", "The version of the BIOS or UEFI firmware, value BIOSVersion."),
        firmware.of("systemManufacturer",
                    "The manufacturer of the computer as the firmware names it, value SystemManufacturer."),
        firmware.of("systemProductName",
                    "The model of the computer as the firmware names it, value SystemProductName."),
        firmware.of("informationSource",
                    "A number that Windows stores beside the other values of the section, value InformationSource."),

        bios.of("systemBiosVersion",
                "The version of the BIOS or UEFI firmware, value SystemBiosVersion. If it has several texts, each "
                "has its own line."),
        bios.of("systemBiosDate",
                "The date of the BIOS or UEFI firmware as month/day/year, value SystemBiosDate. The year usually has "
                "two digits."),
        bios.of("videoBiosVersion",
                "The version of the BIOS of the display adapter, value VideoBiosVersion. If it has several texts, "
                "each has its own line."),
        bios.of("videoBiosDate", "The date of the BIOS of the display adapter as month/day/year, value VideoBiosDate."),

        adapter.of("service", "The driver service of the display adapter, value Service of its key Video."),
        configuration.of("name",
                         "The number of a configuration of the adapter, such as 0000, which is the name of its "
                         "registry key."),
        configuration.of("deviceDescription", "The name of the display adapter, value Device Description."),
        configuration.of("installedDisplayDrivers",
                         "The files of the display driver, value InstalledDisplayDrivers. Some drivers name them "
                         "without folder and extension."),
        configuration.of("adapterString",
                         "The name of the display adapter that its driver stored, value "
                         "HardwareInformation.AdapterString."),
        configuration.of("biosString",
                         "The BIOS of the display adapter as its driver describes it, value "
                         "HardwareInformation.BiosString."),
        configuration.of("chipType", "The graphics chip as the driver names it, value HardwareInformation.ChipType."),
        configuration.of("dacType",
                         "The digital-to-analogue converter of the display adapter as the driver names it, value "
                         "HardwareInformation.DacType."),
        configuration.of("videoMemory",
                         "The memory of the display adapter, value HardwareInformation.qwMemorySize; without it "
                         "HardwareInformation.MemorySize, which has only 32 bits. The last digit is cut, not rounded."),
        configuration.of("driverDescription", "The name of the display driver, value DriverDesc."),
        configuration.of("driverVersion", driverVersion),
        configuration.of("driverDate", "The date of the driver as month-day-year, value DriverDate."),
        configuration.of("providerName", providerName),
        configuration.of("releaseVersion",
                         "The version of the driver package as its manufacturer counts it, value ReleaseVersion. Not "
                         "every driver stores it."),
        configuration.of("openGlDriverName",
                         "The file of the adapter's OpenGL driver, value OpenGLDriverName. Windows loads it into "
                         "programs that use OpenGL."),
        configuration.of("openGlDriverNameWoW",
                         "The file of the adapter's OpenGL driver for 32-bit programs on 64-bit Windows, value "
                         "OpenGLDriverNameWow."),
        configuration.of("openGlVersion",
                         "The number by which Windows checks the OpenGL driver, value OpenGLVersion. It is not the "
                         "version of OpenGL."),
        configuration.of("openGlVersionWoW",
                         "The number by which Windows checks the OpenGL driver for 32-bit programs, value "
                         "OpenGLVersionWoW. It is not the version of OpenGL."),
        configuration.of("openGlFlags",
                         "Bits for the OpenGL driver, value OpenGLFlags. Bit 0 is set for compatibility. With bit 1 "
                         "Windows does not finish drawing before it swaps buffers."),
        configuration.of("openGlFlagsWoW",
                         "Bits for the OpenGL driver of 32-bit programs, value OpenGLFlagsWoW. They mean the same as "
                         "those of OpenGL Flags."),

        deviceClass.of("name", "The name of the device setup class, such as Display or Net, value Class."),
        driver.of("driverDescription", "The name of the device as its driver calls it, value DriverDesc."),
        driver.of("driverVersion", driverVersion),
        driver.of("driverDate",
                  "The date of the driver as month-day-year, value DriverDate. Most drivers that come with Windows "
                  "say 6-21-2006, however new they are."),
        driver.of("providerName", providerName),
        driver.of("matchingDeviceId",
                  "The hardware ID or compatible ID by which Windows found the driver for the device, value "
                  "MatchingDeviceId."),
        driver.of("infPath",
                  "The INF file that installed the driver, value InfPath. Windows calls it oem and a number if the "
                  "driver did not come with Windows."),
        driver.of("infSection", "The section of the INF file that installed the driver, value InfSection."),
        driver.of("infSectionExt",
                  "What was added to the name of the INF section for this platform, such as .NT or .NTamd64, value "
                  "InfSectionExt."),

        timeZone.of("activeTimeBias", activeBias),
        timeZone.of("bias",
                    "UTC minus local time in minutes, without the additional offsets below: -60 is UTC+1. Value Bias."),
        timeZone.of("daylightBias",
                    "What is added to Bias during daylight saving, in minutes; usually -60. Value DaylightBias."),
        timeZone.of("standardBias",
                    "What is added to Bias outside of daylight saving, in minutes; usually 0. Value StandardBias."),
        timeZone.of("daylightName",
                    "The name of the time zone during daylight saving. A text such as @tzres.dll,-321 is a reference "
                    "to the name, which Windows resolves only for its own display."),
        timeZone.of("standardName",
                    "The name of the time zone outside of daylight saving. A text such as @tzres.dll,-322 is a "
                    "reference to the name, which Windows resolves only for its own display."),

        application.of("productName", productName),
        application.of("version", productVersion),
        application.of("advertiseFlags", advertiseFlags),
        application.of("assignment", assignment),
        application.of("deploymentFlags", deploymentFlags),
        application.of("instanceType", instanceType),
        application.of("language", productLanguage),
        application.of("packageCode", packageCode),
        extension.of("extension", "An extension of the files that the application works with."),
        extension.of("projectType",
                     "The file type that the extension is registered for now, from HKCR. If it is the type of "
                     "another application, that application has taken the extension over."),
        openCommand.of("projectType",
                       "The file type of the application, a key of HKCR. The command that opens such a file follows."),
        openCommand.of("command",
                       "The command that Windows runs to open a file of this type, from shell\\open\\command of its "
                       "key."),

        tool.of("productName", productName),
        tool.of("version", productVersion),
        tool.of("advertiseFlags", advertiseFlags),
        tool.of("assignment", assignment),
        tool.of("deploymentFlags", deploymentFlags),
        tool.of("instanceType", instanceType),
        tool.of("language", productLanguage),
        tool.of("packageCode", packageCode),

        winSxS.of("bufferTooSmall",
                  "The path of the Windows directory did not fit into its buffer. The value is how many characters "
                  "it needs."),
        winSxS.of("directoryMissing", "The folder WinSxS does not exist or cannot be read. The value is its path."),
        assembly.of("name",
                    "A folder of the side-by-side store with a Visual C++ run-time library. Its name consists of "
                    "processor architecture, assembly, public key, version, language and a hash."),

        someVariables.of("templateTooLong",
                         "Which variable was too long for its buffer: its place among the five, counted from 0."),
        someVariables.of("neededSize", "The size of the buffer, in characters, that the variable would need."),
        someVariables.of("templateFailed",
                         "ExpandEnvironmentStrings failed. The value is the place of the variable among the five, "
                         "counted from 0."),
        someVariables.of("os", "The environment variable OS. It is Windows_NT on every Windows since NT."),
        someVariables.of("path",
                         "The environment variable PATH: folders in which Windows looks for programs and DLLs."),
        someVariables.of("homepath",
                         "The environment variable HOMEPATH: the folder of the user without the drive. %HOMEPATH% "
                         "means that it is not set."),
        someVariables.of("temp",
                         "The environment variable TEMP: the folder for temporary files. %TEMP% means that it is not "
                         "set."),
        someVariables.of("processorIdentifier",
                         "The environment variable PROCESSOR_IDENTIFIER: family, model, stepping and manufacturer of "
                         "the processor."),

        disks.of("getLogicalDrivesFailed",
                 "GetLogicalDrives failed, so no drive is listed. The value is the error code of Windows."),
        drive.of("root", "The root folder of the drive, which is its letter."),
        drive.of("type",
                 "The type of the drive, from GetDriveType. \"no root dir mounted\" means that the letter has no "
                 "volume."),
        drive.of("fileSystem",
                 "The file system, such as NTFS, from GetVolumeInformation. It is missing if there is no medium."),
        drive.of("label", "The label of the volume, from GetVolumeInformation. Many volumes have none."),
        drive.of("free",
                 "The space that is free for this user, from GetDiskFreeSpaceEx; a quota limits it. The last digit "
                 "is cut, not rounded."),
        drive.of("total",
                 "The size of the volume, from GetDiskFreeSpaceEx; a quota of the user limits it. The last digit is "
                 "cut, not rounded."),

        device.of("name",
                  "The registry key of the device, which Windows makes of its kind, manufacturer, product and "
                  "revision."),
        instance.of("class", "The device setup class, such as DiskDrive or CDROM, value Class."),
        instance.of("deviceDescription",
                    "The description of the device, value DeviceDesc. If it begins with @, it refers to a text of an "
                    "INF file, and the description follows the semicolon."),
        instance.of("friendlyName",
                    "The name under which Windows shows the device, usually its model, value FriendlyName."),
        instance.of("locationInformation",
                    "Where the device is attached, as the driver of its bus describes it, value LocationInformation."),
        instance.of("hardwareId", "The first, most exact of the hardware IDs of the device, value HardwareID."),
        instance.of("service", "The driver service of the device, such as disk or cdrom, value Service."),

        port.of("name", "The name of the port's device object in Windows."),
        port.of("port", "The name under which programs open the port, such as COM1 or LPT1."),

        quota.of("usedBytes", "How many bytes the registry uses, from GetSystemRegistryQuota."),
        quota.of("allowedBytes", "How many bytes the registry may use, from GetSystemRegistryQuota."),

        directories.of("systemDirectoryTooLong",
                       "The path of the Windows directory did not fit into its buffer. The value is how many "
                       "characters it needs."),
        directories.of("systemDirectory",
                       "The Windows directory, from GetSystemWindowsDirectory. In spite of its label the line does "
                       "not show System32."),
        directories.of("wow64DirectoryTooLong",
                       "The path of the directory of 32-bit programs did not fit into its buffer. The value is how "
                       "many characters it needs; the next line repeats the Windows directory."),
        directories.of("systemWow64Directory",
                       "The directory of the system files for 32-bit programs, usually SysWOW64, from "
                       "GetSystemWow64Directory. There is no line if Windows has none."),

        folders.of("csidlPersonal", "The documents folder of the user, from SHGetSpecialFolderPath."),
        folders.of("csidlPrograms",
                   "The folder of the user's programs in the Start menu, from SHGetSpecialFolderPath."),
        folders.of("csidlProgramFiles", "The folder for installed 64-bit programs, from SHGetSpecialFolderPath."),
        folders.of("csidlLocalAppdata",
                   "The folder for data of applications that stays on this computer, from SHGetSpecialFolderPath."),
        folders.of("csidlAppdata",
                   "The folder for data of applications that can follow the user to other computers, from "
                   "SHGetSpecialFolderPath."),

        standardBonjour.of("standardBonjour",
                           "Whether Windows can load dnssd.dll, the client library of Bonjour, from its search path."),
        standardBonjour.of("versionFailed", dnsSdVersionFailed),
        standardBonjour.of("dnsSdVersion",
                           "The version of the Bonjour service, from DNSServiceGetProperty. It is empty if dnssd.dll "
                           "lacks this function."),
        velkorBonjour.of("velkorDnsSd",
                         "Whether Windows can load vkdnssd.dll, Velkor's client library for DNS-SD, from its search "
                         "path."),
        velkorBonjour.of("versionFailed", dnsSdVersionFailed),
        velkorBonjour.of("dnsSdVersion",
                         "The version of Velkor's DNS-SD service, from DNSServiceGetProperty. It is empty if "
                         "vkdnssd.dll lacks this function."),

        refCount.of("failed",
                    "The count of vkdnssd.dll could not be read. Either no installer registered it as shared, or the "
                    "query failed."),
        refCount.of("refCount",
                    "How many installers registered vkdnssd.dll of the folder system32 as shared, from "
                    "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs."),

        module.of("path", "The file of a module in the process: the program first, then its DLLs."),

        dateTime.of("localDateAndTime",
                    "When the report was made, in local time, as day.month.year. The digits are those of the user's "
                    "locale."),
        dateTime.of("utcDateAndTime",
                    "When the report was made, in UTC, as day.month.year. The digits are those of the user's locale."),
        dateTime.of("activeBias", activeBias),

        qtGlobal.of("qtVersionThisObjectWasLinkedAgainst", "The version of Qt that the library was built with."),
        qtGlobal.of("qtVersionCurrentlyUsedForExecution",
                    "The version of Qt that the process has loaded, from qVersion()."),
        qtGlobal.of("endianessDetectedByQt",
                    "The byte order that Qt was built for. The library exists for little endian only."),
        qtGlobal.of("pointerSizeQSysInfoWordsize",
                    "The word size of the program in bits, from QSysInfo::WordSize. It is always 64."),
        qtGlobal.of("pointerSizeQtPointerSize",
                    "The size of a pointer in bytes, from QT_POINTER_SIZE. It is always 8."),

        coreApplication.of("applicationVersion",
                           "The version that the host set. If it set none, on Windows the product version of its "
                           "executable."),
        coreApplication.of("applicationName",
                           "The name that the host set. If it set none, the name of its executable."),
        coreApplication.of("applicationDirPath", "The folder of the host's executable."),
        coreApplication.of("applicationFilePath", "The path of the host's executable."),
        coreApplication.of("applicationPid", "The process ID of the host. It is another one in each run."),
        coreApplication.of("organizationDomain",
                           "The Internet domain of the organisation that the host set; empty if it set none."),
        coreApplication.of("organizationName", "The organisation that the host set; empty if it set none."),
        coreApplication.of("libraryPaths",
                           "The folders in which Qt looks for its plug-ins, from QCoreApplication::libraryPaths()."),

        locale.of("country", "The country of the system locale in English, from QLocale::system()."),
        locale.of("language", "The language of the system locale in English, from QLocale::system()."),
        locale.of("measuringSystem",
                  "The measurement system of the system locale. ImperialSystem is that of the United States; that of "
                  "the United Kingdom shows as unknown."),

        screen.of("number", "The number of the screen in Qt's list, counted from 1."),
        screen.of("name", "The name of the screen, from QScreen::name()."),
        screen.of("manufacturer",
                  "The manufacturer of the screen, from QScreen::manufacturer(). It is empty if Qt does not know it."),
        screen.of("physicalDpiX",
                  "The horizontal pixels per inch, from QScreen::physicalDotsPerInchX(). They are wrong if the "
                  "display reports a wrong size."),
        screen.of("physicalDpiY",
                  "The vertical pixels per inch, from QScreen::physicalDotsPerInchY(). They are wrong if the display "
                  "reports a wrong size."),
        screen.of("logicalDpiX",
                  "The horizontal dots per inch by which Qt converts font sizes to pixels. 96 stands for 100 percent "
                  "on Windows."),
        screen.of("logicalDpiY",
                  "The vertical dots per inch by which Qt converts font sizes to pixels. 96 stands for 100 percent "
                  "on Windows."),
        screen.of("devicePixelRatio",
                  "How many physical pixels a device-independent pixel of Qt is wide. It is 1 without Qt's scaling "
                  "for high densities."),
        screen.of("refreshRate", "About how often the screen is refreshed in a second, from QScreen::refreshRate()."),
        screen.of("physicalSizeWidthMm", "The width of the screen in millimetres as the display reports it."),
        screen.of("physicalSizeHeightMm", "The height of the screen in millimetres as the display reports it."),
        screen.of("physicalSizeWidthInch", "The width of the screen in inches, converted from millimetres."),
        screen.of("physicalSizeHeightInch", "The height of the screen in inches, converted from millimetres."),
        screen.of("diagonalMm", "The diagonal of the screen in millimetres, computed from its width and height."),
        screen.of("diagonalInch", "The diagonal of the screen in inches, computed from its width and height."),
        screen.of("sizeWidth", "The width of the screen in device-independent pixels, from QScreen::size()."),
        screen.of("sizeHeight", "The height of the screen in device-independent pixels, from QScreen::size()."),
        screen.of("colorDepth", "How many bits a pixel has for its colour, from QScreen::depth()."),
        screen.of("orientation",
                  "How the picture stands now: 1 portrait, 2 landscape, 4 and 8 the same inverted, 0 like the "
                  "primary orientation."),
        screen.of("nativeOrientation",
                  "How the picture stands in the normal position of the device: 1 portrait, 2 landscape, 4 and 8 the "
                  "same inverted, 0 like the primary orientation."),
        screen.of("primaryOrientation", "2 (landscape) if the screen is at least as wide as high, else 1 (portrait)."),

        desktop.of("desktopFileName",
                   "The name of the host's desktop entry, which desktops of Linux use. It is empty if the host set "
                   "none."),
        desktop.of("numberOfScreens", "How many screens Qt knows, from QGuiApplication::screens()."),
        desktop.of("primaryScreen",
                   "The name of the primary screen, on which windows open at first. It is empty if there is none."),
        layout.of("number", "The number of the screen in Qt's list, counted from 1."),
        layout.of("primary", "Marks the primary screen. Other screens do not have the mark."),
        layout.of("screenGeometryWidth", "The width of the screen in device-independent pixels."),
        layout.of("screenGeometryHeight", "The height of the screen in device-independent pixels."),
        layout.of("availableGeometryWidth", "The width that is left for windows: the screen without the taskbar."),
        layout.of("availableGeometryHeight", "The height that is left for windows: the screen without the taskbar."),
        layout.of("availableVirtGeometryWidth",
                  "The width that is left for windows on all screens of the desktop together."),
        layout.of("availableVirtGeometryHeight",
                  "The height that is left for windows on all screens of the desktop together."),
        layout.of("virtualSiblings",
                  "The numbers of the screens that form one desktop with this screen, itself included."),

        services.of("HomeLocation", "A line without a value. The folders follow it."),
        services.of("desktop", "The desktop folder of the user, from QStandardPaths."),
        services.of("desktopDisplayName",
                    "The name that Qt shows people for the desktop folder; empty if it has none."),
        services.of("documents", "The documents folder of the user, from QStandardPaths."),
        services.of("documentsDisplayName",
                    "The name that Qt shows people for the documents folder; empty if it has none."),
        services.of("home", "The home folder of the user, from QStandardPaths."),
        services.of("homeDisplayName", "The name that Qt shows people for the home folder; empty if it has none."),
        services.of("data",
                    "The folder for the host's own data, from QStandardPaths. Qt makes it of a folder of the user "
                    "and the names of organisation and application."),
        services.of("dataDisplayName", "The name that Qt shows people for the data folder; empty if it has none."),
        services.of("temp", "The folder for temporary files, from QStandardPaths."),
        services.of("tempDisplayName",
                    "The name that Qt shows people for the folder of temporary files; empty if it has none."),
        services.of("applications",
                    "The folder of the user's applications, from QStandardPaths: on Windows one of the Start menu."),
        services.of("applicationsDisplayName",
                    "The name that Qt shows people for the folder of applications; empty if it has none."),
        services.of("fonts", "The folder of fonts, from QStandardPaths."),
        services.of("fontsDisplayName", "The name that Qt shows people for the folder of fonts; empty if it has none."),

        accessibility.of("isActive",
                         "1 if a screen reader or similar software has asked Qt for accessibility information, else "
                         "0."),

        printers.of("Available printers:", "A line without a value. The printers follow it."),
        printers.of("    <None>", "Qt found no printer."),
        printer.of("name", "The name of the printer, from QPrinterInfo::printerName()."),
        printer.of("default", "Marks the default printer of the user. Other printers do not have the mark."),

        hostInfo.of("localHostName", "The host name of the computer, from QHostInfo::localHostName()."),
        hostInfo.of("localDomainName",
                    "The DNS domain of the computer, from QHostInfo::localDomainName(). It is empty if there is none."),

        networkInterface.of("name",
                            "The description of the network adapter, from GetAdaptersInfo. If Windows lists no such "
                            "adapter, Qt's name of the interface."),
        networkInterface.of("loopback", "The interface leads only back to this computer."),
        networkInterface.of("hardwareAddress",
                            "The hardware address (MAC address) of the adapter. It is empty if there is none."),
        networkInterface.of("status",
                            "Up: the interface is enabled. Running: it is operational, usually because it is "
                            "connected to a network."),
        networkInterface.of("Addresses: IP , netmask , broadcast",
                            "A line without a value. Each line that follows has an address, its netmask and its "
                            "broadcast address."),
        networkInterface.of("<no address>", "The interface has no IP address."),
        entry.of("ip", "An IPv4 or IPv6 address of the interface, from QNetworkInterface."),
        entry.of("netmask", "The mask that separates the network part of the address from the part of the host."),
        entry.of("broadcast",
                 "The address that reaches all hosts of the network. It is empty for IPv6, which has no broadcast."),
        gateway.of("ip",
                   "The IPv4 address of the default gateway, from GetAdaptersInfo. 0.0.0.0 or nothing means that "
                   "there is none."),
        gateway.of("mask", "The mask that GetAdaptersInfo lists beside the address of the gateway."),
        gateway.of("number", "The number of the gateway, counted from 1, if the adapter has several."),
        networkInterface.of("dhcpEnabled",
                            "1 if the adapter gets its address by DHCP, 0 if not, from GetAdaptersInfo."),
        dhcpServer.of("ip", "The IPv4 address of the DHCP server, from GetAdaptersInfo."),
        dhcpServer.of("mask", "The mask that GetAdaptersInfo lists beside the address of the DHCP server."),
        dhcpServer.of("number", "The number of the DHCP server, counted from 1, if the adapter has several."),
        networkInterface.of("leaseObtained",
                            "When the DHCP server leased the address, in local time. A value that begins with 0x is "
                            "a time that could not be converted."),
        networkInterface.of("leaseExpires",
                            "When the lease of the address ends, in local time. A value that begins with 0x is a "
                            "time that could not be converted."),
        networkInterface.of("haveWins",
                            "1 if the adapter uses WINS, which finds computers by their NetBIOS names, 0 if not."),
        networkInterface.of("primaryWinsServer", "The IPv4 address of the first WINS server, from GetAdaptersInfo."),
        networkInterface.of("primaryWinsServerMask",
                            "The mask that GetAdaptersInfo lists beside the address of the first WINS server."),
        networkInterface.of("secondaryWinsServer",
                            "The IPv4 address of the second WINS server, from GetAdaptersInfo. 0.0.0.0 or nothing "
                            "means that there is none."),
        networkInterface.of("secondaryWinsServerMask",
                            "The mask that GetAdaptersInfo lists beside the address of the second WINS server."),

        variable.of("name", "The name of an environment variable of the process."),
        variable.of("value", "The value of the environment variable in the process that made the report."),

        openGL.of("hasOpenGl", "1 if the system supports OpenGL, from QGLFormat::hasOpenGL(), else 0."),
        openGL.of("hasOpenGlOverlays",
                  "1 if the system supports OpenGL overlay planes, from QGLFormat::hasOpenGLOverlays(), else 0."),
        openGL.of("openGlVersionFlags",
                  "Bits for the versions of OpenGL that the system supports, from QGLFormat::openGLVersionFlags(), "
                  "and the name of the highest. Qt knows versions up to 4.3."),
        openGL.of("#### Info about the OpenGL driver DLL's from registry ###",
                  "A line without a value. The registered drivers follow it."),
        openGLDriver.of("name",
                        "The name of a registered OpenGL driver, a key of HKLM\\SOFTWARE\\Microsoft\\Windows "
                        "NT\\CurrentVersion\\OpenGLDrivers."),
        openGLDriver.of("dll",
                        "The file of the driver: value dll of its key and the extension. It ends with .dll.dll if "
                        "the registry has the extension too."),
        openGL.of("#### Direct OpenGL calls (using QGLWidget with default QGLFormat) ####",
                  "A line without a value. What follows comes from an OpenGL context with Qt's default format."),
        openGL.of("glVersion",
                  "The version of OpenGL that the driver offers, and what the driver adds to it, from glGetString."),
        openGL.of("glVendor", "The manufacturer of the OpenGL driver, from glGetString."),
        openGL.of("glRenderer",
                  "The graphics hardware or software that draws, from glGetString. GDI Generic is the software of "
                  "Windows, which draws if no graphics driver offers OpenGL."),
        openGL.of("glExtensions", "The extensions that the OpenGL driver offers, from glGetString."),
    };
    return meanings;
}

namespace {

struct ItemText
{
    const char *section;
    const char *kind;
    const char *text;
};

constexpr ItemText itemTexts[] = {
    {"processorRegistryInfo", "processor", "A logical processor with the values of its registry key."},
    {"videoInfoFromRegistry", "adapter", "A display adapter that Windows knows, in use now or not."},
    {"videoInfoFromRegistry", "configuration",
     "A numbered configuration of a display adapter with the values that its driver stored. Of an adapter without a "
     "key Video the last one appears twice."},
    {"driverInfoFromRegistry", "deviceClass",
     "A device setup class: a kind of devices that Windows installs in the same way."},
    {"driverInfoFromRegistry", "driver", "The driver of a device of this class. The device need not be attached now."},
    {"installedApplicationsFromRegistry", "product", "A Velkor application that Windows Installer has installed."},
    {"installedApplicationsFromRegistry", "fileExtension",
     "An extension of the application's files, and what it is registered for."},
    {"installedApplicationsFromRegistry", "openCommand", "The command that opens the application's files."},
    {"installedVisualBasicApplications", "product",
     "A Velkor update tool that Windows Installer has installed for the user."},
    {"winSxSDirectoryEntries", "assembly", "A Visual C++ run-time library in the side-by-side store."},
    {"diskInformation", "drive",
     "A drive with a letter, from GetLogicalDrives. Without a medium it has only its type."},
    {"diskDevicesFromRegistry", "device", "A kind of disk device that is or was attached."},
    {"diskDevicesFromRegistry", "instance", "One device of this kind, as it is or was attached."},
    {"portsFromRegistry", "port", "A port that a driver of Windows has registered."},
    {"loadedModules", "module", "A program file or DLL that is loaded in the process."},
    {"qtScreens", "screen", "The hardware of a screen as Qt reports it."},
    {"qtDesktop", "screen", "The place that a screen offers on the desktop."},
    {"qtPrinterInfo", "printer", "A printer that the user can print to."},
    {"qtNetworkInterfaces", "interface",
     "A network interface, from QNetworkInterface, with what GetAdaptersInfo adds to it."},
    {"qtNetworkInterfaces", "address", "An IP address of the interface with its netmask and its broadcast address."},
    {"qtNetworkInterfaces", "gateway", "A default gateway of the adapter, which leads to other networks."},
    {"qtNetworkInterfaces", "dhcpServer", "A DHCP server that the adapter gets its address from."},
    {"qtSystemEnvironment", "variable", "An environment variable of the process."},
    {"GetOpenGLInfo", "openGLDriver", "An OpenGL driver that is registered in Windows for all adapters."},
};

struct SectionText
{
    const char *name;
    const char *text;
};

constexpr SectionText sectionTexts[] = {
    {"windowsVersion",
     "The version of Windows in numbers and by name, from GetVersionEx, the registry and GetProductInfo."},
    {"windowsVersionFromRegistry",
     "What is stored about this Windows in HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion. A value that does "
     "not exist has no line."},
    {"wordSize",
     "Whether the program that made the report is a 32-bit or a 64-bit program. It says nothing about Windows."},
    {"internetExplorerInfo", "The version of Internet Explorer, from HKLM\\Software\\Microsoft\\Internet Explorer."},
    {"processorInfo", "The processors as GetSystemInfo describes them to the program."},
    {"processorRegistryInfo",
     "The logical processors of HKLM\\Hardware\\Description\\System\\CentralProcessor, up to the first gap in their "
     "numbers."},
    {"memoryInfo",
     "The memory of the computer and of the process, from GlobalMemoryStatusEx. If only the heading is present, the "
     "call failed."},
    {"computerNames",
     "The forms of the computer's name, from GetComputerNameEx. A name of 16 or more characters has no line."},
    {"userName", "The user that the program runs as. There is no line if GetUserName failed."},
    {"oemInfoFromRegistry",
     "What the manufacturer of the computer stored in "
     "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation. A value that does not exist has no line."},
    {"systemInformationFromRegistry",
     "The computer and its firmware, from HKLM\\SYSTEM\\CurrentControlSet\\Control\\SystemInformation. A value that "
     "does not exist has no line."},
    {"biosInfoFromRegistry",
     "The firmware of computer and display adapter, which Windows writes to HKLM\\Hardware\\Description\\System "
     "when it starts. A value that does not exist has no line."},
    {"videoInfoFromRegistry",
     "The display adapters of HKLM\\SYSTEM\\CurrentControlSet\\Control\\Video. A value that the driver did not "
     "store has no line."},
    {"driverInfoFromRegistry",
     "The drivers of all device setup classes, from HKLM\\SYSTEM\\CurrentControlSet\\Control\\Class, also of "
     "devices that are not attached now."},
    {"timeZoneInfoFromRegistry",
     "The time zone that Windows is set to, from HKLM\\SYSTEM\\CurrentControlSet\\Control\\TimeZoneInformation."},
    {"installedApplicationsFromRegistry",
     "The Velkor applications that Windows Installer has installed for the machine, from HKCR\\Installer\\Products, "
     "with the file types that they open."},
    {"installedVisualBasicApplications",
     "The Velkor update tools that Windows Installer has installed for the user, from "
     "HKCU\\Software\\Microsoft\\Installer\\Products."},
    {"winSxSDirectoryEntries",
     "The Visual C++ run-time libraries in the folder WinSxS of the Windows directory. Programs that were built "
     "with Visual C++ 2005 or 2008 use them."},
    {"someEnvironmentVariables",
     "Five environment variables of the process, from ExpandEnvironmentStrings. A variable that is not set shows as "
     "its name between percent signs."},
    {"diskInformation", "The drives that have a letter: type, file system, label, free space and size."},
    {"diskDevicesFromRegistry:FDC",
     "Drives on floppy disk controllers, attached now or earlier, from HKLM\\SYSTEM\\CurrentControlSet\\Enum\\FDC."},
    {"diskDevicesFromRegistry:IDE",
     "Disk and CD drives on IDE controllers, attached now or earlier, from "
     "HKLM\\SYSTEM\\CurrentControlSet\\Enum\\IDE."},
    {"diskDevicesFromRegistry:SCSI",
     "Disk and CD drives that Windows addresses like SCSI devices, attached now or earlier, from "
     "HKLM\\SYSTEM\\CurrentControlSet\\Enum\\SCSI. Many SATA and NVMe drives are among them."},
    {"diskDevicesFromRegistry:USBSTOR",
     "USB drives and memory cards, attached now or earlier, from HKLM\\SYSTEM\\CurrentControlSet\\Enum\\USBSTOR."},
    {"portsFromRegistry:PARALLEL PORTS",
     "The parallel ports that are present, from HKLM\\HARDWARE\\DEVICEMAP\\PARALLEL PORTS."},
    {"portsFromRegistry:SERIALCOMM",
     "The serial ports that are present, also those of USB adapters and modems, from "
     "HKLM\\HARDWARE\\DEVICEMAP\\SERIALCOMM."},
    {"registryQuota",
     "How large the registry is and may become. If only the heading is present, GetSystemRegistryQuota failed."},
    {"windowsSystemDirectories", "The Windows directory and the directory of the system files for 32-bit programs."},
    {"specialFolders",
     "Folders of the user and of programs. A folder that Windows does not tell repeats the one before it."},
    {"checkStandardBonjour",
     "Whether Bonjour is installed, which finds devices in the network, and the version of its service."},
    {"checkVelkorBonjour",
     "Whether Velkor's own DNS-SD, which finds devices in the network, is installed, and its version."},
    {"refCountSharedDll", "How many installers share vkdnssd.dll."},
    {"loadedModules",
     "The program and the DLLs that are loaded in the process that made the report, from EnumProcessModules. At "
     "most 1024 are listed."},
    {"qtDateTime", "When the report was made. The section has no heading."},
    {"qtGlobal", "The Qt that the library was built with, and the Qt that the process uses."},
    {"qtCoreApplication", "What the host, the program that made the report, says about itself, from QCoreApplication."},
    {"qtLocale", "The regional settings of the user, from QLocale::system()."},
    {"qtScreens", "The hardware of the screens, from QScreen. Sizes and densities are those that the displays report."},
    {"qtDesktop", "The screens as parts of the desktop, from QScreen, in device-independent pixels."},
    {"qtDesktopServices", "Folders that Qt gives to programs, from QStandardPaths, with the names that people see."},
    {"qtAccessibility", "Whether software for people with disabilities uses the program."},
    {"qtPrinterInfo", "The printers of the user, from QPrinterInfo."},
    {"qtHostInfo", "The name of the computer in the network, from QHostInfo."},
    {"qtNetworkInterfaces",
     "The network interfaces with their addresses. Gateway, DHCP and WINS follow if Windows lists the adapter."},
    {"qtSystemEnvironment", "All environment variables of the process, from QProcess::systemEnvironment()."},
    {"GetOpenGLInfo",
     "What Qt, the registry and an OpenGL context say about OpenGL. The section is there only if the host asked for "
     "it."},
};

bool same(const char *one, const char *other)
{
    return qstrcmp(one, other) == 0;
}

template <typename Texts, typename IsWanted>
const char *findText(const Texts &texts, IsWanted isWanted)
{
    const auto found = std::find_if(std::begin(texts), std::end(texts), isWanted);
    return found == std::end(texts) ? "" : found->text;
}

} // namespace

const char *meaningOf(const FactRow &row)
{
    const char *const name = *row.key ? row.key : row.line;
    return findText(factMeanings(), [&row, name](const Meaning &meaning) {
        return same(meaning.name, name) && same(meaning.item, row.item) && same(meaning.section, row.section);
    });
}

const char *meaningOf(const ItemRow &row)
{
    return findText(itemTexts, [&row](const ItemText &text) {
        return same(text.kind, row.kind) && same(text.section, row.section);
    });
}

const char *sectionMeaning(const SectionRow &row)
{
    return findText(sectionTexts, [&row](const SectionText &text) { return same(text.name, row.name); });
}

QString FactRow::meaning() const
{
    return QString::fromUtf8(meaningOf(*this));
}

QString ItemRow::meaning() const
{
    return QString::fromUtf8(meaningOf(*this));
}

QString SectionRow::meaning() const
{
    return QString::fromUtf8(sectionMeaning(*this));
}

} // namespace Reports
} // namespace velkor
