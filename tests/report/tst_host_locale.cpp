// A host may set a default QLocale and the locale of the C and C++ libraries. The report does
// not depend on them: no group separators, and the digits 0 to 9. Every number of the report
// that can have four digits has at least four in a row of this test.

#include <locale> // must precede windows.h, whose wrapper forbids std::wstring

#include "described_screens.h"
#include "section_process.h"
#include "section_rows.h"
#include "vkSystemInfo.h"
#include "win/adapter_details.h"
#include "win/format_byte_size.h"
#include "win/windows_sections.h"

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <clocale>
#include <dlfcn.h>
#include <thread>

using namespace velkor::SystemInfo;
using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const QString hostLocales[] = {QString(), "de_DE", "ar_EG"};

/// Sets the default QLocale and the global std::locale, which calls setlocale(). The destructor
/// restores them.
class HostLocale
{
public:
    /// \a name is a name such as "de_DE". An empty name changes nothing.
    explicit HostLocale(const QString &name)
    {
        current = name;
        if (name.isEmpty())
            return;
        QLocale::setDefault(QLocale(name));
        std::locale::global(std::locale(name.toStdString() + ".UTF-8"));
    }
    ~HostLocale()
    {
        std::locale::global(m_cxxLocale);
        QLocale::setDefault(m_qtLocale);
        current.clear();
    }
    HostLocale(const HostLocale &) = delete;
    HostLocale &operator=(const HostLocale &) = delete;

    static inline QString current; ///< the name of the existing object

private:
    const QLocale m_qtLocale;
    const std::locale m_cxxLocale;
};

qint64 pretendedPid = 0; // 0: the real one

} // namespace

// The linker prefers this definition to that of QtCore.
qint64 QCoreApplication::applicationPid()
{
    using Function = qint64 (*)();
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "_ZN16QCoreApplication14applicationPidEv"));
    return pretendedPid ? pretendedPid : real();
}

namespace {

// Debian's C library has only the locales "C" and "C.UTF-8" until somebody compiles others.
void compileLocales()
{
    static const QTemporaryDir folder;
    for (const QString &name : {QStringLiteral("de_DE"), QStringLiteral("ar_EG")}) {
        QProcess localedef;
        localedef.start(QStringLiteral("localedef"),
                        {"--no-archive", "-c", "-f", "UTF-8", "-i", name, folder.filePath(name + ".UTF-8")});
        QVERIFY2(localedef.waitForFinished(120000) && QFile::exists(folder.filePath(name + ".UTF-8/LC_NUMERIC")),
                 localedef.readAllStandardError().constData());
    }
    qputenv("LOCPATH", QFile::encodeName(folder.path()));
}

// Without this difference the other rows prove nothing.
void localesDifferFromC()
{
    {
        const HostLocale locale("de_DE");
        QCOMPARE(QStringLiteral("%L1").arg(1234), QStringLiteral("1.234"));
        QCOMPARE(std::setlocale(LC_ALL, nullptr), "de_DE.UTF-8");
        QCOMPARE(std::localeconv()->decimal_point, ",");
        QCOMPARE(std::localeconv()->thousands_sep, ".");
    }
    {
        const HostLocale locale("ar_EG");
        QCOMPARE(QStringLiteral("%L1").arg(7), QString(QChar(0x0667)));
        QCOMPARE(std::setlocale(LC_ALL, nullptr), "ar_EG.UTF-8");
    }
    QCOMPARE(QStringLiteral("%L1").arg(7), QStringLiteral("7"));
    QCOMPARE(std::localeconv()->decimal_point, ".");
}

QString rowName(const char *name, const QString &hostLocale)
{
    return QLatin1String(name) + QStringLiteral(", host locale ") + (hostLocale.isEmpty() ? QStringLiteral("not set") : hostLocale);
}

SectionRows inLocale(const SectionRows::Section &section, const QString &hostLocale)
{
    const auto text = [=] {
        const HostLocale locale(hostLocale);
        return section();
    };
    return SectionRows(text, QString());
}

/// Adds a row for each host locale.
void addText(const char *name, const SectionRows::Section &section, const Described &described, const QString &expected)
{
    for (const QString &hostLocale : hostLocales)
        inLocale(section, hostLocale).text(rowName(name, hostLocale), described, expected);
}

QString withoutClock(const QString &report)
{
    QStringList lines = report.split(QLatin1Char('\n'));
    for (QString &line : lines) {
        if (line.startsWith(QLatin1String("Local Date and Time: ")) || line.startsWith(QLatin1String("UTC   Date and Time: ")))
            line.truncate(21); // the length of the label
    }
    return lines.join(QLatin1Char('\n'));
}

QString workstationReport(const QString &hostLocale)
{
    const DescribedWindows windows(DescribedWindows::load(QStringLiteral("workstation")));
    const HostLocale locale(hostLocale);
    return withoutClock(allInfos(true));
}

void rowsOfWholeTexts()
{
    for (const QString &hostLocale : hostLocales) {
        addTestRow(rowName("whole report", hostLocale),
                   [=] { COMPARE_TEXT(workstationReport(hostLocale), workstationReport(QString())); });
        inLocale(allWinInfos, hostLocale).workstation("all_win_infos.txt", rowName("Windows half", hostLocale));
    }
}

void rowsOfVersion()
{
    const QByteArray currentVersion = numberValue("CurrentMajorVersionNumber", 12345)
        + numberValue("CurrentMinorVersionNumber", 23456) + textValue("CurrentBuildNumber", "34567") + numberValue("UBR", 45678);
    addText(
        "versions", [] { return windowsVersion(true); },
        {machineKey("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion") + currentVersion,
         R"({"GetVersionEx": {"dwMajorVersion": 56789, "dwMinorVersion": 67890, "dwBuildNumber": 78901}})"},
        "Windows version: \nVersion (major.minor.build): \n"
        "From GetVersionEx: 56789.67890.78901\n"
        "From registry:     12345.23456.34567.45678\n"
        "                   Windows unknown major version\n"
        "Last service pack installed: \n");
    addText("an edition without a name", platformName,
            {"", R"({"GetVersionEx": {"dwMajorVersion": 6, "dwMinorVersion": 1, "wProductType": 1},
                     "GetProductInfo": {"dwReturnedProductType": "0x12345678"}})"},
            "Windows 7 0x12345678, 64-bit");
}

void rowsOfProcessor()
{
    addText("processors", processorInfo,
            {"", R"({"GetSystemInfo": {
                     "wProcessorArchitecture": 9, "dwPageSize": 65536,
                     "lpMinimumApplicationAddress": "0x10000", "lpMaximumApplicationAddress": "0x7ffffffeffff",
                     "dwActiveProcessorMask": "0x80000001", "dwNumberOfProcessors": 12345, "dwProcessorType": 8664,
                     "dwAllocationGranularity": 1048576, "wProcessorLevel": 23456, "wProcessorRevision": 34567}})"},
            "Processor information: \n"
            "Processor architecture:       x64 (64bit)\n"
            "Number of processors:       12345\n"
            "Active processors:          Processor #0\n"
            "                            Processor #31\n"
            "Processor type:             AMD64\n"
            "Processor revision:         34567 = 0x8707\n"
            "Processor level:            23456\n"
            "Page size:                  65536\n"
            "Minimum Application Address 0x0000000000010000\n"
            "Maximum Application Address 0x00007ffffffeffff\n"
            "Allocation Granularity:     1048576 = 0x00100000\n");
    const QByteArray processors = "Hardware\\Description\\System\\CentralProcessor\\";
    addText("processors in the registry", processorRegistryInfo,
            machineKey(processors + '0') + numberValue("~MHZ", 1234567) + numberValue("FeatureSet", 0x12345678)
                + machineKey(processors + '1') + numberValue("~MHZ", 1005),
            "Central Processor information from Registry\n"
            "Processor #0\n"
            "MHZ:                  1234567 MHz = 1234.567 GHz\n"
            "FeatureSet:           0x12345678\n"
            "Processor #1\n"
            "MHZ:                  1005 MHz = 1.005 GHz\n");
}

QString byteSizes()
{
    QStringList sizes;
    for (const int power : {0, 10, 20, 30})
        sizes += formatByteSize(quint64(1000) << power);
    return sizes.join(QLatin1Char('\n'));
}

void rowsOfMemory()
{
    addText("memory", memoryInfo,
            {"", R"({"GlobalMemoryStatusEx": {
                     "dwMemoryLoad": 1234, "ullTotalPhys": 1099511627776, "ullAvailPhys": 1072693248,
                     "ullTotalPageFile": 1047552, "ullAvailPageFile": 1023,
                     "ullTotalVirtual": "0xffffffffffffffff", "ullAvailVirtual": "0x7ffffffe0000"}})"},
            "Memory Information:\n"
            "MemoryLoad:            1234%\n"
            "TotalPhys:             1099511627776 Byte = 1024.0 GByte\n"
            "AvailPhys:             1072693248 Byte = 1023.0 MByte\n"
            "TotalPageFile:         1047552 Byte = 1023.0 KByte\n"
            "AvailPageFile:         1023 Byte = 1023 Byte\n"
            "TotalVirtual:          18446744073709551615 Byte = 17179869183.9 GByte\n"
            "AvailVirtual:          140737488224256 Byte = 131071.9 GByte\n");
    addText("formatByteSize()", byteSizes, "", "1000 Byte\n1000.0 KByte\n1000.0 MByte\n1000.0 GByte");
    addText("registry quota", registryQuota, {"", R"({"GetSystemRegistryQuota": {"allowed": 4294967295, "used": 1234567}})"},
            "Registry quota:\nUsed [bytes]:           1234567\nAllowed [bytes]:        4294967295\n");
}

void rowsOfRegistryNumbers()
{
    const QByteArray control = "SYSTEM\\CurrentControlSet\\Control\\";
    addText("time zone", timeZoneInfoFromRegistry,
            machineKey(control + "TimeZoneInformation") + numberValue("ActiveTimeBias", quint32(-1234))
                + numberValue("Bias", 2345) + numberValue("DaylightBias", quint32(-3456)) + numberValue("StandardBias", 4567),
            "Time Zone information from Registry\n"
            "ActiveTimeBias: -1234 min (offset to UTC)\n"
            "Bias:           2345 min (offset to UTC)\n"
            "DaylightBias:   -3456 min (additional offset if daylight saving is active)\n"
            "StandardBias:   4567 min (additional offset if no daylight saving is active)\n");
    addText("information source", systemInformationFromRegistry,
            machineKey(control + "SystemInformation") + numberValue("InformationSource", quint32(-12345)),
            "SystemInformation from Registry\nInformationSource:   -12345 \n");
    addText("video", videoInfoFromRegistry,
            machineKey(control + "Video\\{A}\\Video") + machineKey(control + "Video\\{A}\\0000")
                + hexValue("HardwareInformation.qwMemorySize", 11, QByteArray("\0\0\0\0\0\1\0\0", 8))
                + numberValue("OpenGLVersion", 65536) + numberValue("OpenGLVersionWoW", 65537)
                + numberValue("OpenGLFlags", 12345) + numberValue("OpenGLFlagsWoW", 23456),
            ">>> Info about video from registry:\n\n"
            "0000\n"
            "   Video Memory: 1024.0 GByte\n"
            "   OpenGL Version: 65536 = 0x10000\n"
            "   OpenGL Version WoW: 65537 = 0x10001\n"
            "   OpenGL Flags: 12345 = 0x3039\n"
            "   OpenGL Flags WoW: 23456 = 0x5ba0\n");
    // Quirk: a key whose UTF-16 bytes spell "Properties" counts as "Properties". The section
    // opens it by its name in the ANSI code page, "?????".
    const QByteArray bytesSpellProperties = QString::fromUtf16(u"\u7250\u706f\u7265\u6974\u7365").toUtf8();
    addText("properties of a device class", driverInfoFromRegistry,
            machineKey(control + "Class\\{1}") + textValue("Class", "Net") + machineKey(control + "Class\\{1}\\?????")
                + numberValue("DeviceType", 123456) + numberValue("DeviceCharacteristics", 12345)
                + machineKey(control + "Class\\{1}\\" + bytesSpellProperties),
            ">>> Info about drivers from registry:\n\n"
            "----------------------------\n"
            "Net:\n"
            "   Properties\n"
            "   Device Type:             123456 = 0x1e240\n"
            "   Device Characteristics:  12345 = 0x3039\n"
            "----------------------------\n");
}

void rowsOfSoftware()
{
    addText("version of a product", installedApplicationsFromRegistry,
            "[HKEY_CLASSES_ROOT\\Installer\\Products\\A1]\n" + textValue("ProductName", "Q9")
                + numberValue("Version", 0xffffffff) + numberValue("Language", 0x10407),
            ">>> Info about installed Velkor applications from registry:\n\n"
            "ProductName: Q9\nVersion: 255.255.65535 (raw value 0xffffffff)\nLanguage: 0x10407\n\n");
    addText("reference count of a DLL", refCountSharedDllText,
            {machineKey("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs")
                 + numberValue("C:\\\\Windows\\\\system32\\\\vkdnssd.dll", 12345),
             R"({"GetSystemWindowsDirectory": "C:\\Windows"})"},
            "RefCount for vkdnssd.dll: 12345\n");
    addText("version of DNS-SD", checkStandardBonjourText,
            {"", R"({"libraries": {"dnssd.dll": {"DNSServiceGetProperty": {"error": 0, "DaemonVersion": 4294967295}}}})"},
            "Standard Bonjour: installed.\nDNS-SD version: 429496.72.95\n");
    addText("error of DNS-SD", checkVelkorBonjourText,
            {"", R"({"libraries": {"vkdnssd.dll": {"DNSServiceGetProperty": {"error": -65537}}}})"},
            "velkor DNS-SD: installed.\nDNS-SD version:  failed to get version, error = -65537\n");
}

QString countOfSharedDll()
{
    QTest::ignoreMessage(QtWarningMsg, "velkor::SystemInfo::WinSysInfo::refCountSharedDll "
                                       "buffer for sysDir too small, need 1025\n");
    unsigned int count = 0;
    return refCountSharedDll(QStringLiteral("vkdnssd.dll"), count) ? QString::number(count) : QStringLiteral("no count");
}

void rowsOfDirectories()
{
    addText("sizes of a drive", diskInformation,
            {"", R"({"GetLogicalDrives": 4, "drives": {"C:\\": {"GetDiskFreeSpaceEx": {
                     "freeBytesAvailableToCaller": 1023, "totalNumberOfBytes": 1099511627776}}}})"},
            "Disk information: \nC:\\ Free: 1023 Byte Total: 1024.0 GByte \n");
    addText("error of GetLogicalDrives()", diskInformation, {"", R"({"GetLogicalDrives": {"error": 12345}})"},
            "Disk information: \nFailed GetLogicalDrives(), error = 12345");
    const Described longDirectories("", R"({"GetSystemWindowsDirectory": ")" + QByteArray(1024, 'w') + R"(", "GetSystemWow64Directory": ")" + QByteArray(2000, 'w') + "\"}");
    addText("long directories", windowsSystemDirectories, longDirectories,
            "Windows system directories\n"
            "buffer for sysDir too small, need 1025\n"
            "System directory:      \n"
            "buffer for wow64Dir too small, need 2001\n"
            "System Wow64 directory:  \n");
    addText("WinSxS in a long directory", winSxSDirectoryEntries, longDirectories,
            "WinSxS directory entries\n"
            "buffer for sysDir too small, need 1025\n"
            "Directory '/WinSxS' does not exist.");
    addText("warning about a long directory", countOfSharedDll, longDirectories, "no count");
    addText("environment", someEnvironmentVariables,
            {"", R"({"environment": {"OS": ")" + QByteArray(40000, 'x') + R"("}, "ExpandEnvironmentStrings": {"3": {"error": 5}}})"},
            "Some environment variables:\n"
            "Expand env var 0, buffer too small, would need 40012\n" // "OS       = ", the value, a terminator
            "PATH     = %PATH%\n"
            "HOMEPATH = %HOMEPATH%\n"
            "Expand env var 3 failed!\n"
            "PROCESSOR_IDENTIFIER = %PROCESSOR_IDENTIFIER%\n");
}

// The order of code units: capitals first, letters with diacritics last. In each thread Qt keeps
// the collator of the locale of the first comparison, so each row uses a new thread.
void rowsOfWinSxS()
{
    const auto inNewThread = [] {
        QString text;
        std::thread([&] { text = winSxSDirectoryEntries(); }).join();
        return text;
    };
    addText("order of WinSxS", inNewThread,
            {"", R"({"GetSystemWindowsDirectory": "C:\\Windows", "WinSxS": [
                     "\u00e4_microsoft.vc90.crt", "b_microsoft.vc90.crt", "Z_microsoft.vc90.crt"]})"},
            QString::fromUtf8("WinSxS directory entries\n"
                              "Z_microsoft.vc90.crt\nb_microsoft.vc90.crt\n\xc3\xa4_microsoft.vc90.crt\n"));
}

void rowsOfAdapters()
{
    constexpr int manyGateways = 1000;
    QByteArrayList gateways;
    QString gatewayLines;
    for (int number = 1; number <= manyGateways; ++number) {
        gateways += R"(["10.0.0.1", "255.0.0.0"])";
        gatewayLines += "Gateway " + QString::number(number) + ": 10.0.0.1, 255.0.0.0\n";
    }
    const QByteArray system = R"({"GetAdaptersInfo": [{"Index": 12345, "DhcpEnabled": 23456, "HaveWins": 34567,
        "DhcpServer": [["10.0.0.2", "255.0.0.0"]], "PrimaryWinsServer": ["10.0.0.3", "255.0.0.0"],
        "SecondaryWinsServer": ["10.0.0.4", "255.0.0.0"], "LeaseObtained": 1702534353,
        "LeaseExpires": 2147483648, "GatewayList": [)"
        + gateways.join(", ") + "]}]}";
    addText(
        "adapter", [] { return adapterDetails(12345); }, {"", system},
        gatewayLines
            + "DHCP enabled:  23456\n"
              "DHCP server: 10.0.0.2, 255.0.0.0\n"
              "Lease obtained: Thu Dec 14 06:12:33 2023\n"
              "Lease expires:  0x80000000\n"
              "Have WINS: 34567\n"
              "Primary WINS Server: 10.0.0.3, 255.0.0.0\n"
              "Secondary WINS Server: 10.0.0.4, 255.0.0.0\n");
}

QString processIdLine()
{
    pretendedPid = 12345678901;
    const QString text = qtCoreApplication();
    pretendedPid = 0;
    return text.section(QLatin1Char('\n'), 5, 5);
}

void rowsOfQt()
{
    addText("process ID", processIdLine, "", "Application PID:      12345678901");
    addText(
        "pointer sizes", [] { return qtGlobal().section(QLatin1Char('\n'), -3); }, "",
        "Pointer size QSysInfo::Wordsize   64bits\n"
        "Pointer size QT_POINTER_SIZE      8bytes\n");
    addText("accessibility", qtAccessibility, "", "Qt Accessibility\nQAccessible::isActive() = 0\n");
    addText("version of the library", libVersionString, "", "1.3.12");
    addText("separator", separator, "", QString(72, QLatin1Char('-')) + QLatin1Char('\n'));
}

/// The text of a section in a child process with \a screens and with the host locale of this one.
SectionRows::Section onScreens(const char *section, const QByteArray &screens)
{
    return [=] {
        QStringList environment = qt_environment::environmentWithScreens(screens);
        if (!HostLocale::current.isEmpty())
            environment += {"HOST_LOCALE=" + HostLocale::current, "LOCPATH=" + qEnvironmentVariable("LOCPATH")};
        return qt_environment::sectionText(QString::fromLatin1(section), environment);
    };
}

// The last of 1000 screens is its own virtual sibling.
void rowsOfManyScreens()
{
    const QByteArray screens = '[' + QByteArray("{},").repeated(999) + R"({"name": "last", "siblings": [999]}])";
    const auto desktop = onScreens("qtDesktop", screens);
    addText(
        "number of screens", [=] { return desktop().section(QLatin1Char('\n'), 2, 2); }, "", "Number of screens:  1000");
    addText(
        "screen 1000 of the desktop", [=] { return desktop().section(QLatin1Char('\n'), -6); }, "",
        "Screen #1000:\n"
        "  screen Geometry          width:  1000, height:  1000\n"
        "  available Geometry       width:  1000, height:  1000\n"
        "  available virt. Geometry width:  1000, height:  1000\n"
        "  virtual siblings: #1000 \n");
    const auto hardware = onScreens("qtScreens", screens);
    addText(
        "screen 1000 of the hardware", [=] { return hardware().section(QLatin1Char('\n'), -15, -14); }, "",
        "#1000\n  Name: last");
}

// 2540 mm are 100 inches, and 1905 mm are 75. The diagonal of 3175 mm is 125 inches. Neither
// orientation is a value of Qt::ScreenOrientation.
void rowsOfLargeScreen()
{
    const QByteArray screens(R"([{"name": "wall", "millimetres": [2540, 1905], "geometry": [0, 0, 123400, 92550],
                                  "available": [0, 0, 123400, 92000], "logicalDpi": [1234.5, 2345.5], "depth": 1234,
                                  "pixelRatio": 1, "refreshRate": 1234.5, "orientation": 1234, "nativeOrientation": 2345,
                                  "siblings": [0]}])");
    addText("hardware of a large screen", onScreens("qtScreens", screens), "",
            "QScreen (hardware)\n"
            "#1\n"
            "  Name: wall\n"
            "  Manufacturer: \n"
            "  Physical DPI x: 1234  y: 1234\n"
            "  Logical  DPI x: 1234.5  y: 2345.5\n"
            "  devicePixelRatio: 1\n"
            "  RefreshRate: 1234.5 Hz\n"
            "  PhysicalSize (width x height): 2540mm x 1905mm  100inch x 75inch\n"
            "                diagonal: 3175mm 125inch\n"
            "  Size (width x height): 123400 x 92550\n"
            "  Color depth: 1234\n"
            "  Orientation: 1234\n"
            "  Native Orientation: 2345\n"
            "  Primary Orientation: 2\n");
    addText("desktop of a large screen", onScreens("qtDesktop", screens), "",
            "QScreen (Desktop)\n"
            "Desktop file name: \n"
            "Number of screens:  1\n"
            "Primary screen:     wall\n"
            "Screen #1: (primary screen)\n"
            "  screen Geometry          width: 123400, height: 92550\n"
            "  available Geometry       width: 123400, height: 92000\n"
            "  available virt. Geometry width: 123400, height: 92000\n"
            "  virtual siblings: #1 \n");
}

void addRows()
{
    compileLocales();
    addTestRow("the host locales differ from C", localesDifferFromC);
    rowsOfWholeTexts();
    rowsOfVersion();
    rowsOfProcessor();
    rowsOfMemory();
    rowsOfRegistryNumbers();
    rowsOfSoftware();
    rowsOfDirectories();
    rowsOfWinSxS();
    rowsOfAdapters();
    rowsOfQt();
    rowsOfManyScreens();
    rowsOfLargeScreen();
}

} // namespace

TEST_WITH_APPLICATION(RowTest(addRows));
