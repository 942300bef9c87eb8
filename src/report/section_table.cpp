#include "report/section_table.h"

#include "opengl/opengl_sections.h"
#include "qt/qt_network_interfaces.h"
#include "report/text.h"
#include "vkSystemInfo.h"
#include "win/windows_sections.h"

#include <iterator>

namespace velkor {
namespace SystemInfo {

namespace {

using namespace WinSysInfo;

constexpr Part windows = Part::Windows;
constexpr Part qt = Part::Qt;
constexpr Followed next = Followed::ByNextSection;
constexpr Followed separator = Followed::BySeparator;

constexpr Section rows[] = {
    {"windows_version", nullptr, "windowsVersion", [] { return windowsVersion(true); },
     "Windows version: \n", windows, next, registryVersionReads},
    {"windows_version_registry", nullptr, "windowsVersionFromRegistry", windowsVersionFromRegistry,
     "Windows version information from Registry\n", windows, separator, windowsVersionReads},
    {"word_size", nullptr, "wordSize", wordSize,
     "This is a 64bit application.\n", windows, separator},
    {"internet_explorer_info", nullptr, "internetExplorerInfo", internetExplorerInfo,
     "Internet Explorer information from Registry\n", windows, separator, internetExplorerReads},
    {"processor_info", nullptr, "processorInfo", processorInfo,
     "Processor information: \n", windows, next},
    {"processor_registry_info", nullptr, "processorRegistryInfo", processorRegistryInfo,
     "Central Processor information from Registry\n", windows, separator, processorReads},
    {"memory_info", nullptr, "memoryInfo", memoryInfo,
     "Memory Information:\n", windows, separator},
    {"computer_names", nullptr, "computerNames", computerNames,
     "Computer name\n", windows, next},
    {"user_name", nullptr, "userName", userName,
     "", windows, separator},
    {"oem_info", nullptr, "oemInfoFromRegistry", oemInfoFromRegistry,
     "OEM Information from Registry\n", windows, separator, oemReads},
    {"system_information", nullptr, "systemInformationFromRegistry", systemInformationFromRegistry,
     "SystemInformation from Registry\n", windows, separator, systemInformationReads},
    {"bios_info", nullptr, "biosInfoFromRegistry", biosInfoFromRegistry,
     "BIOS information from Registry\n", windows, separator, biosReads},
    {"video_info", nullptr, "videoInfoFromRegistry", videoInfoFromRegistry,
     ">>> Info about video from registry:\n\n", windows, separator, videoReads},
    {"driver_info", nullptr, "driverInfoFromRegistry", driverInfoFromRegistry,
     ">>> Info about drivers from registry:\n\n", windows, separator, driverReads},
    {"time_zone_info", nullptr, "timeZoneInfoFromRegistry", timeZoneInfoFromRegistry,
     "Time Zone information from Registry\n", windows, separator, timeZoneReads},
    {"installed_applications", "machine", "installedApplicationsFromRegistry", installedApplicationsFromRegistry,
     ">>> Info about installed Velkor applications from registry:\n\n", windows, next, applicationReads},
    {"installed_applications", "visual_basic", "installedVisualBasicApplications", installedVisualBasicApplications,
     ">>> Info about installed Velkor Visual Basic applications from registry:\n\n", windows, separator,
     visualBasicApplicationReads},
    {"winsxs_entries", nullptr, "winSxSDirectoryEntries", winSxSDirectoryEntries,
     "WinSxS directory entries\n", windows, separator},
    {"environment_variables", nullptr, "someEnvironmentVariables", someEnvironmentVariables,
     "Some environment variables:\n", windows, separator},
    {"disk_information", nullptr, "diskInformation", diskInformation,
     "Disk information: \n", windows, separator},
    {"disk_devices", "fdc", "diskDevicesFromRegistry:FDC",
     [] { return diskDevicesFromRegistry(QStringLiteral("FDC")); },
     ">>> Info about 'FDC' disk devices from registry:\n", windows, next,
     [] { return diskDeviceReads(QStringLiteral("FDC")); }},
    {"disk_devices", "ide", "diskDevicesFromRegistry:IDE",
     [] { return diskDevicesFromRegistry(QStringLiteral("IDE")); },
     ">>> Info about 'IDE' disk devices from registry:\n", windows, next,
     [] { return diskDeviceReads(QStringLiteral("IDE")); }},
    {"disk_devices", "scsi", "diskDevicesFromRegistry:SCSI",
     [] { return diskDevicesFromRegistry(QStringLiteral("SCSI")); },
     ">>> Info about 'SCSI' disk devices from registry:\n", windows, next,
     [] { return diskDeviceReads(QStringLiteral("SCSI")); }},
    {"disk_devices", "usbstor", "diskDevicesFromRegistry:USBSTOR",
     [] { return diskDevicesFromRegistry(QStringLiteral("USBSTOR")); },
     ">>> Info about 'USBSTOR' disk devices from registry:\n", windows, separator,
     [] { return diskDeviceReads(QStringLiteral("USBSTOR")); }},
    {"ports", "parallel_ports", "portsFromRegistry:PARALLEL PORTS",
     [] { return portsFromRegistry(QStringLiteral("PARALLEL PORTS")); },
     ">> Info about 'PARALLEL PORTS' ports from registry:\n", windows, next,
     [] { return portReads(QStringLiteral("PARALLEL PORTS")); }},
    {"ports", "serialcomm", "portsFromRegistry:SERIALCOMM",
     [] { return portsFromRegistry(QStringLiteral("SERIALCOMM")); },
     ">> Info about 'SERIALCOMM' ports from registry:\n", windows, separator,
     [] { return portReads(QStringLiteral("SERIALCOMM")); }},
    {"registry_quota", nullptr, "registryQuota", registryQuota,
     "Registry quota:\n", windows, separator},
    {"system_directories", nullptr, "windowsSystemDirectories", windowsSystemDirectories,
     "Windows system directories\n", windows, next},
    {"special_folders", nullptr, "specialFolders", specialFolders,
     "Special Folders: \n", windows, separator},
    {"dnssd_service", "standard", "checkStandardBonjour", checkStandardBonjourText,
     "Standard Bonjour: ", windows, separator},
    {"dnssd_service", "velkor", "checkVelkorBonjour", checkVelkorBonjourText,
     "velkor DNS-SD: ", windows, next},
    {"ref_count_shared_dll", nullptr, "refCountSharedDll", refCountSharedDllText,
     "RefCount for vkdnssd.dll: ", windows, separator, sharedDllReads},
    {"loaded_modules", nullptr, "loadedModules", loadedModulesText,
     "Loaded modules/DLLs:\n", windows, separator},

    {"qt_date_time", nullptr, "qtDateTime", qtDateTime, "Local Date and Time: ", qt, separator},
    {"qt_global", nullptr, "qtGlobal", qtGlobal, "Qt Global\n", qt, separator},
    {"qt_core_application", nullptr, "qtCoreApplication", qtCoreApplication, "QCoreApplication:\n", qt, separator},
    {"qt_locale", nullptr, "qtLocale", qtLocale, "QLocale\n", qt, separator},
    {"qt_screens", nullptr, "qtScreens", qtScreens, "QScreen (hardware)\n", qt, separator},
    {"qt_desktop", nullptr, "qtDesktop", qtDesktop, "QScreen (Desktop)\n", qt, separator},
    {"qt_desktop_services", nullptr, "qtDesktopServices", qtDesktopServices, "QDesktopServices\n", qt, separator},
    {"qt_accessibility", nullptr, "qtAccessibility", qtAccessibility, "Qt Accessibility\n", qt, separator},
    {"qt_printer_info", nullptr, "qtPrinterInfo", qtPrinterInfo, "QPrinterInfo\n", qt, separator},
    {"qt_host_info", nullptr, "qtHostInfo", qtHostInfo, "QHostInfo\n", qt, separator},
    {"qt_network_interfaces", nullptr, "qtNetworkInterfaces", qtNetworkInterfaces,
     "Network Interfaces Info\n", qt, separator},
    {"qt_system_environment", nullptr, "qtSystemEnvironment", qtSystemEnvironment,
     "System environemnt (QProcess::systemEnvironment()):\n", qt, separator},

    {"opengl_section", nullptr, "GetOpenGLInfo", openGLSection, "#### QGLFormat #### \n", Part::OpenGL, separator,
     openGLDriverReads},
};

} // namespace

const Section *SectionTable::begin() const
{
    return std::begin(rows);
}

const Section *SectionTable::end() const
{
    return std::end(rows);
}

void appendSections(QString &text, Part part)
{
    for (const Section &section : SectionTable()) {
        if (section.part != part)
            continue;
        appendSection(text, section.text());
        if (section.followed == Followed::BySeparator)
            append(text, SystemInfo::separator());
    }
}

} // namespace SystemInfo
} // namespace velkor
