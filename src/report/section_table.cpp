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
    {"windows_version", "windowsVersion", [] { return windowsVersion(true); },
     "Windows version: \n", windows, next, registryVersionReads},
    {"windows_version_registry", "windowsVersionFromRegistry", windowsVersionFromRegistry,
     "Windows version information from Registry\n", windows, separator, windowsVersionReads},
    {"word_size", "wordSize", wordSize,
     "This is a 64bit application.\n", windows, separator},
    {"internet_explorer_info", "internetExplorerInfo", internetExplorerInfo,
     "Internet Explorer information from Registry\n", windows, separator, internetExplorerReads},
    {"processor_info", "processorInfo", processorInfo,
     "Processor information: \n", windows, next},
    {"processor_registry_info", "processorRegistryInfo", processorRegistryInfo,
     "Central Processor information from Registry\n", windows, separator, processorReads},
    {"memory_info", "memoryInfo", memoryInfo,
     "Memory Information:\n", windows, separator},
    {"computer_names", "computerNames", computerNames,
     "Computer name\n", windows, next},
    {"user_name", "userName", userName,
     "", windows, separator},
    {"oem_info", "oemInfoFromRegistry", oemInfoFromRegistry,
     "OEM Information from Registry\n", windows, separator, oemReads},
    {"system_information", "systemInformationFromRegistry", systemInformationFromRegistry,
     "SystemInformation from Registry\n", windows, separator, systemInformationReads},
    {"bios_info", "biosInfoFromRegistry", biosInfoFromRegistry,
     "BIOS information from Registry\n", windows, separator, biosReads},
    {"video_info", "videoInfoFromRegistry", videoInfoFromRegistry,
     ">>> Info about video from registry:\n\n", windows, separator, videoReads},
    {"driver_info", "driverInfoFromRegistry", driverInfoFromRegistry,
     ">>> Info about drivers from registry:\n\n", windows, separator, driverReads},
    {"time_zone_info", "timeZoneInfoFromRegistry", timeZoneInfoFromRegistry,
     "Time Zone information from Registry\n", windows, separator, timeZoneReads},
    {"installed_applications", "installedApplicationsFromRegistry", installedApplicationsFromRegistry,
     ">>> Info about installed Velkor applications from registry:\n\n", windows, next, applicationReads},
    {"installed_visual_basic_applications", "installedVisualBasicApplications", installedVisualBasicApplications,
     ">>> Info about installed Velkor Visual Basic applications from registry:\n\n", windows, separator,
     visualBasicApplicationReads},
    {"winsxs_entries", "winSxSDirectoryEntries", winSxSDirectoryEntries,
     "WinSxS directory entries\n", windows, separator},
    {"environment_variables", "someEnvironmentVariables", someEnvironmentVariables,
     "Some environment variables:\n", windows, separator},
    {"disk_information", "diskInformation", diskInformation,
     "Disk information: \n", windows, separator},
    {"disk_devices", "diskDevicesFromRegistry:FDC", [] { return diskDevicesFromRegistry(QStringLiteral("FDC")); },
     ">>> Info about 'FDC' disk devices from registry:\n", windows, next,
     [] { return diskDeviceReads(QStringLiteral("FDC")); }},
    {"disk_devices", "diskDevicesFromRegistry:IDE", [] { return diskDevicesFromRegistry(QStringLiteral("IDE")); },
     ">>> Info about 'IDE' disk devices from registry:\n", windows, next,
     [] { return diskDeviceReads(QStringLiteral("IDE")); }},
    {"disk_devices", "diskDevicesFromRegistry:SCSI", [] { return diskDevicesFromRegistry(QStringLiteral("SCSI")); },
     ">>> Info about 'SCSI' disk devices from registry:\n", windows, next,
     [] { return diskDeviceReads(QStringLiteral("SCSI")); }},
    {"disk_devices", "diskDevicesFromRegistry:USBSTOR",
     [] { return diskDevicesFromRegistry(QStringLiteral("USBSTOR")); },
     ">>> Info about 'USBSTOR' disk devices from registry:\n", windows, separator,
     [] { return diskDeviceReads(QStringLiteral("USBSTOR")); }},
    {"ports", "portsFromRegistry:PARALLEL PORTS", [] { return portsFromRegistry(QStringLiteral("PARALLEL PORTS")); },
     ">> Info about 'PARALLEL PORTS' ports from registry:\n", windows, next,
     [] { return portReads(QStringLiteral("PARALLEL PORTS")); }},
    {"ports", "portsFromRegistry:SERIALCOMM", [] { return portsFromRegistry(QStringLiteral("SERIALCOMM")); },
     ">> Info about 'SERIALCOMM' ports from registry:\n", windows, separator,
     [] { return portReads(QStringLiteral("SERIALCOMM")); }},
    {"registry_quota", "registryQuota", registryQuota,
     "Registry quota:\n", windows, separator},
    {"system_directories", "windowsSystemDirectories", windowsSystemDirectories,
     "Windows system directories\n", windows, next},
    {"special_folders", "specialFolders", specialFolders,
     "Special Folders: \n", windows, separator},
    {"standard_bonjour", "checkStandardBonjour", checkStandardBonjourText,
     "Standard Bonjour: ", windows, separator},
    {"velkor_bonjour", "checkVelkorBonjour", checkVelkorBonjourText,
     "velkor DNS-SD: ", windows, next},
    {"ref_count_shared_dll", "refCountSharedDll", refCountSharedDllText,
     "RefCount for vkdnssd.dll: ", windows, separator, sharedDllReads},
    {"loaded_modules", "loadedModules", loadedModulesText,
     "Loaded modules/DLLs:\n", windows, separator},

    {"qt_date_time", "qtDateTime", qtDateTime, "Local Date and Time: ", qt, separator},
    {"qt_global", "qtGlobal", qtGlobal, "Qt Global\n", qt, separator},
    {"qt_core_application", "qtCoreApplication", qtCoreApplication, "QCoreApplication:\n", qt, separator},
    {"qt_locale", "qtLocale", qtLocale, "QLocale\n", qt, separator},
    {"qt_screens", "qtScreens", qtScreens, "QScreen (hardware)\n", qt, separator},
    {"qt_desktop", "qtDesktop", qtDesktop, "QScreen (Desktop)\n", qt, separator},
    {"qt_desktop_services", "qtDesktopServices", qtDesktopServices, "QDesktopServices\n", qt, separator},
    {"qt_accessibility", "qtAccessibility", qtAccessibility, "Qt Accessibility\n", qt, separator},
    {"qt_printer_info", "qtPrinterInfo", qtPrinterInfo, "QPrinterInfo\n", qt, separator},
    {"qt_host_info", "qtHostInfo", qtHostInfo, "QHostInfo\n", qt, separator},
    {"qt_network_interfaces", "qtNetworkInterfaces", qtNetworkInterfaces, "Network Interfaces Info\n", qt, separator},
    {"qt_system_environment", "qtSystemEnvironment", qtSystemEnvironment, "System environemnt (QProcess::systemEnvironment()):\n", qt, separator},

    {"opengl_section", "GetOpenGLInfo", openGLSection, "#### QGLFormat #### \n", Part::OpenGL, separator,
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
