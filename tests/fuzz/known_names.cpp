#include "known_names.h"

using machine::RegistryRoot;

const int codePages[5] = {1252, 1250, 1251, 932, 65001};
const int specialFolderNumbers[5] = {0x05, 0x02, 0x26, 0x1c, 0x1a};
const char *const environmentNames[5] = {"OS", "PATH", "HOMEPATH", "TEMP", "PROCESSOR_IDENTIFIER"};
const char *const libraryNames[2] = {"dnssd.dll", "vkdnssd.dll"};

namespace {

/// The name whose UTF-16 bytes are these.
QString nameOfBytes(const QByteArray &bytes)
{
    QString name;
    for (int i = 0; i + 1 < bytes.size(); i += 2)
        name += QChar(uchar(bytes.at(i)) | uchar(bytes.at(i + 1)) << 8);
    return name;
}

/// The numbers of the values from \a first to \a last.
std::vector<int> range(const char *first, const char *last)
{
    std::vector<int> numbers;
    for (int i = knownValues().indexOf(QString::fromLatin1(first)); i <= knownValues().indexOf(QString::fromLatin1(last)); ++i)
        numbers.push_back(i);
    return numbers;
}

std::vector<int> operator+(std::vector<int> left, const std::vector<int> &right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

std::vector<KnownKey> makeKnownKeys()
{
    const auto windows = range("CurrentMajorVersionNumber", "CSDBuildNumber");
    const auto bios = range("SystemBiosVersion", "VideoBIOSDate");
    const auto processor = range("ProcessorNameString", "FeatureSet");
    const auto service = range("Service", "Service");
    const auto adapter = range("Device Description", "OpenGLFlagsWoW") + service;
    const auto deviceClass = range("Class", "Class");
    const auto properties = range("DeviceType", "DeviceCharacteristics");
    const auto driver = range("DriverDesc", "ProviderName") + range("MatchingDeviceId", "InfSectionExt") + properties + deviceClass;
    const auto disk = range("DeviceDesc", "HardwareID") + deviceClass + service;
    const auto port = range("C:\\Windows\\system32\\vkdnssd.dll", "\\Device\\Serial0");
    const auto product = range("AdvertiseFlags", "PackageCode") + range("ProductName", "ProductName") + range("Version", "Version");
    const auto nameless = range("", "");
    const struct
    {
        RegistryRoot root;
        const char *path;
        std::vector<int> values;
    } rows[] = {
        {RegistryRoot::LocalMachine, "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion", windows},
        {RegistryRoot::LocalMachine, "SOFTWARE\\Microsoft\\Internet Explorer", range("Version", "Build")},
        {RegistryRoot::LocalMachine, "Hardware\\Description\\System", bios},
        {RegistryRoot::LocalMachine, "Hardware\\Description\\System\\CentralProcessor", processor},
        {RegistryRoot::LocalMachine, "Hardware\\Description\\System\\CentralProcessor\\0", processor},
        {RegistryRoot::LocalMachine, "Hardware\\Description\\System\\CentralProcessor\\1", processor},
        {RegistryRoot::LocalMachine, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation", range("Manufacturer", "Model")},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\SystemInformation", range("BIOSReleaseDate", "InformationSource")},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\TimeZoneInformation", range("ActiveTimeBias", "StandardName")},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\Video", adapter},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\Video\\{A}", adapter},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\Video\\{A}\\0000", adapter},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\Video\\{A}\\Video", service},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\Class", driver},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\Class\\{A}", driver},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\Class\\{A}\\0000", driver},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\Class\\{A}\\Properties", properties},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Control\\Class\\{A}\\?????", properties},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Enum\\FDC", disk},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Enum\\IDE", disk},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Enum\\SCSI", disk},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Enum\\USBSTOR", disk},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Enum\\USBSTOR\\Disk", disk},
        {RegistryRoot::LocalMachine, "SYSTEM\\CurrentControlSet\\Enum\\USBSTOR\\Disk\\1", disk},
        {RegistryRoot::LocalMachine, "HARDWARE\\DEVICEMAP\\PARALLEL PORTS", port},
        {RegistryRoot::LocalMachine, "HARDWARE\\DEVICEMAP\\SERIALCOMM", port},
        {RegistryRoot::LocalMachine, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs", port},
        {RegistryRoot::LocalMachine, "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\OpenGLDrivers", range("dll", "dll")},
        {RegistryRoot::LocalMachine, "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\OpenGLDrivers\\A", range("dll", "dll")},
        {RegistryRoot::LocalMachine, nullptr, properties},
        {RegistryRoot::ClassesRoot, "Installer\\Products", product},
        {RegistryRoot::ClassesRoot, "Installer\\Products\\A", product},
        {RegistryRoot::ClassesRoot, ".lmdl", nameless},
        {RegistryRoot::ClassesRoot, ".lmdl2", nameless},
        {RegistryRoot::ClassesRoot, ".vkpj", nameless},
        {RegistryRoot::ClassesRoot, ".wvp", nameless},
        {RegistryRoot::ClassesRoot, ".q9p", nameless},
        {RegistryRoot::ClassesRoot, ".q90", nameless},
        {RegistryRoot::ClassesRoot, "Linemodel since V10\\shell\\open\\command", nameless},
        {RegistryRoot::ClassesRoot, "Linemodel\\shell\\open\\command", nameless},
        {RegistryRoot::ClassesRoot, "Q9 Project\\shell\\open\\command", nameless},
        {RegistryRoot::ClassesRoot, "Q9 V2 Project\\shell\\open\\command", nameless},
        {RegistryRoot::ClassesRoot, "Q9 V3 Project\\shell\\open\\command", nameless},
        {RegistryRoot::ClassesRoot, "Q90 Project\\shell\\open\\command", nameless},
        {RegistryRoot::CurrentUser, "Software\\Microsoft\\Installer\\Products", product},
        {RegistryRoot::CurrentUser, "Software\\Microsoft\\Installer\\Products\\A", product},
    };
    // A class of drivers has a key whose wide name begins with these bytes.
    const QString wideProperties
        = QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\Class\\{A}\\") + nameOfBytes("Properties");
    std::vector<KnownKey> keys;
    for (const auto &row : rows)
        keys.push_back({row.root, row.path ? QString::fromLatin1(row.path) : wideProperties, row.values});
    return keys;
}

QStringList makeKnownValues()
{
    QStringList names;
    for (const char *name : {
             "", // the default value
             "Version",
             "svcVersion",
             "svcUpdateVersion",
             "svcKBNumber",
             "W2kVersion",
             "IVer",
             "Build",
             "CurrentMajorVersionNumber",
             "CurrentMinorVersionNumber",
             "CurrentVersion",
             "CurrentBuildNumber",
             "UBR",
             "ProductId",
             "EditionID",
             "ReleaseId",
             "DisplayVersion",
             "PathName",
             "ProductName",
             "RegisteredOwner",
             "RegisteredOrganization",
             "CSDVersion",
             "CSDBuildNumber",
             "SystemBiosVersion",
             "SystemBIOSDate",
             "VideoBiosVersion",
             "VideoBIOSDate",
             "ProcessorNameString",
             "VendorIdentifier",
             "Identifier",
             "MMXIdentifier",
             "~MHZ",
             "FeatureSet",
             "Manufacturer",
             "Model",
             "BIOSReleaseDate",
             "BIOSVersion",
             "SystemManufacturer",
             "SystemProductName",
             "InformationSource",
             "ActiveTimeBias",
             "Bias",
             "DaylightBias",
             "StandardBias",
             "DaylightName",
             "StandardName",
             "Device Description",
             "InstalledDisplayDrivers",
             "HardwareInformation.AdapterString",
             "HardwareInformation.BiosString",
             "HardwareInformation.ChipType",
             "HardwareInformation.DacType",
             "HardwareInformation.qwMemorySize",
             "HardwareInformation.MemorySize",
             "DriverDesc",
             "DriverVersion",
             "DriverDate",
             "ProviderName",
             "ReleaseVersion",
             "OpenGLDriverName",
             "OpenGLDriverNameWow",
             "OpenGLVersion",
             "OpenGLVersionWoW",
             "OpenGLFlags",
             "OpenGLFlagsWoW",
             "Service",
             "Class",
             "MatchingDeviceId",
             "InfPath",
             "InfSection",
             "InfSectionExt",
             "DeviceType",
             "DeviceCharacteristics",
             "DeviceDesc",
             "FriendlyName",
             "LocationInformation",
             "HardwareID",
             "AdvertiseFlags",
             "Assignment",
             "DeploymentFlags",
             "InstanceType",
             "Language",
             "PackageCode",
             "dll",
             "C:\\Windows\\system32\\vkdnssd.dll",
             "\\Device\\Serial0",
         })
        names += QString::fromLatin1(name);
    return names;
}

QStringList makeKnownTexts()
{
    QStringList texts;
    for (const char *text : {
             "",
             "A",
             "Disk",
             "0000",
             "0001",
             "Video",
             "Properties",
             "?",
             "?????",
             "100",
             "101",
             "102",
             "103",
             "520",
             "1155",
             "1158",
             "1215",
             "1300",
             "6.1",
             "6.3",
             "10.0",
             "4294967296.0",
             "7601",
             "19045",
             "22000",
             "Linemodel",
             "Linemodel V10",
             "Linemodel V11",
             "Q9",
             "Q9 Beta",
             "Q9 V2",
             "Q9 V3",
             "Q9 V3.1",
             "Q90",
             "M4-M8-vkUpdate",
             "Device Flasher",
             "T-BOX-vkUpdate",
             "%",
             "%%",
             "%1",
             "%2",
             "%3",
             "%L1",
             "%0",
             "%99",
             "%1%2%3",
             "%2%1",
             "%1 %1 %1 %1",
             "%OS%",
             "%PATH%",
             "%TEMP%",
             "C:\\Windows",
             "C:\\Windows\\",
             "\\\\server\\share",
             "/",
             "\\",
             "x86_Microsoft.VC90.CRT_1",
             "Microsoft.VC80.CRT",
             ".",
             "..",
             "*",
             "SP1",
             "A",
             " B",
             " C",
             "\r\n",
             "\t",
             " ",
         })
        texts += QString::fromLatin1(text);
    for (const QString &text : {
             QString(QChar(0)), QString(QChar(0xd800)), QString(QChar(0xdc00)), QString(QChar(0xfeff)),
             QString(QChar(0xfffe)), QString(QChar(0xffff)), QString(QChar(0xfffd)), QString(QChar(0x2028)),
             QString::fromUcs4(U"\U0001f600"),
             QString(QChar(0x8868)), // ends in the byte of a backslash in 932
             QString(QChar(0xff71)), QString(QChar(0x0416)), QString(QChar(0x017d)), QString(QChar(0x20ac)),
             QString(QChar(0x0130)), QString(QChar(0x0131)), QString(QChar(0x00df)), QString(QChar(0x00e9)),
             QString(QChar(0x0085)), QString(QChar(0x00a5)), nameOfBytes("Properties")})
        texts += text;
    return texts;
}

} // namespace

const std::vector<KnownKey> &knownKeys()
{
    static const std::vector<KnownKey> keys = makeKnownKeys();
    return keys;
}

const QStringList &knownValues()
{
    static const QStringList values = makeKnownValues();
    return values;
}

const QStringList &knownTexts()
{
    static const QStringList texts = makeKnownTexts();
    return texts;
}

const std::vector<const char *> &knownCalls()
{
    static const std::vector<const char *> calls = {
        "RegOpenKeyExA", "RegCloseKey", "RegQueryValueExA", "RegQueryValueExW", "RegEnumKeyExA", "RegEnumKeyExW",
        "RegEnumKeyA", "RegEnumValueA", "GetSystemRegistryQuota", "GetVersionExA", "GetVersionExW", "GetSystemMetrics",
        "GlobalMemoryStatusEx", "GetComputerNameExW", "GetUserNameW", "GetSystemWindowsDirectoryW",
        "GetSystemWow64DirectoryW", "ExpandEnvironmentStringsW", "SHGetSpecialFolderPathW", "GetLogicalDrives",
        "GetDriveTypeW", "GetVolumeInformationW", "GetDiskFreeSpaceExW", "SetErrorMode", "GetModuleHandleW",
        "LoadLibraryW", "GetProcAddress", "FreeLibrary", "GetProductInfo", "DNSServiceGetProperty",
        "EnumProcessModules", "GetModuleFileNameExW", "GetAdaptersInfo", "HeapAlloc", "HeapFree", "_localtime32_s",
        "asctime_s"};
    return calls;
}
