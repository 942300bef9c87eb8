#include "expected_texts.h"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <QtCore/QRegularExpression>
#include <algorithm>

namespace expected {
namespace {

const QString end = QStringLiteral("\n");
const QString separator = QString(72, QLatin1Char('-')) + end;

QString q(const char *text)
{
    return QString::fromLatin1(text);
}

struct RegistryVersion
{
    bool known = false;
    quint32 major = 0;
    quint32 minor = 0;
    quint32 build = 0;
    std::optional<quint32> revision;
};

/// "CurrentVersion" as two numbers.
bool versionText(DescribedCalls &calls, const Key &key, RegistryVersion &version)
{
    Buffer buffer;
    if (!calls.query(Form::Narrow, key, q("CurrentVersion"), buffer))
        return false;
    const QStringList parts = buffer.narrow().split(QLatin1Char('.'));
    if (parts.size() != 2)
        return false;
    bool ok = false;
    version.major = parts.first().toUInt(&ok);
    if (ok)
        version.minor = parts.last().toUInt();
    return ok;
}

RegistryVersion registryVersion(DescribedCalls &calls)
{
    RegistryVersion version;
    const Key key = calls.open(machine::RegistryRoot::LocalMachine, q("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion"));
    if (!key)
        return version;
    Buffer major;
    Buffer minor;
    bool numbers = calls.query(Form::Narrow, key, q("CurrentMajorVersionNumber"), major, 4);
    if (numbers) {
        version.major = quint32(major.number());
        numbers = calls.query(Form::Narrow, key, q("CurrentMinorVersionNumber"), minor, 4);
    }
    if (numbers)
        version.minor = quint32(minor.number());
    if (numbers || versionText(calls, key, version)) {
        Buffer build;
        if (calls.query(Form::Narrow, key, q("CurrentBuildNumber"), build))
            version.build = build.narrow().toUInt(&version.known);
    }
    Buffer revision;
    if (calls.query(Form::Narrow, key, q("UBR"), revision, 4))
        version.revision = quint32(revision.number());
    calls.close(key);
    return version;
}

constexpr quint16 enterpriseSuite = 0x0002;
constexpr quint16 datacenterSuite = 0x0080;
constexpr quint8 workstation = 1;

/// What GetVersionExW tells, zero where it fails, and GetSystemInfo.
struct Product
{
    quint16 suites = 0;
    quint8 type = 0;
    quint16 architecture = 0;
};

/// Windows 5.2, on x64 or no known processor, as far as the machines of these tests go.
QString name52(DescribedCalls &calls, const Product &product)
{
    const bool metric = !calls.fails("GetSystemMetrics", QString(), q("89"));
    QString name = q("Windows Server 2003 ");
    if (metric && calls.machine.system.GetSystemMetrics.value(89) != 0)
        name = q("Server 2003 R2 ");
    else if (product.type == workstation)
        name = q("XP Professional x64 Edition ");
    if (product.type == workstation)
        return name;
    name += q(product.suites & datacenterSuite ? "Datacenter " : product.suites & enterpriseSuite ? "Enterprise "
                                                                                                  : "Standard ");
    constexpr quint16 x64 = 9;
    return name + q(product.architecture == x64 ? "x64 Edition" : "Edition");
}

QString name62(const Product &product, const RegistryVersion &registry)
{
    const bool client = product.type == workstation;
    if (registry.major == 6 && registry.minor == 2)
        return q(client ? "8 " : "Server 2012 ");
    if (registry.major == 6 && registry.minor == 3)
        return q(client ? "8.1 " : "Server 2012 R2 ");
    if (registry.major != 10 || registry.minor != 0)
        return QString();
    if (!client)
        return q("Server 2016 ");
    return q(registry.build >= 22000 ? "11 " : "10 ");
}

QString edition(DescribedCalls &calls)
{
    const machine::SystemAnswers &system = calls.machine.system;
    if (calls.fails("GetModuleHandleW", q("kernel32.dll"))
        || calls.fails("GetProcAddress", QString(), q("GetProductInfo")) || !system.GetProductInfo)
        return QString();
    quint32 code = 0;
    if (calls.writes("GetProductInfo", QString(), q("6.2.0.0")) && system.GetProductInfo && *system.GetProductInfo)
        code = (*system.GetProductInfo)->dwReturnedProductType;
    return code == 48 ? q("Professional Edition") : q("0x") + QString::number(code, 16);
}

QString windowsVersion(DescribedCalls &calls)
{
    QString text = q("Windows version: \n");
    const auto &version = calls.machine.system.GetVersionEx;
    Product product;
    calls.begin("GetSystemInfo");
    product.architecture = calls.machine.system.GetSystemInfo.wProcessorArchitecture;
    if (calls.fails("GetVersionExA") || !version)
        return text + q("GetVersionExA(&osver) failed!\n");
    const machine::VersionRecord record = *version;
    if (calls.writes("GetVersionExW") && version) {
        product.suites = version->wSuiteMask;
        product.type = version->wProductType;
    }
    const RegistryVersion registry = registryVersion(calls);

    text += q("Version (major.minor.build): \nFrom GetVersionEx: %1.%2.%3\n")
                .arg(record.dwMajorVersion)
                .arg(record.dwMinorVersion)
                .arg(record.dwBuildNumber);
    if (registry.known) {
        text += q("From registry:     %1.%2.%3").arg(registry.major).arg(registry.minor).arg(registry.build);
        text += (registry.revision ? QLatin1Char('.') + QString::number(*registry.revision) : QString()) + end;
    }
    text += QString(19, QLatin1Char(' ')) + q("Windows ");
    if (record.dwMajorVersion == 5 && record.dwMinorVersion == 2)
        text += name52(calls, product) + q(", 64-bit");
    else if (record.dwMajorVersion == 6 && record.dwMinorVersion == 2)
        text += name62(product, registry) + edition(calls) + q(", 64-bit");
    else
        qFatal("no expected text for this version of Windows");
    return text + q("\nLast service pack installed: ") + record.szCSDVersion + end;
}

QString processorInformation(DescribedCalls &calls)
{
    calls.begin("GetSystemInfo");
    const machine::SystemInfoRecord &system = calls.machine.system.GetSystemInfo;
    const QMap<int, QString> architectures = {{0, q("x86 (32/64bit)")}, {6, q("IA64 (64bit)")}, {9, q("x64 (64bit)")}};
    const QMap<quint32, QString> types = {{386, q("386")}, {486, q("486")}, {586, q("Pentium")}, {2200, q("IA64")}, {8664, q("AMD64")}};
    const auto hexadecimal = [](quint64 number, int width) {
        return QString::number(number, 16).rightJustified(width, QLatin1Char('0'));
    };
    QStringList active;
    for (int i = 0; i < 32; ++i) {
        if (system.dwActiveProcessorMask >> i & 1)
            active += q("Processor #") + QString::number(i);
    }
    return q("Processor information: \n")
        + line("Processor architecture:       %1", architectures.value(system.wProcessorArchitecture, q("unknown")))
        + line("Number of processors:       %1", QString::number(system.dwNumberOfProcessors))
        + line("Active processors:          %1", active.join(end + QString(28, QLatin1Char(' '))))
        + line("Processor type:             %1", types.value(system.dwProcessorType, q("unknown")))
        + q("Processor revision:         %1 = 0x%2\n")
              .arg(QString::number(system.wProcessorRevision), hexadecimal(system.wProcessorRevision, 4))
        + line("Processor level:            %1", QString::number(system.wProcessorLevel))
        + line("Page size:                  %1", QString::number(system.dwPageSize))
        + line("Minimum Application Address 0x%1", hexadecimal(system.lpMinimumApplicationAddress, 16))
        + line("Maximum Application Address 0x%1", hexadecimal(system.lpMaximumApplicationAddress, 16))
        + q("Allocation Granularity:     %1 = 0x%2\n")
              .arg(QString::number(system.dwAllocationGranularity), hexadecimal(system.dwAllocationGranularity, 8));
}

QString memory(DescribedCalls &calls)
{
    QString text = q("Memory Information:\n");
    const auto &status = calls.machine.system.GlobalMemoryStatusEx;
    if (calls.fails("GlobalMemoryStatusEx") || !status)
        return text;
    const auto bytes = [](const char *label, quint64 count) {
        return q(label) + QString::number(count) + q(" Byte = ") + byteSize(count) + end;
    };
    return text + q("MemoryLoad:            ") + QString::number(status->dwMemoryLoad) + q("%\n")
        + bytes("TotalPhys:             ", status->ullTotalPhys) + bytes("AvailPhys:             ", status->ullAvailPhys)
        + bytes("TotalPageFile:         ", status->ullTotalPageFile) + bytes("AvailPageFile:         ", status->ullAvailPageFile)
        + bytes("TotalVirtual:          ", status->ullTotalVirtual) + bytes("AvailVirtual:          ", status->ullAvailVirtual);
}

QString computerNames(DescribedCalls &calls)
{
    const struct
    {
        int format;
        const char *line;
    } rows[] = {
        {0, "NetBios name:                 %1"},
        {4, "Physical NetBios name:        %1"},
        {2, "DNS domain:           %1"},
        {6, "Physical DNS domain:   %1"},
        {3, "DNS fully qualified:          %1"},
        {7, "Physical DNS fully qualified: %1"},
        {1, "hostname                      %1"},
        {5, "Physical hostname             %1"},
    };
    QString text = q("Computer name\n");
    for (const auto &row : rows) {
        const bool failed = calls.fails("GetComputerNameExW", QString(), QString::number(row.format));
        const auto name = calls.machine.system.GetComputerNameEx.value(row.format);
        if (!failed && name && name->size() <= 15)
            text += line(row.line, *name);
    }
    return text;
}

QString userName(DescribedCalls &calls)
{
    const auto &name = calls.machine.system.GetUserName;
    if (calls.fails("GetUserNameW") || !name || name->size() > 255)
        return QString();
    return line("User name:                    %1", *name);
}

QString winSxS(DescribedCalls &calls)
{
    QString text = q("WinSxS directory entries\n");
    const machine::SystemAnswers &system = calls.machine.system;
    QString directory;
    const quint32 length = calls.directory("GetSystemWindowsDirectoryW", system.GetSystemWindowsDirectory, directory);
    if (length == 0)
        return text;
    if (length > 1024)
        text += line("buffer for sysDir too small, need %1", QString::number(length));
    const QString folder = directory + q("\\WinSxS");
    if (!system.folders.contains(folder))
        return text + q("Directory '") + directory.replace(QLatin1Char('\\'), QLatin1Char('/')) + q("/WinSxS' does not exist.");
    // "*Microsoft.VC*CRT*", in any case of letters
    const QRegularExpression wanted(q("microsoft\\.vc.*crt"), QRegularExpression::CaseInsensitiveOption);
    QStringList names = system.folders.value(folder).directories.filter(wanted);
    std::sort(names.begin(), names.end());
    for (const QString &name : names)
        text += name + end;
    return text;
}

QString environmentVariables(DescribedCalls &calls)
{
    if (calls.fails("HeapAlloc"))
        return QString();
    const struct
    {
        const char *label;
        const char *variable;
    } rows[] = {
        {"OS       = ", "OS"},
        {"PATH     = ", "PATH"},
        {"HOMEPATH = ", "HOMEPATH"},
        {"TEMP     = ", "TEMP"},
        {"PROCESSOR_IDENTIFIER = ", "PROCESSOR_IDENTIFIER"},
    };
    QString text = q("Some environment variables:\n");
    for (int i = 0; i < 5; ++i) {
        const QString variable = q("%") + q(rows[i].variable) + q("%");
        const bool failed = calls.fails("ExpandEnvironmentStringsW", QString(), q(rows[i].label) + variable);
        const machine::SystemAnswers &system = calls.machine.system;
        const QString expanded = q(rows[i].label) + system.environment.value(q(rows[i].variable), variable);
        if (failed || system.expansionErrors.contains(q(rows[i].variable)))
            text += line("Expand env var %1 failed!", QString::number(i));
        else if (expanded.size() + 1 > 32768)
            text += q("Expand env var %1, buffer too small, would need %2\n").arg(i).arg(expanded.size() + 1);
        else
            text += expanded + end;
    }
    calls.begin("HeapFree");
    return text;
}

QString driveLine(DescribedCalls &calls, char letter)
{
    const QStringList types = {QString(), q("no root dir mounted  "), q("removable media      "), q("fixed drive          "),
                               q("remote/network drive "), q("CD/DVD drive         "), q("RAM disk drive       ")};
    const QString root = QLatin1Char(letter) + q(":\\");
    const auto drive = [&] { return calls.machine.system.drives.value(root); };
    calls.begin("wsprintfW", QString(), root);
    QString text = root + q(" ");
    if (!calls.fails("GetDriveTypeW", root))
        text += types.value(int(drive().GetDriveType.value.value_or(0)));
    if (!calls.fails("GetVolumeInformationW", root, q("260"))) { // room for the name of the file system
        if (const auto volume = drive().GetVolumeInformation)
            text += volume->fileSystemName + q("  ") + volume->volumeName + q("  ");
    }
    if (!calls.fails("GetDiskFreeSpaceExW", root)) {
        if (const auto space = drive().GetDiskFreeSpaceEx)
            text += q("Free: %1 Total: %2 ").arg(byteSize(space->freeBytesAvailableToCaller), byteSize(space->totalNumberOfBytes));
    }
    return text + end;
}

QString disks(DescribedCalls &calls)
{
    QString text = q("Disk information: \n");
    calls.begin("SetErrorMode", QString(), q("1"));
    const auto failure = calls.begin("GetLogicalDrives");
    const auto &answer = calls.machine.system.GetLogicalDrives;
    const quint32 drives = !failure && answer ? *answer : 0;
    if (drives == 0)
        text += q("Failed GetLogicalDrives(), error = ") + QString::number(failure.value_or(answer.error));
    for (int i = 0; i < 32; ++i) {
        if (drives >> i & 1)
            text += driveLine(calls, char('A' + i));
    }
    calls.begin("SetErrorMode", QString(), q("0"));
    return text;
}

QString registryQuota(DescribedCalls &calls)
{
    QString text = q("Registry quota:\n");
    const auto &quota = calls.machine.system.GetSystemRegistryQuota;
    if (calls.fails("GetSystemRegistryQuota") || !quota)
        return text;
    return text + line("Used [bytes]:           %1", QString::number(quota->used))
        + line("Allowed [bytes]:        %1", QString::number(quota->allowed));
}

QString systemDirectories(DescribedCalls &calls)
{
    QString text = q("Windows system directories\n");
    QString buffer; // one for both
    const auto &system = calls.machine.system;
    if (const quint32 length = calls.directory("GetSystemWindowsDirectoryW", system.GetSystemWindowsDirectory, buffer)) {
        if (length > 1024)
            text += line("buffer for sysDir too small, need %1", QString::number(length));
        text += line("System directory:      %1", buffer);
    }
    if (const quint32 length = calls.directory("GetSystemWow64DirectoryW", system.GetSystemWow64Directory, buffer)) {
        if (length > 1024)
            text += line("buffer for wow64Dir too small, need %1", QString::number(length));
        text += line("System Wow64 directory:  %1", buffer);
    }
    return text;
}

QString specialFolders(DescribedCalls &calls)
{
    const struct
    {
        int id;
        const char *line;
    } rows[] = {
        {5, "CSIDL_PERSONAL    %1"},
        {2, "CSIDL_PROGRAMS    %1"},
        {38, "CSIDL_PROGRAM_FILES    %1"},
        {28, "CSIDL_LOCAL_APPDATA    %1"},
        {26, "CSIDL_APPDATA    %1"},
    };
    QString text = q("Special Folders: \n");
    QString path; // what cannot be resolved repeats the one before
    for (const auto &row : rows) {
        const bool written = calls.writes("SHGetSpecialFolderPathW", QString(), QString::number(row.id));
        const auto folder = calls.machine.system.SHGetSpecialFolderPath.value(row.id);
        if (written && folder)
            path = folder->left(259);
        text += line(row.line, path);
    }
    return text;
}

QString bonjour(DescribedCalls &calls, const char *label, const QString &library)
{
    const bool failed = calls.fails("LoadLibraryW", library);
    const auto &libraries = calls.machine.system.libraries;
    if (failed || !libraries.contains(library))
        return q(label) + q("not installed.\n");
    QString text = q(label) + q("installed.\nDNS-SD version: ");
    const auto service = libraries.value(library).DNSServiceGetProperty; // as it was loaded
    const bool found = !calls.fails("GetProcAddress", library, q("DNSServiceGetProperty"));
    if (found && service && libraries.value(library).DNSServiceGetProperty) {
        const auto failure = calls.begin("DNSServiceGetProperty", QString(), q("DaemonVersion"));
        const bool failsAnyway = calls.failuresWriteResults && service->error != 0;
        const qint32 error = failure && !failsAnyway ? qint32(*failure) : service->error;
        const quint32 version = service->DaemonVersion;
        if (error == 0)
            text += q("%1.%2.%3").arg(version / 10000).arg(version / 100 % 100).arg(version % 100);
        else
            text += q(" failed to get version, error = ") + QString::number(error);
        if (error == -65563)
            text += q(" (kDNSServiceErr_ServiceNotRunning)");
    }
    calls.begin("FreeLibrary");
    return text + end;
}

std::optional<quint32> referenceCount(DescribedCalls &calls)
{
    QString directory;
    const quint32 length = calls.directory("GetSystemWindowsDirectoryW", calls.machine.system.GetSystemWindowsDirectory, directory);
    const QString function = q("velkor::SystemInfo::WinSysInfo::refCountSharedDll");
    if (length > 1024)
        calls.warnings += function + q(" buffer for sysDir too small, need ") + QString::number(length) + end;
    if (length == 0)
        calls.warnings += function + q(" GetSystemWindowsDirectory returned a 0 len string") + end;
    if (length == 0 || length > 1024)
        return std::nullopt;
    const Key key = calls.open(machine::RegistryRoot::LocalMachine, q("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs"));
    if (!key)
        return std::nullopt;
    Buffer count;
    const bool read = calls.query(Form::Narrow, key, directory + q("\\system32\\vkdnssd.dll"), count, 4);
    calls.close(key);
    return read ? std::optional<quint32>(quint32(count.number())) : std::nullopt;
}

QString loadedModules(DescribedCalls &calls)
{
    QString text = q("Loaded modules/DLLs:\n");
    const auto &modules = calls.machine.system.EnumProcessModules;
    if (calls.fails("EnumProcessModules") || !modules)
        return text;
    const std::size_t count = std::min<std::size_t>(modules->size(), 1024);
    for (std::size_t i = 0; i < count; ++i) {
        const bool failed = calls.fails("GetModuleFileNameExW", QString(), QString::number(i));
        const auto name = modules && i < modules->size() ? modules->at(i) : std::nullopt;
        if (!failed && name)
            text += name->left(259) + end;
    }
    return text;
}

} // namespace

QString line(const char *format, const QString &value)
{
    return q(format).replace(q("%1"), value) + end;
}

QString byteSize(quint64 bytes)
{
    const struct
    {
        int shift;
        const char *unit;
    } units[] = {{30, " GByte"}, {20, " MByte"}, {10, " KByte"}};
    for (const auto &unit : units) {
        if (bytes >> unit.shift) {
            const quint64 tenths = (bytes >> (unit.shift - 10)) % 1024 * 10 / 1024;
            return QString::number(bytes >> unit.shift) + q(".") + QString::number(tenths) + q(unit.unit);
        }
    }
    return QString::number(bytes) + q(" Byte");
}

QString windowsHalf(DescribedCalls &calls)
{
    QString text = q("############ Windows specific section ###########\n");
    text += windowsVersion(calls);
    text += windowsVersionFromRegistry(calls) + separator;
    text += q("This is a 64bit application.\n") + separator;
    text += internetExplorer(calls) + separator;
    text += processorInformation(calls);
    text += processorsFromRegistry(calls) + separator;
    text += memory(calls) + separator;
    text += computerNames(calls);
    text += userName(calls) + separator;
    text += oemInformation(calls) + separator;
    text += systemInformation(calls) + separator;
    text += biosInformation(calls) + separator;
    text += videoAdapters(calls) + separator;
    text += drivers(calls) + separator;
    text += timeZone(calls) + separator;
    text += installedApplications(calls);
    text += visualBasicApplications(calls) + separator;
    text += winSxS(calls) + separator;
    text += environmentVariables(calls) + separator;
    text += disks(calls) + separator;
    for (const char *enumerator : {"FDC", "IDE", "SCSI", "USBSTOR"})
        text += diskDevices(calls, q(enumerator));
    text += separator;
    for (const char *deviceMap : {"PARALLEL PORTS", "SERIALCOMM"})
        text += ports(calls, q(deviceMap));
    text += separator;
    text += registryQuota(calls) + separator;
    text += systemDirectories(calls);
    text += specialFolders(calls) + separator;
    text += bonjour(calls, "Standard Bonjour: ", q("dnssd.dll")) + separator;
    text += bonjour(calls, "velkor DNS-SD: ", q("vkdnssd.dll"));
    const auto count = referenceCount(calls);
    text += q("RefCount for vkdnssd.dll: ") + (count ? QString::number(*count) : q("failed to get refCount!")) + end + separator;
    return text + loadedModules(calls) + separator;
}

namespace {

QString addresses(const QString &label, const std::vector<machine::AddressRecord> &list)
{
    if (list.size() < 2) {
        const auto only = list.empty() ? machine::AddressRecord() : list.front();
        return label + q(": ") + only.address + q(", ") + only.mask + end;
    }
    QString text;
    for (std::size_t i = 0; i < list.size(); ++i)
        text += label + q(" ") + QString::number(i + 1) + q(": ") + list[i].address + q(", ") + list[i].mask + end;
    return text;
}

QString leaseTime(DescribedCalls &calls, qint64 time)
{
    const qint32 seconds = qint32(quint32(quint64(time)));
    const bool converts = !calls.fails("_localtime32_s", QString(), QString::number(seconds)) && seconds >= 0;
    const auto local = QDateTime::fromSecsSinceEpoch(seconds - 60 * qint64(calls.machine.system.timeZone), Qt::UTC);
    if (converts && !calls.fails("asctime_s"))
        return QLocale::c().toString(local, q("ddd MMM ")) + QString::number(local.date().day()).rightJustified(2)
            + QLocale::c().toString(local, q(" HH:mm:ss yyyy")) + end;
    return q("0x") + QString::number(time, 16) + end;
}

constexpr quint32 overflow = 111;

/// GetAdaptersInfo: its result; \a size is in and out.
quint32 adaptersInfo(DescribedCalls &calls, quint32 &size)
{
    constexpr quint32 noData = 232;
    const auto failure = calls.begin("GetAdaptersInfo");
    const auto &adapters = calls.machine.system.GetAdaptersInfo;
    if (failure && !calls.failuresWriteResults)
        return *failure;
    if (!adapters)
        return adapters.error ? adapters.error : 87;
    if (adapters->empty())
        return noData;
    quint32 needed = 0;
    for (const machine::AdapterRecord &adapter : *adapters) {
        needed += 704; // a record, and one for each further address
        for (const auto *list : {&adapter.GatewayList, &adapter.DhcpServer})
            needed += list->empty() ? 0 : 48 * quint32(list->size() - 1);
    }
    const bool fits = needed <= size;
    size = needed;
    return fits ? failure.value_or(0) : overflow;
}

QString detailsOf(DescribedCalls &calls, const machine::AdapterRecord &adapter)
{
    QString text = addresses(q("Gateway"), adapter.GatewayList);
    text += q("DHCP enabled:  ") + QString::number(adapter.DhcpEnabled) + end;
    if (adapter.DhcpEnabled) {
        text += addresses(q("DHCP server"), adapter.DhcpServer);
        text += q("Lease obtained: ") + leaseTime(calls, adapter.LeaseObtained);
        text += q("Lease expires:  ") + leaseTime(calls, adapter.LeaseExpires);
    }
    text += q("Have WINS: ") + QString::number(adapter.HaveWins) + end;
    if (adapter.HaveWins) {
        text += addresses(q("Primary WINS Server"), {adapter.PrimaryWinsServer});
        text += addresses(q("Secondary WINS Server"), {adapter.SecondaryWinsServer});
    }
    return text;
}

} // namespace

QString adapterDetails(DescribedCalls &calls, quint32 index)
{
    quint32 size = 704;
    if (calls.fails("HeapAlloc"))
        return QString();
    if (adaptersInfo(calls, size) == overflow) {
        calls.begin("HeapFree");
        if (calls.fails("HeapAlloc"))
            return QString();
    }
    QString text;
    if (adaptersInfo(calls, size) == 0) {
        const std::vector<machine::AdapterRecord> adapters = *calls.machine.system.GetAdaptersInfo;
        const auto found = std::find_if(adapters.begin(), adapters.end(), [&](const auto &adapter) { return adapter.Index == index; });
        if (found != adapters.end())
            text = detailsOf(calls, *found);
    }
    calls.begin("HeapFree");
    return text;
}

} // namespace expected
