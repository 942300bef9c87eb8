"""Writes outline.tsv and facts.tsv of the example report.

It splits the report at its headings, as a reader does who has the list of sections and the list of facts before him.
The items are of the sections below; identities are those that the description of comparisons names.
Usage: python3 derive_report.py, in this folder.
"""
import collections
import pathlib
import re

HERE = pathlib.Path(__file__).resolve().parent
LINES = (HERE.parents[2] / "docs/example-report.txt").read_text(encoding="utf-8").split("\n")
SEPARATOR = "-" * 72

# First lines of the sections, in order.
HEADINGS = [
    ("windowsVersion", "Windows version: "),
    ("windowsVersionFromRegistry", "Windows version information from Registry"),
    ("wordSize", "This is a 64bit application."),
    ("internetExplorerInfo", "Internet Explorer information from Registry"),
    ("processorInfo", "Processor information: "),
    ("processorRegistryInfo", "Central Processor information from Registry"),
    ("memoryInfo", "Memory Information:"),
    ("computerNames", "Computer name"),
    ("userName", "User name:                    tester"),
    ("oemInfoFromRegistry", "OEM Information from Registry"),
    ("systemInformationFromRegistry", "SystemInformation from Registry"),
    ("biosInfoFromRegistry", "BIOS information from Registry"),
    ("videoInfoFromRegistry", ">>> Info about video from registry:"),
    ("driverInfoFromRegistry", ">>> Info about drivers from registry:"),
    ("timeZoneInfoFromRegistry", "Time Zone information from Registry"),
    ("installedApplicationsFromRegistry", ">>> Info about installed Velkor applications from registry:"),
    ("installedVisualBasicApplications", ">>> Info about installed Velkor Visual Basic applications from registry:"),
    ("winSxSDirectoryEntries", "WinSxS directory entries"),
    ("someEnvironmentVariables", "Some environment variables:"),
    ("diskInformation", "Disk information: "),
    ("diskDevicesFromRegistry:FDC", ">>> Info about 'FDC' disk devices from registry:"),
    ("diskDevicesFromRegistry:IDE", ">>> Info about 'IDE' disk devices from registry:"),
    ("diskDevicesFromRegistry:SCSI", ">>> Info about 'SCSI' disk devices from registry:"),
    ("diskDevicesFromRegistry:USBSTOR", ">>> Info about 'USBSTOR' disk devices from registry:"),
    ("portsFromRegistry:PARALLEL PORTS", ">> Info about 'PARALLEL PORTS' ports from registry:"),
    ("portsFromRegistry:SERIALCOMM", ">> Info about 'SERIALCOMM' ports from registry:"),
    ("registryQuota", "Registry quota:"),
    ("windowsSystemDirectories", "Windows system directories"),
    ("specialFolders", "Special Folders: "),
    ("checkStandardBonjour", "Standard Bonjour: not installed."),
    ("checkVelkorBonjour", "velkor DNS-SD: not installed."),
    ("refCountSharedDll", "RefCount for vkdnssd.dll: 2"),
    ("loadedModules", "Loaded modules/DLLs:"),
    ("qtDateTime", "Local Date and Time: 21.11.2026 13:17:53"),
    ("qtGlobal", "Qt Global"),
    ("qtCoreApplication", "QCoreApplication:"),
    ("qtLocale", "QLocale"),
    ("qtScreens", "QScreen (hardware)"),
    ("qtDesktop", "QScreen (Desktop)"),
    ("qtDesktopServices", "QDesktopServices"),
    ("qtAccessibility", "Qt Accessibility"),
    ("qtPrinterInfo", "QPrinterInfo"),
    ("qtHostInfo", "QHostInfo"),
    ("qtNetworkInterfaces", "Network Interfaces Info"),
    ("qtSystemEnvironment", "System environemnt (QProcess::systemEnvironment()):"),
    ("GetOpenGLInfo", "#### QGLFormat #### "),
]

# Section, and of each fact its key and what precedes the value in its line.
FACTS = {
    "windowsVersion": [
        ("fromGetVersionEx", "From GetVersionEx: "),
        ("fromRegistry", "From registry:     "),
        ("name", " " * 19),
        ("lastServicePackInstalled", "Last service pack installed: "),
    ],
    "windowsVersionFromRegistry": [
        ("productId", "ProductId:              "),
        ("productName", "ProductName:            "),
        ("registeredOwner", "RegisteredOwner:        "),
        ("registeredOrganization", "RegisteredOrganization: "),
        ("csdVersion", "CSDVersion:             "),
    ],
    "internetExplorerInfo": [("version", "Version:           "), ("w2kVersion", "W2kVersion:        ")],
    "processorInfo": [
        ("processorArchitecture", "Processor architecture:       "),
        ("numberOfProcessors", "Number of processors:       "),
        ("activeProcessors", "Active processors:          "),
        ("processorType", "Processor type:             "),
        ("processorRevision", "Processor revision:         "),
        ("processorLevel", "Processor level:            "),
        ("pageSize", "Page size:                  "),
        ("minimumApplicationAddress", "Minimum Application Address "),
        ("maximumApplicationAddress", "Maximum Application Address "),
        ("allocationGranularity", "Allocation Granularity:     "),
    ],
    "memoryInfo": [
        ("memoryLoad", "MemoryLoad:            "),
        ("totalPhys", "TotalPhys:             "),
        ("availPhys", "AvailPhys:             "),
        ("totalPageFile", "TotalPageFile:         "),
        ("availPageFile", "AvailPageFile:         "),
        ("totalVirtual", "TotalVirtual:          "),
        ("availVirtual", "AvailVirtual:          "),
    ],
    "computerNames": [
        ("netBiosName", "NetBios name:                 "),
        ("physicalNetBiosName", "Physical NetBios name:        "),
        ("dnsDomain", "DNS domain:           "),
        ("physicalDnsDomain", "Physical DNS domain:   "),
        ("dnsFullyQualified", "DNS fully qualified:          "),
        ("physicalDnsFullyQualified", "Physical DNS fully qualified: "),
        ("hostname", "hostname                      "),
        ("physicalHostname", "Physical hostname             "),
    ],
    "userName": [("userName", "User name:                    ")],
    "oemInfoFromRegistry": [("manufacturer", "Manufacturer:     "), ("model", "Model:     ")],
    "timeZoneInfoFromRegistry": [("standardName", "StandardName:   ")],
    "someEnvironmentVariables": [
        ("os", "OS       = "),
        ("path", "PATH     = "),
        ("homepath", "HOMEPATH = "),
        ("temp", "TEMP     = "),
        ("processorIdentifier", "PROCESSOR_IDENTIFIER = "),
    ],
    "registryQuota": [("usedBytes", "Used [bytes]:           "), ("allowedBytes", "Allowed [bytes]:        ")],
    "windowsSystemDirectories": [
        ("systemDirectory", "System directory:      "),
        ("systemWow64Directory", "System Wow64 directory:  "),
    ],
    "refCountSharedDll": [("refCount", "RefCount for vkdnssd.dll: ")],
    "qtDateTime": [
        ("localDateAndTime", "Local Date and Time: "),
        ("utcDateAndTime", "UTC   Date and Time: "),
        ("activeBias", "ActiveBias: "),
    ],
    "qtCoreApplication": [
        ("applicationVersion", "Application Version:  "),
        ("applicationName", "Application Name:     "),
        ("applicationDirPath", "Application DirPath:  "),
        ("applicationFilePath", "Application FilePath: "),
        ("applicationPid", "Application PID:      "),
        ("organizationDomain", "Organization Domain:  "),
        ("organizationName", "Organization Name:    "),
        ("libraryPaths", "Library Paths:        "),
    ],
    "qtLocale": [
        ("country", "Country:          "),
        ("language", "Language:         "),
        ("measuringSystem", "Measuring System: "),
    ],
    "qtHostInfo": [("localHostName", "Local host name:   "), ("localDomainName", "Local domain name: ")],
    "qtAccessibility": [("isActive", "QAccessible::isActive() = ")],
}


def sections():
    """{name: its lines}, in order."""
    starts, at = [], 0
    for name, first in HEADINGS:
        at = LINES.index(first, at)
        starts.append((name, at))
        at += 1
    result = collections.OrderedDict()
    for (name, begin), (_, end) in zip(starts, starts[1:] + [("", len(LINES))]):
        lines = LINES[begin:end]
        if SEPARATOR in lines:
            lines = lines[:lines.index(SEPARATOR)]
        result[name] = lines
    return result


def numbered(names):
    """Of equal names the second one is "name #2"."""
    seen, result = collections.Counter(), []
    for name in names:
        seen[name.casefold()] += 1
        result.append(name if seen[name.casefold()] == 1 else "%s #%d" % (name, seen[name.casefold()]))
    return result


def items(section, lines):
    """[(level, name)]"""
    if section == "processorRegistryInfo":
        return [(3, "processor " + line[11:]) for line in lines if line.startswith("Processor #")]
    if section == "driverInfoFromRegistry":
        result = []
        for block in "\n".join(lines).split("-" * 28 + "\n")[1:]:
            name, _, rest = block.partition(":\n")
            if not name.strip():
                continue
            result.append((3, "deviceClass " + name))
            drivers = []
            for driver in re.split(r"\n\n", rest.rstrip("\n")):
                if driver.strip():
                    found = re.search("Matching Device ID: (.*)", driver)
                    drivers.append("driver " + found.group(1) if found else "driver")
            result += [(4, driver) for driver in numbered(drivers)]
        return result
    if section == "winSxSDirectoryEntries":
        return [(3, "assembly " + line) for line in lines[1:]]
    if section == "diskInformation":
        return [(3, "drive " + line[0]) for line in lines[1:]]
    if section == "loadedModules":
        return [(3, "module " + line.rpartition("\\")[2].lower()) for line in lines[1:]]
    if section == "qtSystemEnvironment":
        return [(3, "variable " + line[2:].partition("=")[0]) for line in lines[1:]]
    return []


def main():
    rows = ["#LEVEL\tNAME"]
    for name, lines in sections().items():
        if name == "windowsVersion":
            rows.append("1\tWindows")
        elif name == "qtDateTime":
            rows.append("1\tQt")
        elif name == "GetOpenGLInfo":
            rows.append("1\tOpenGL")
        rows.append("2\t" + name)
        rows += ["%d\t%s" % item for item in items(name, lines)]
    (HERE / "outline.tsv").write_text("\n".join(rows) + "\n", encoding="utf-8", newline="\n")

    rows = ["#SECTION\tKEY\tVALUE"]
    for name, lines in sections().items():
        for key, label in FACTS.get(name, []):
            at = next(index for index, line in enumerate(lines) if line.startswith(label) or line == label.rstrip())
            value = lines[at][len(label):].strip(" ")
            if key == "activeProcessors":
                more = lines[at + 1:]
                while more and more[0].startswith(" " * 28):
                    value += "\\u{a}" + more.pop(0).strip(" ")
            rows.append("%s\t%s\t%s" % (name, key, value))
    (HERE / "facts.tsv").write_text("\n".join(rows) + "\n", encoding="utf-8", newline="\n")


if __name__ == "__main__":
    main()
