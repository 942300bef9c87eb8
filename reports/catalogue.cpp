#include "catalogue.h"

namespace velkor {
namespace Reports {

namespace {

constexpr Reveals nothing = Reveal::Nothing;
constexpr Changes rarely = Changes::Rarely;
constexpr Changes everyMoment = Changes::EveryMoment;

// The rows of one section and kind of item.
struct Group
{
    const char *section;
    const char *item;

    constexpr FactRow row(const char *key, const char *line, int place, Type type, const char *unit, Changes changes,
                          Reveals reveals, unsigned form, const char *only = "") const
    {
        return {section, item, key, line, place, type, unit, changes, reveals, form, only};
    }
    constexpr FactRow text(const char *key, const char *line, Reveals reveals = nothing, unsigned form = Plain,
                           int place = 1) const
    {
        return row(key, line, place, Type::Text, "", rarely, reveals, form);
    }
    constexpr FactRow number(const char *key, const char *line, const char *unit = "", unsigned form = Plain,
                             int place = 1) const
    {
        return row(key, line, place, Type::Number, unit, rarely, nothing, form);
    }
    constexpr FactRow number64(const char *key, const char *line, Changes changes = rarely) const
    {
        return row(key, line, 1, Type::Number64, "", changes, nothing, Plain);
    }
    constexpr FactRow real(const char *key, const char *line, const char *unit, int place) const
    {
        return row(key, line, place, Type::Real, unit, rarely, nothing, Plain);
    }
    constexpr FactRow bytes(const char *key, const char *line, Changes changes = rarely, int place = 1) const
    {
        return row(key, line, place, Type::Bytes, "Byte", changes, nothing, Plain);
    }
    constexpr FactRow version(const char *key, const char *line) const
    {
        return row(key, line, 1, Type::Version, "", rarely, nothing, Plain);
    }
    constexpr FactRow date(const char *key, const char *line, Changes changes = rarely) const
    {
        return row(key, line, 1, Type::Date, "", changes, nothing, Plain);
    }
    constexpr FactRow list(const char *key, const char *line, unsigned form, Reveals reveals = nothing) const
    {
        return row(key, line, 1, Type::List, "", rarely, reveals, form);
    }
    /// A line that says that a call failed and has a value.
    constexpr FactRow failure(const char *key, const char *line, unsigned form = Plain, int place = 1) const
    {
        return row(key, line, place, Type::Text, "", rarely, nothing, Failure | form);
    }
    /// One that has no value.
    constexpr FactRow fixedFailure(const char *key, const char *line, unsigned form = Plain) const
    {
        return row(key, "%1", 1, Type::Text, "", rarely, nothing, Failure | form, line);
    }
    constexpr FactRow fixed(const char *line) const
    {
        return row("", line, 0, Type::Text, "", rarely, nothing, Fixed);
    }
};

constexpr Reveals user = Reveal::User;
constexpr Reveals host = Reveal::Host;
constexpr Reveals organisation = Reveal::Organisation;
constexpr Reveals address = Reveal::Address;
constexpr Reveals serialNumber = Reveal::SerialNumber;
constexpr Reveals path = Reveal::Path;
constexpr Reveals printerName = Reveal::Printer;
constexpr Reveals driveLabel = Reveal::DriveLabel;
constexpr Reveals networkDrive = Reveal::NetworkDrive;
constexpr Reveals secret = Reveal::Secret;

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
constexpr Group interface {
    "qtNetworkInterfaces", "interface"
};
constexpr Group entry {"qtNetworkInterfaces", "address"};
constexpr Group gateway {"qtNetworkInterfaces", "gateway"};
constexpr Group dhcpServer {"qtNetworkInterfaces", "dhcpServer"};
constexpr Group variable {"qtSystemEnvironment", "variable"};
constexpr Group openGL {"GetOpenGLInfo", ""};
constexpr Group openGLDriver {"GetOpenGLInfo", "openGLDriver"};

constexpr const char physicalDpi[] = "  Physical DPI x: %1  y: %2";
constexpr const char logicalDpi[] = "  Logical  DPI x: %1  y: %2";
constexpr const char physicalSize[] = "  PhysicalSize (width x height): %1mm x %2mm  %3inch x %4inch";
constexpr const char diagonal[] = "                diagonal: %1mm %2inch";
constexpr const char pixelSize[] = "  Size (width x height): %1 x %2";
constexpr const char primaryScreenLine[] = "Screen #%1: %2";
constexpr const char geometry[] = "  screen Geometry          width: %1, height: %2";
constexpr const char availableGeometry[] = "  available Geometry       width: %1, height: %2";
constexpr const char virtualGeometry[] = "  available virt. Geometry width: %1, height: %2";
constexpr const char extensionLine[] = "File extension '%1' registered with application project type '%2'";
constexpr const char driveLine[] = "%1 %2 %3  %4  Free: %5 Total: %6 ";
constexpr const char portLine[] = "%1   %2";
constexpr const char defaultPrinterLine[] = "   %1    %2";
constexpr const char addressLine[] = "%1 , %2 , %3";
constexpr const char gatewayLine[] = "Gateway: %1, %2";
constexpr const char numberedGatewayLine[] = "Gateway %1: %2, %3";
constexpr const char dhcpServerLine[] = "DHCP server: %1, %2";
constexpr const char numberedDhcpServerLine[] = "DHCP server %1: %2, %3";
constexpr const char primaryWinsLine[] = "Primary WINS Server: %1, %2";
constexpr const char secondaryWinsLine[] = "Secondary WINS Server: %1, %2";
constexpr const char variableLine[] = "  %1=%2";
constexpr const char tooSmallTemplateLine[] = "Expand env var %1, buffer too small, would need %2";

} // namespace

const std::vector<FactRow> &factRows()
{
    static const std::vector<FactRow> rows = {
        windowsVersion.fixed("Version (major.minor.build): "),
        windowsVersion.fixedFailure("getVersionExFailed", "GetVersionExA(&osver) failed!"),
        windowsVersion.version("fromGetVersionEx", "From GetVersionEx: %1"),
        windowsVersion.version("fromRegistry", "From registry:     %1"),
        windowsVersion.text("name", "                   %1"),
        windowsVersion.text("lastServicePackInstalled", "Last service pack installed: %1"),

        installation.text("productId", "ProductId:              %1", serialNumber),
        installation.text("editionId", "EditionID:              %1"),
        installation.text("releaseId", "ReleaseId:              %1"),
        installation.text("displayVersion", "DisplayVersion:         %1"),
        installation.text("pathName", "PathName:               %1", path),
        installation.text("productName", "ProductName:            %1"),
        installation.text("registeredOwner", "RegisteredOwner:        %1", user),
        installation.text("registeredOrganization", "RegisteredOrganization: %1", organisation),
        installation.text("csdVersion", "CSDVersion:             %1"),
        installation.text("csdBuildNumber", "CSDBuildNumber:         %1"),

        wordSize.row("wordSize", "%1", 1, Type::Text, "", rarely, nothing, Plain, "This is a 64bit application."),

        internetExplorer.fixedFailure("openFailed", "<failed to open registry key '%1'", NoLineEnd),
        internetExplorer.version("version", "Version:           %1"),
        internetExplorer.version("updateVersion", "Update Version:    %1"),
        internetExplorer.text("kbNumber", "KBNumber:          %1"),
        internetExplorer.version("w2kVersion", "W2kVersion:        %1"),

        processors.text("processorArchitecture", "Processor architecture:       %1"),
        processors.number("numberOfProcessors", "Number of processors:       %1"),
        processors.list("activeProcessors", "Active processors:          %1", Indented),
        processors.text("processorType", "Processor type:             %1"),
        processors.number("processorRevision", "Processor revision:         %1"),
        processors.number("processorLevel", "Processor level:            %1"),
        processors.number("pageSize", "Page size:                  %1", "Byte"),
        processors.number64("minimumApplicationAddress", "Minimum Application Address %1"),
        processors.number64("maximumApplicationAddress", "Maximum Application Address %1"),
        processors.number("allocationGranularity", "Allocation Granularity:     %1", "Byte"),

        processor.number("index", "Processor #%1", "", Opens),
        processor.text("processorNameString", "ProcessorNameString:  %1"),
        processor.text("vendorIdentifier", "VendorIdentifier:     %1"),
        processor.text("identifier", "Identifier:           %1"),
        processor.text("mmxIdentifier", "MMXIdentifier:        %1"),
        processor.number("mhz", "MHZ:                  %1", "MHz"),
        processor.number("featureSet", "FeatureSet:           %1"),

        memory.row("memoryLoad", "MemoryLoad:            %1", 1, Type::Number, "%", everyMoment, nothing, Plain),
        memory.bytes("totalPhys", "TotalPhys:             %1"),
        memory.bytes("availPhys", "AvailPhys:             %1", everyMoment),
        memory.bytes("totalPageFile", "TotalPageFile:         %1"),
        memory.bytes("availPageFile", "AvailPageFile:         %1", everyMoment),
        memory.bytes("totalVirtual", "TotalVirtual:          %1"),
        memory.bytes("availVirtual", "AvailVirtual:          %1", everyMoment),

        names.text("netBiosName", "NetBios name:                 %1", host),
        names.text("physicalNetBiosName", "Physical NetBios name:        %1", host),
        names.text("dnsDomain", "DNS domain:           %1", host | organisation),
        names.text("physicalDnsDomain", "Physical DNS domain:   %1", host | organisation),
        names.text("dnsFullyQualified", "DNS fully qualified:          %1", host | organisation),
        names.text("physicalDnsFullyQualified", "Physical DNS fully qualified: %1", host | organisation),
        names.text("hostname", "hostname                      %1", host),
        names.text("physicalHostname", "Physical hostname             %1", host),

        userName.text("userName", "User name:                    %1", user),

        oem.fixedFailure("getVersionExFailed", "GetVersionExA(&osver) failed!"),
        oem.text("manufacturer", "Manufacturer:     %1"),
        oem.text("model", "Model:     %1"),

        firmware.date("biosReleaseDate", "BIOSReleaseDate:     %1"),
        firmware.text("biosVersion", "BIOSVersion:         %1"),
        firmware.text("systemManufacturer", "SystemManufacturer:  %1"),
        firmware.text("systemProductName", "SystemProductName:   %1"),
        firmware.number("informationSource", "InformationSource:   %1"),

        bios.list("systemBiosVersion", "SystemBiosVersion:     %1", Indented),
        bios.date("systemBiosDate", "SystemBIOSDate:        %1"),
        bios.list("videoBiosVersion", "VideoBiosVersion:      %1", Indented),
        bios.date("videoBiosDate", "VideoBIOSDate:         %1"),

        adapter.text("service", "### Service: %1", nothing, Opens),
        configuration.text("name", "%1", nothing, Opens | Anything),
        configuration.text("deviceDescription", "   Device Description: %1"),
        configuration.list("installedDisplayDrivers", "   Installed Display Drivers: %1", Spaced),
        configuration.text("adapterString", "   AdapterString: %1"),
        configuration.text("biosString", "   BiosString: %1"),
        configuration.text("chipType", "   ChipType:  %1"),
        configuration.text("dacType", "   DacType:  %1"),
        configuration.bytes("videoMemory", "   Video Memory: %1"),
        configuration.text("driverDescription", "   Driver Description: %1"),
        configuration.version("driverVersion", "   Driver Version: %1"),
        configuration.date("driverDate", "   Driver Date: %1"),
        configuration.text("providerName", "   Provider Name: %1"),
        configuration.text("releaseVersion", "   Release Version: %1"),
        configuration.list("openGlDriverName", "   OpenGL Driver Name: %1", Spaced),
        configuration.list("openGlDriverNameWoW", "   OpenGL Driver Name WoW: %1", Spaced),
        configuration.number("openGlVersion", "   OpenGL Version: %1"),
        configuration.number("openGlVersionWoW", "   OpenGL Version WoW: %1"),
        configuration.number("openGlFlags", "   OpenGL Flags: %1"),
        configuration.number("openGlFlagsWoW", "   OpenGL Flags WoW: %1"),

        deviceClass.text("name", "%1:", nothing, Opens | Anything),
        driver.text("driverDescription", "   Driver Description: %1"),
        driver.version("driverVersion", "   Driver Version:     %1"),
        driver.date("driverDate", "   Driver Date:        %1"),
        driver.text("providerName", "   Provider Name:      %1"),
        driver.text("matchingDeviceId", "   Matching Device ID: %1"),
        driver.text("infPath", "   InfPath:            %1"),
        driver.text("infSection", "   InfSection:         %1"),
        driver.text("infSectionExt", "   InfSectionExt:      %1"),

        timeZone.number("activeTimeBias", "ActiveTimeBias: %1", "min"),
        timeZone.number("bias", "Bias:           %1", "min"),
        timeZone.number("daylightBias", "DaylightBias:   %1", "min"),
        timeZone.number("standardBias", "StandardBias:   %1", "min"),
        timeZone.text("daylightName", "DaylightName:   %1"),
        timeZone.text("standardName", "StandardName:   %1"),

        application.text("productName", "ProductName: %1", nothing, Opens),
        application.version("version", "Version: %1"),
        application.number("advertiseFlags", "AdvertiseFlags: %1"),
        application.number("assignment", "Assignment: %1"),
        application.number("deploymentFlags", "DeploymentFlags: %1"),
        application.number("instanceType", "InstanceType: %1"),
        application.number("language", "Language: %1"),
        application.text("packageCode", "PackageCode: %1"),
        extension.text("extension", extensionLine, nothing, Opens),
        extension.text("projectType", extensionLine, nothing, Opens, 2),
        openCommand.text("projectType", "Open command for '%1':", nothing, Opens),
        openCommand.text("command", "%1", path, NextLine),

        tool.text("productName", "ProductName: %1", nothing, Opens),
        tool.version("version", "Version: %1"),
        tool.number("advertiseFlags", "AdvertiseFlags: %1"),
        tool.number("assignment", "Assignment: %1"),
        tool.number("deploymentFlags", "DeploymentFlags: %1"),
        tool.number("instanceType", "InstanceType: %1"),
        tool.number("language", "Language: %1"),
        tool.text("packageCode", "PackageCode: %1"),

        winSxS.failure("bufferTooSmall", "buffer for sysDir too small, need %1"),
        winSxS.failure("directoryMissing", "Directory '%1' does not exist.", NoLineEnd),
        assembly.text("name", "%1", nothing, Opens | Anything),

        someVariables.failure("templateTooLong", tooSmallTemplateLine),
        someVariables.failure("neededSize", tooSmallTemplateLine, Plain, 2),
        someVariables.failure("templateFailed", "Expand env var %1 failed!"),
        someVariables.text("os", "OS       = %1"),
        someVariables.text("path", "PATH     = %1", path),
        someVariables.text("homepath", "HOMEPATH = %1", user | path),
        someVariables.text("temp", "TEMP     = %1", user | path),
        someVariables.text("processorIdentifier", "PROCESSOR_IDENTIFIER = %1"),

        disks.failure("getLogicalDrivesFailed", "Failed GetLogicalDrives(), error = %1", NoLineEnd),
        drive.text("root", driveLine, nothing, Opens),
        drive.text("type", driveLine, nothing, Opens, 2),
        drive.text("fileSystem", driveLine, nothing, Opens, 3),
        drive.text("label", driveLine, driveLabel | networkDrive, Opens, 4),
        drive.row("free", driveLine, 5, Type::Bytes, "Byte", Changes::Slowly, nothing, Opens),
        drive.row("total", driveLine, 6, Type::Bytes, "Byte", rarely, nothing, Opens),

        device.text("name", "%1", serialNumber, Opens | Anything),
        instance.text("class", "   Class:               %1"),
        instance.text("deviceDescription", "   Device Description:  %1"),
        instance.text("friendlyName", "   Friendly Name:       %1", serialNumber),
        instance.text("locationInformation", "   LocationInformation: %1"),
        instance.text("hardwareId", "   Hardware ID:         %1", serialNumber),
        instance.text("service", "   Service:             %1"),

        port.text("name", portLine, nothing, Opens | NotEmpty),
        port.text("port", portLine, nothing, Opens | NotEmpty, 2),

        quota.bytes("usedBytes", "Used [bytes]:           %1", everyMoment),
        quota.bytes("allowedBytes", "Allowed [bytes]:        %1"),

        directories.failure("systemDirectoryTooLong", "buffer for sysDir too small, need %1"),
        directories.text("systemDirectory", "System directory:      %1", path),
        directories.failure("wow64DirectoryTooLong", "buffer for wow64Dir too small, need %1"),
        directories.text("systemWow64Directory", "System Wow64 directory:  %1", path),

        folders.text("csidlPersonal", "CSIDL_PERSONAL    %1", user | path),
        folders.text("csidlPrograms", "CSIDL_PROGRAMS    %1", user | path),
        folders.text("csidlProgramFiles", "CSIDL_PROGRAM_FILES    %1", path),
        folders.text("csidlLocalAppdata", "CSIDL_LOCAL_APPDATA    %1", user | path),
        folders.text("csidlAppdata", "CSIDL_APPDATA    %1", user | path),

        standardBonjour.text("standardBonjour", "Standard Bonjour: %1"),
        standardBonjour.failure("versionFailed", "DNS-SD version:  failed to get version, error = %1"),
        standardBonjour.version("dnsSdVersion", "DNS-SD version: %1"),
        velkorBonjour.text("velkorDnsSd", "velkor DNS-SD: %1"),
        velkorBonjour.failure("versionFailed", "DNS-SD version:  failed to get version, error = %1"),
        velkorBonjour.version("dnsSdVersion", "DNS-SD version: %1"),

        refCount.row("failed", "RefCount for vkdnssd.dll: %1", 1, Type::Text, "", rarely, nothing, Failure,
                     "failed to get refCount!"),
        refCount.number("refCount", "RefCount for vkdnssd.dll: %1"),

        module.text("path", "%1", path, Opens | Anything),

        dateTime.date("localDateAndTime", "Local Date and Time: %1", everyMoment),
        dateTime.date("utcDateAndTime", "UTC   Date and Time: %1", everyMoment),
        dateTime.number("activeBias", "ActiveBias: %1", "min"),

        qtGlobal.version("qtVersionThisObjectWasLinkedAgainst", "Qt version this object was linked against: %1"),
        qtGlobal.version("qtVersionCurrentlyUsedForExecution", "Qt version currently used for execution:   %1"),
        qtGlobal.text("endianessDetectedByQt", "Endianess detected by Qt:                  %1"),
        qtGlobal.number("pointerSizeQSysInfoWordsize", "Pointer size QSysInfo::Wordsize   %1", "bit"),
        qtGlobal.number("pointerSizeQtPointerSize", "Pointer size QT_POINTER_SIZE      %1", "Byte"),

        coreApplication.version("applicationVersion", "Application Version:  %1"),
        coreApplication.text("applicationName", "Application Name:     %1"),
        coreApplication.text("applicationDirPath", "Application DirPath:  %1", path),
        coreApplication.text("applicationFilePath", "Application FilePath: %1", path),
        coreApplication.number64("applicationPid", "Application PID:      %1", everyMoment),
        coreApplication.text("organizationDomain", "Organization Domain:  %1"),
        coreApplication.text("organizationName", "Organization Name:    %1"),
        coreApplication.list("libraryPaths", "Library Paths:        %1", Indented, path),

        locale.text("country", "Country:          %1"),
        locale.text("language", "Language:         %1"),
        locale.text("measuringSystem", "Measuring System: %1"),

        screen.number("number", "#%1", "", Opens),
        screen.text("name", "  Name: %1"),
        screen.text("manufacturer", "  Manufacturer: %1"),
        screen.real("physicalDpiX", physicalDpi, "dpi", 1),
        screen.real("physicalDpiY", physicalDpi, "dpi", 2),
        screen.real("logicalDpiX", logicalDpi, "dpi", 1),
        screen.real("logicalDpiY", logicalDpi, "dpi", 2),
        screen.real("devicePixelRatio", "  devicePixelRatio: %1", "", 1),
        screen.real("refreshRate", "  RefreshRate: %1", "Hz", 1),
        screen.real("physicalSizeWidthMm", physicalSize, "mm", 1),
        screen.real("physicalSizeHeightMm", physicalSize, "mm", 2),
        screen.real("physicalSizeWidthInch", physicalSize, "inch", 3),
        screen.real("physicalSizeHeightInch", physicalSize, "inch", 4),
        screen.real("diagonalMm", diagonal, "mm", 1),
        screen.real("diagonalInch", diagonal, "inch", 2),
        screen.number("sizeWidth", pixelSize, "px", Plain, 1),
        screen.number("sizeHeight", pixelSize, "px", Plain, 2),
        screen.number("colorDepth", "  Color depth: %1", "bit"),
        screen.number("orientation", "  Orientation: %1"),
        screen.number("nativeOrientation", "  Native Orientation: %1"),
        screen.number("primaryOrientation", "  Primary Orientation: %1"),

        desktop.text("desktopFileName", "Desktop file name: %1", path),
        desktop.number("numberOfScreens", "Number of screens:  %1"),
        desktop.text("primaryScreen", "Primary screen:     %1"),
        layout.number("number", primaryScreenLine, "", Opens),
        layout.row("primary", primaryScreenLine, 2, Type::Text, "", rarely, nothing, Opens, "(primary screen)"),
        layout.number("number", "Screen #%1:", "", Opens),
        layout.number("screenGeometryWidth", geometry, "px", Plain, 1),
        layout.number("screenGeometryHeight", geometry, "px", Plain, 2),
        layout.number("availableGeometryWidth", availableGeometry, "px", Plain, 1),
        layout.number("availableGeometryHeight", availableGeometry, "px", Plain, 2),
        layout.number("availableVirtGeometryWidth", virtualGeometry, "px", Plain, 1),
        layout.number("availableVirtGeometryHeight", virtualGeometry, "px", Plain, 2),
        layout.list("virtualSiblings", "  virtual siblings: %1", Ends),

        services.fixed("HomeLocation"),
        services.text("desktop", "Desktop:                   %1", user | path),
        services.text("desktopDisplayName", "Desktop [displayName]      %1"),
        services.text("documents", "Documents:                 %1", user | path),
        services.text("documentsDisplayName", "Documents [displayName]    %1"),
        services.text("home", "Home:                      %1", user | path),
        services.text("homeDisplayName", "Home [displayName]         %1"),
        services.text("data", "Data:                      %1", user | path),
        services.text("dataDisplayName", "Data [displayName]         %1"),
        services.text("temp", "Temp:                      %1", user | path),
        services.text("tempDisplayName", "Temp [displayName]         %1"),
        services.text("applications", "Applications:              %1", user | path),
        services.text("applicationsDisplayName", "Applications [displayName] %1"),
        services.text("fonts", "Fonts:                     %1", path),
        services.text("fontsDisplayName", "Fonts [displayName]        %1"),

        accessibility.number("isActive", "QAccessible::isActive() = %1"),

        printers.fixed("Available printers:"),
        printers.fixed("    <None>"),
        printer.text("name", defaultPrinterLine, printerName, Opens | NotEmpty),
        printer.row("default", defaultPrinterLine, 2, Type::Text, "", rarely, nothing, Opens | NotEmpty, "[default printer]"),
        printer.text("name", "   %1", printerName, Opens),

        hostInfo.text("localHostName", "Local host name:   %1", host),
        hostInfo.text("localDomainName", "Local domain name: %1", host | organisation),

        interface.text("name", "%1", nothing, Opens | Anything),
        interface.row("loopback", "%1", 1, Type::Text, "", rarely, nothing, Plain, "Loopback interface"),
        interface.text("hardwareAddress", "Hardware address: %1", address | serialNumber),
        interface.text("status", "Status: %1"),
        interface.fixed("Addresses: IP , netmask , broadcast"),
        interface.fixed("<no address>"),
        entry.text("ip", addressLine, address, Opens | NotEmpty),
        entry.text("netmask", addressLine, nothing, Opens | NotEmpty, 2),
        entry.text("broadcast", addressLine, address, Opens | NotEmpty, 3),
        gateway.text("ip", gatewayLine, address, Opens),
        gateway.text("mask", gatewayLine, nothing, Opens, 2),
        gateway.number("number", numberedGatewayLine, "", Opens),
        gateway.text("ip", numberedGatewayLine, address, Opens, 2),
        gateway.text("mask", numberedGatewayLine, nothing, Opens, 3),
        interface.number("dhcpEnabled", "DHCP enabled:  %1"),
        dhcpServer.text("ip", dhcpServerLine, address, Opens),
        dhcpServer.text("mask", dhcpServerLine, nothing, Opens, 2),
        dhcpServer.number("number", numberedDhcpServerLine, "", Opens),
        dhcpServer.text("ip", numberedDhcpServerLine, address, Opens, 2),
        dhcpServer.text("mask", numberedDhcpServerLine, nothing, Opens, 3),
        interface.date("leaseObtained", "Lease obtained: %1", everyMoment),
        interface.date("leaseExpires", "Lease expires:  %1", everyMoment),
        interface.number("haveWins", "Have WINS: %1"),
        interface.text("primaryWinsServer", primaryWinsLine, address),
        interface.text("primaryWinsServerMask", primaryWinsLine, nothing, Plain, 2),
        interface.text("secondaryWinsServer", secondaryWinsLine, address),
        interface.text("secondaryWinsServerMask", secondaryWinsLine, nothing, Plain, 2),

        variable.text("name", variableLine, nothing, Opens | NotEmpty),
        variable.text("value", variableLine, secret | user | path, Opens | NotEmpty, 2),

        openGL.number("hasOpenGl", "hasOpenGL         %1"),
        openGL.number("hasOpenGlOverlays", "hasOpenGLOverlays %1"),
        openGL.text("openGlVersionFlags", "openGLVersionFlags %1"),
        openGL.fixed("#### Info about the OpenGL driver DLL's from registry ###"),
        openGLDriver.text("name", portLine, nothing, Opens | NotEmpty),
        openGLDriver.text("dll", portLine, path, Opens | NotEmpty, 2),
        openGL.fixed("#### Direct OpenGL calls (using QGLWidget with default QGLFormat) ####"),
        openGL.text("glVersion", "glGetString(GL_VERSION)  = %1"),
        openGL.text("glVendor", "glGetString(GL_VENDOR)   = %1"),
        openGL.text("glRenderer", "glGetString(GL_RENDERER) = %1"),
        openGL.list("glExtensions", "glGetString(GL_EXTENSIONS) = %1", Ends),
    };
    return rows;
}

const std::vector<ItemRow> &itemRows()
{
    static constexpr const char classRule[] = "----------------------------\n";
    static constexpr const char interfaceRule[] = "_______________________________________________________\n";
    static const std::vector<ItemRow> rows = {
        {"processorRegistryInfo", "processor", "processors", "", "index", "", "", "", ""},
        {"videoInfoFromRegistry", "adapter", "adapters", "", "service", "", "", "", ""},
        {"videoInfoFromRegistry", "configuration", "configurations", "adapter", "name", "", "", "", ""},
        {"driverInfoFromRegistry", "deviceClass", "deviceClasses", "", "name", "", "", "", classRule},
        {"driverInfoFromRegistry", "driver", "drivers", "deviceClass", "matchingDeviceId", "driverDescription", "", "\n", ""},
        {"installedApplicationsFromRegistry", "product", "products", "", "productName", "", "", "", "\n"},
        {"installedApplicationsFromRegistry", "fileExtension", "fileExtensions", "product", "extension", "", "", "", ""},
        {"installedApplicationsFromRegistry", "openCommand", "openCommands", "product", "projectType", "", "", "", ""},
        {"installedVisualBasicApplications", "product", "products", "", "productName", "", "", "", "\n"},
        {"winSxSDirectoryEntries", "assembly", "assemblies", "", "name", "", "", "", ""},
        {"diskInformation", "drive", "drives", "", "root", "", "", "", ""},
        {"diskDevicesFromRegistry", "device", "devices", "", "name", "", "", "", "\n"},
        {"diskDevicesFromRegistry", "instance", "instances", "device", "friendlyName", "hardwareId", "", "", "\n"},
        {"portsFromRegistry", "port", "ports", "", "name", "", "", "", ""},
        {"loadedModules", "module", "modules", "", "path", "", "", "", ""},
        {"qtScreens", "screen", "screens", "", "number", "", "", "", ""},
        {"qtDesktop", "screen", "screens", "", "number", "", "", "", ""},
        {"qtPrinterInfo", "printer", "printers", "", "name", "", "", "", ""},
        {"qtNetworkInterfaces", "interface", "interfaces", "", "hardwareAddress", "name", interfaceRule, "", ""},
        {"qtNetworkInterfaces", "address", "addresses", "interface", "ip", "", "", "", ""},
        {"qtNetworkInterfaces", "gateway", "gateways", "interface", "ip", "", "", "", ""},
        {"qtNetworkInterfaces", "dhcpServer", "dhcpServers", "interface", "ip", "", "", "", ""},
        {"qtSystemEnvironment", "variable", "variables", "", "name", "", "", "", ""},
        {"GetOpenGLInfo", "openGLDriver", "openGLDrivers", "", "name", "", "", "", ""},
    };
    return rows;
}

const std::vector<SectionRow> &sectionRows()
{
    constexpr Half windows = Half::Windows;
    constexpr Half qt = Half::Qt;
    static const std::vector<SectionRow> rows = {
        {"windowsVersion", "Windows version: \n", windows, false, "windowsVersion"},
        {"windowsVersionFromRegistry", "Windows version information from Registry\n", windows, true,
         "windowsVersionFromRegistry"},
        {"wordSize", "", windows, true, "wordSize"},
        {"internetExplorerInfo", "Internet Explorer information from Registry\n", windows, true, "internetExplorerInfo"},
        {"processorInfo", "Processor information: \n", windows, false, "processorInfo"},
        {"processorRegistryInfo", "Central Processor information from Registry\n", windows, true, "processorRegistryInfo"},
        {"memoryInfo", "Memory Information:\n", windows, true, "memoryInfo"},
        {"computerNames", "Computer name\n", windows, false, "computerNames"},
        {"userName", "", windows, true, "userName"},
        {"oemInfoFromRegistry", "OEM Information from Registry\n", windows, true, "oemInfoFromRegistry"},
        {"systemInformationFromRegistry", "SystemInformation from Registry\n", windows, true,
         "systemInformationFromRegistry"},
        {"biosInfoFromRegistry", "BIOS information from Registry\n", windows, true, "biosInfoFromRegistry"},
        {"videoInfoFromRegistry", ">>> Info about video from registry:\n\n", windows, true, "videoInfoFromRegistry"},
        {"driverInfoFromRegistry", ">>> Info about drivers from registry:\n\n", windows, true, "driverInfoFromRegistry"},
        {"timeZoneInfoFromRegistry", "Time Zone information from Registry\n", windows, true, "timeZoneInfoFromRegistry"},
        {"installedApplicationsFromRegistry", ">>> Info about installed Velkor applications from registry:\n\n", windows,
         false, "installedApplicationsFromRegistry"},
        {"installedVisualBasicApplications", ">>> Info about installed Velkor Visual Basic applications from registry:\n\n",
         windows, true, "installedVisualBasicApplications"},
        {"winSxSDirectoryEntries", "WinSxS directory entries\n", windows, true, "winSxSDirectoryEntries"},
        {"someEnvironmentVariables", "Some environment variables:\n", windows, true, "someEnvironmentVariables"},
        {"diskInformation", "Disk information: \n", windows, true, "diskInformation"},
        {"diskDevicesFromRegistry:FDC", ">>> Info about 'FDC' disk devices from registry:\n", windows, false,
         "diskDevicesFromRegistry"},
        {"diskDevicesFromRegistry:IDE", ">>> Info about 'IDE' disk devices from registry:\n", windows, false,
         "diskDevicesFromRegistry"},
        {"diskDevicesFromRegistry:SCSI", ">>> Info about 'SCSI' disk devices from registry:\n", windows, false,
         "diskDevicesFromRegistry"},
        {"diskDevicesFromRegistry:USBSTOR", ">>> Info about 'USBSTOR' disk devices from registry:\n", windows, true,
         "diskDevicesFromRegistry"},
        {"portsFromRegistry:PARALLEL PORTS", ">> Info about 'PARALLEL PORTS' ports from registry:\n", windows, false,
         "portsFromRegistry"},
        {"portsFromRegistry:SERIALCOMM", ">> Info about 'SERIALCOMM' ports from registry:\n", windows, true,
         "portsFromRegistry"},
        {"registryQuota", "Registry quota:\n", windows, true, "registryQuota"},
        {"windowsSystemDirectories", "Windows system directories\n", windows, false, "windowsSystemDirectories"},
        {"specialFolders", "Special Folders: \n", windows, true, "specialFolders"},
        {"checkStandardBonjour", "", windows, true, "checkStandardBonjour"},
        {"checkVelkorBonjour", "", windows, false, "checkVelkorBonjour"},
        {"refCountSharedDll", "", windows, true, "refCountSharedDll"},
        {"loadedModules", "Loaded modules/DLLs:\n", windows, true, "loadedModules"},
        {"qtDateTime", "", qt, true, "qtDateTime"},
        {"qtGlobal", "Qt Global\n", qt, true, "qtGlobal"},
        {"qtCoreApplication", "QCoreApplication:\n", qt, true, "qtCoreApplication"},
        {"qtLocale", "QLocale\n", qt, true, "qtLocale"},
        {"qtScreens", "QScreen (hardware)\n", qt, true, "qtScreens"},
        {"qtDesktop", "QScreen (Desktop)\n", qt, true, "qtDesktop"},
        {"qtDesktopServices", "QDesktopServices\n", qt, true, "qtDesktopServices"},
        {"qtAccessibility", "Qt Accessibility\n", qt, true, "qtAccessibility"},
        {"qtPrinterInfo", "QPrinterInfo\n", qt, true, "qtPrinterInfo"},
        {"qtHostInfo", "QHostInfo\n", qt, true, "qtHostInfo"},
        {"qtNetworkInterfaces", "Network Interfaces Info\n", qt, true, "qtNetworkInterfaces"},
        {"qtSystemEnvironment", "System environemnt (QProcess::systemEnvironment()):\n", qt, true, "qtSystemEnvironment"},
        {"GetOpenGLInfo", "#### QGLFormat #### \n", Half::OpenGL, true, "GetOpenGLInfo"},
    };
    return rows;
}

QByteArray separatorLine()
{
    return QByteArray(72, '-');
}

QByteArray halfHeading(Half half)
{
    switch (half) {
    case Half::Windows:
        return QByteArrayLiteral("############ Windows specific section ###########");
    case Half::Qt:
        return QByteArrayLiteral("###### System informations retrieved using Qt #######");
    case Half::OpenGL:
        break;
    }
    return {};
}

QString FactRow::label() const
{
    const QString text = QString::fromUtf8(line);
    const QString placeholder = QLatin1Char('%') + QString::number(place);
    const int end = place > 0 ? text.indexOf(placeholder) : text.size();
    if (place <= 1)
        return text.left(end);
    const int previous = text.indexOf(QLatin1Char('%') + QString::number(place - 1)) + 2;
    return text.mid(previous, end - previous);
}

} // namespace Reports
} // namespace velkor
