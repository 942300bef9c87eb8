#include "fault_runs.h"

#include "copy_key.h"
#include "described_windows.h"

namespace {

// A server of old: 5.2, an Internet Explorer that has no "Version", adapters and
// classes that end unusually, texts without terminators, keys that cannot be opened.
const char smallRegistry[]
    = R"reg(
[HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows NT\CurrentVersion]
"CurrentVersion"="5.2"
"CurrentBuildNumber"="3790"
"ProductName"="Windows Server 2003"
"CSDVersion"="Service Pack 2"
"CSDBuildNumber"="2825"
[HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows NT\CurrentVersion\OpenGLDrivers\One]
"dll"="one"
[HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows NT\CurrentVersion\OpenGLDrivers\Two]
"Flags"=dword:00000001
[HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Internet Explorer]
"IVer"="102"
"Build"="520"
[HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows\CurrentVersion\OEMInformation]
"Manufacturer"="not asked for before 6.0"
[HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows\CurrentVersion\SharedDLLs]
"C:\\WINDOWS\\system32\\vkdnssd.dll"=dword:00000003
[HKEY_LOCAL_MACHINE\HARDWARE\DESCRIPTION\System]
"SystemBiosVersion"=hex(7):41,00,00,00,42,00,00,00,00,00
"SystemBIOSDate"=hex:30,31,2f,30,32
"VideoBIOSDate"="03/04/05"
[HKEY_LOCAL_MACHINE\HARDWARE\DESCRIPTION\System\CentralProcessor\0]
"MMXIdentifier"="Pentium with MMX"
"~MHZ"=dword:000003e7
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\SystemInformation]
"BIOSVersion"="a long version"
"SystemManufacturer"=hex:53,68,6f,72,74
"InformationSource"=dword:ffffffff
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\TimeZoneInformation]
"Bias"=dword:ffffffc4
"DaylightBias"=hex:c4
"StandardName"="W. Europe Standard Time"
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Video\{A}\0000]
"Device Description"="the numbered key is the last one"
"HardwareInformation.AdapterString"=hex:41,00,42,00
"HardwareInformation.MemorySize"=dword:00800000
"OpenGLDriverName"=hex(7):78,00,00,00,79,00,00,00,00,00
"OpenGLVersion"=dword:00000010
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Video\{B}\0000]
"HardwareInformation.qwMemorySize"=hex(b):00,00,00,00,01,00,00,00
"HardwareInformation.MemorySize"=dword:00000001
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Video\{B}\Video]
"Service"="vga"
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Video\{C}\0000]
"Device Description"="once: the key behind it cannot be opened"
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Class\{0}]
"NoClass"="a class without a name"
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Class\{0}\0000]
"DriverDesc"="not shown"
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Class\{1}]
"Class"="Mouse"
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Class\{1}\0000]
"DriverDesc"="first"
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Class\{1}\0001]
"DriverDate"="1-1-2003"
"InfPath"="mouse.inf"
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Class\{1}\0002]
"Other"="nothing to show"
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Class\{1}\Properties]
"DeviceType"=dword:00000027
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Class\{2}]
"Class"="Ports"
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Class\{2}\?????]
"DeviceCharacteristics"=hex:01
"DeviceType"=dword:00020027
)reg"
      // The bytes of this name read "Properties"; opening it opens the key above.
      "[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Class\\{2}\\\u7250\u706f\u7265\u6974\u7365]\n"
      R"reg([HKEY_CLASSES_ROOT\Installer\Products\1]
"ProductName"="Linemodel V11.2"
"Version"=dword:0a02012c
"AdvertiseFlags"=dword:00000184
"Language"=dword:00000407
"PackageCode"="0123456789ABCDEF"
[HKEY_CLASSES_ROOT\Installer\Products\2]
"ProductName"="of another maker"
[HKEY_CLASSES_ROOT\Installer\Products\3]
"Version"=dword:00000001
[HKEY_CLASSES_ROOT\Installer\Products\4]
"ProductName"="Q9"
[HKEY_CLASSES_ROOT\.lmdl]
@="Linemodel since V10"
[HKEY_CLASSES_ROOT\.vkpj]
@=""
[HKEY_CLASSES_ROOT\Linemodel since V10\shell\open\command]
@="\"C:\\Linemodel\\lm.exe\" \"%1\""
[HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\1]
"ProductName"="Device Flasher"
"Assignment"=dword:00000000
[HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\2]
"ProductName"="Q9"
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\IDE\Disk without instances]
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Disk A\001]
"Class"="DiskDrive"
"HardwareID"=hex(7):61,00,00,00,62,00,00,00,00,00
"FriendlyName"=hex:46,72,69,65,6e,64
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Disk A\002]
"Service"="disk"
[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Disk B\001]
"DeviceDesc"="B"
[HKEY_LOCAL_MACHINE\HARDWARE\DEVICEMAP\SERIALCOMM]
"\\Device\\Serial0"="COM1"
"\\Device\\Serial1"=hex:43,4f,4d,32
)reg";

const char smallSystem[] = R"json({
    "GetVersionEx": {"dwMajorVersion": 5, "dwMinorVersion": 2, "dwBuildNumber": 3790, "dwPlatformId": 2,
                     "szCSDVersion": "Service Pack 2", "wSuiteMask": 2, "wProductType": 3},
    "GetSystemMetrics": {"89": 1},
    "GetSystemInfo": {"wProcessorArchitecture": 9, "dwActiveProcessorMask": 5, "dwNumberOfProcessors": 2,
                      "dwProcessorType": 8664},
    "GlobalMemoryStatusEx": {"dwMemoryLoad": 1, "ullTotalPhys": 1023, "ullAvailPhys": 1536},
    "GetComputerNameEx": {"0": "EXACTLY-15-LONG", "3": "more-than.15.long"},
    "GetUserName": "",
    "GetSystemRegistryQuota": {"allowed": 2, "used": 1},
    "GetLogicalDrives": 5,
    "drives": {"A:\\": {"GetDriveType": 2},
               "C:\\": {"GetDriveType": 3, "GetVolumeInformation": {"volumeName": "System", "fileSystemName": "NTFS"},
                        "GetDiskFreeSpaceEx": {"freeBytesAvailableToCaller": 1, "totalNumberOfBytes": 1048576}}},
    "GetSystemWindowsDirectory": "C:\\WINDOWS",
    "environment": {"OS": "Windows_NT", "TEMP": ""},
    "ExpandEnvironmentStrings": {"1": {"error": 8}},
    "SHGetSpecialFolderPath": {"5": "C:\\Documents", "38": "C:\\Program Files"},
    "EnumProcessModules": ["C:\\host.exe", null, "C:\\WINDOWS\\ntdll.dll"],
    "libraries": {"dnssd.dll": {}, "vkdnssd.dll": {"DNSServiceGetProperty": {"error": 0, "DaemonVersion": 1300005}}},
    "GetAdaptersInfo": [
        {"Index": 2, "AdapterName": "{2}", "Description": "three gateways", "DhcpEnabled": 1,
         "GatewayList": [["10.0.0.1", "255.0.0.0"], ["10.0.0.2", "255.0.0.0"], ["10.0.0.3", "255.0.0.0"]],
         "DhcpServer": [["10.0.0.4", "255.0.0.0"], ["10.0.0.5", "255.0.0.0"]], "HaveWins": 1,
         "PrimaryWinsServer": ["10.0.0.6", "255.0.0.0"], "SecondaryWinsServer": ["", ""],
         "LeaseObtained": 1700000000, "LeaseExpires": 4294967295}],
    "timeZone": -60,
    "deniedKeys": [
        "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\OpenGLDrivers\\Three",
        "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Video\\{A0}",
        "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Video\\{C}\\0001",
        "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Class\\{1}\\0003",
        "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Class\\{2}",
        "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Enum\\USBSTOR\\Disk A\\0010",
        "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Enum\\USBSTOR\\Disk AA",
        "HKEY_CLASSES_ROOT\\Installer\\Products\\0",
        "HKEY_CURRENT_USER\\Software\\Microsoft\\Installer\\Products\\3"]
})json";

using machine::RegistryRoot;
constexpr RegistryRoot roots[] = {RegistryRoot::ClassesRoot, RegistryRoot::CurrentUser, RegistryRoot::LocalMachine,
                                  RegistryRoot::Users};

} // namespace

machine::Machine copyOf(const machine::Machine &machine)
{
    machine::Machine copy;
    copy.system = machine.system;
    for (const auto root : roots)
        copyKey(*machine.registry.root(root), *copy.registry.root(root));
    return copy;
}

std::shared_ptr<machine::RegistryKey> keyAt(machine::Machine &machine, const QString &path)
{
    for (const auto root : roots) {
        const auto &key = machine.registry.root(root);
        if (path.section(QLatin1Char('\\'), 0, 0) == key->name())
            return machine::findKey(key, path.section(QLatin1Char('\\'), 1));
    }
    return {};
}

QStringList machineNames()
{
    return {QStringLiteral("workstation"), QStringLiteral("wine"), QStringLiteral("small")};
}

machine::Machine machineNamed(const QString &name)
{
    return name == QLatin1String("small") ? DescribedWindows::parse(smallRegistry, smallSystem)
                                          : DescribedWindows::load(name);
}
