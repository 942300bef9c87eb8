// A host may set a default QLocale and a locale of the C and C++ libraries. The report
// stays the same: no group separators, and the digits 0 to 9. Every number of the report
// that can have four digits has four or more in a row of this test.

#include <locale> // before windows.h, which forbids std::wstring

#include "described_screens.h"
#include "described_windows.h"
#include "registry_values.h"
#include "section_process.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"
#include "win/adapter_details.h"
#include "win/format_byte_size.h"
#include "win/windows_sections.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <clocale>
#include <dlfcn.h>
#include <thread>

using namespace velkor::SystemInfo;
using namespace velkor::SystemInfo::WinSysInfo;

namespace {

/// Sets the default QLocale, the global std::locale and with it that of setlocale().
/// Restores them at its end.
class HostLocale
{
public:
    /// Such as "de_DE"; empty: all stays as it is.
    explicit HostLocale(const QByteArray &name)
    {
        if (name.isEmpty())
            return;
        QLocale::setDefault(QLocale(QString::fromLatin1(name)));
        std::locale::global(std::locale((name + ".UTF-8").constData())); // setlocale() as well
    }
    ~HostLocale()
    {
        std::locale::global(m_cxxLocale);
        QLocale::setDefault(m_qtLocale);
    }
    HostLocale(const HostLocale &) = delete;
    HostLocale &operator=(const HostLocale &) = delete;

private:
    const QLocale m_qtLocale;
    const std::locale m_cxxLocale;
};

const char *const hostLocales[] = {"", "de_DE", "ar_EG"};

qint64 pretendedPid = 0; // 0: the real one

} // namespace

// The linker finds this one before Qt's own.
qint64 QCoreApplication::applicationPid()
{
    using Function = qint64 (*)();
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "_ZN16QCoreApplication14applicationPidEv"));
    return pretendedPid ? pretendedPid : real();
}

class HostLocaleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void localesAreOthers();
    void wholeReport_data();
    void wholeReport();
    void windowsHalfOfTheWorkstation_data();
    void windowsHalfOfTheWorkstation();
    void numbersOfWindows_data();
    void numbersOfWindows();
    void numberOfTheWarning();
    void byteSizes();
    void processId();
    void constantsOfQt();
    void libraryVersion();
    void manyScreens_data();
    void manyScreens();
    void numbersOfAScreen_data();
    void numbersOfAScreen();
    void orderOfWinSxS();

private:
    QTemporaryDir m_locales;
};

namespace {

void addHostLocales()
{
    QTest::addColumn<QByteArray>("hostLocale");
    QTest::newRow("none of its own") << QByteArray();
    QTest::newRow("Germany") << QByteArray("de_DE");
    QTest::newRow("Egypt") << QByteArray("ar_EG");
}

/// The report with what changes from one moment to the next taken out.
QString withoutMoment(const QString &report)
{
    QStringList lines = report.split(QLatin1Char('\n'));
    for (QString &line : lines) {
        if (line.startsWith(QLatin1String("Local Date and Time: ")) || line.startsWith(QLatin1String("UTC   Date and Time: ")))
            line.truncate(21);
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

// Debian's C library has no locale but C.UTF-8 until somebody generates one.
void HostLocaleTest::initTestCase()
{
    for (const QString &name : {QStringLiteral("de_DE"), QStringLiteral("ar_EG")}) {
        QProcess localedef;
        localedef.start(QStringLiteral("localedef"),
                        {"--no-archive", "-c", "-f", "UTF-8", "-i", name, m_locales.filePath(name + ".UTF-8")});
        QVERIFY2(localedef.waitForFinished(120000) && QFile::exists(m_locales.filePath(name + ".UTF-8/LC_NUMERIC")),
                 localedef.readAllStandardError().constData());
    }
    qputenv("LOCPATH", QFile::encodeName(m_locales.path()));
}

// The other tests prove nothing without this.
void HostLocaleTest::localesAreOthers()
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

void HostLocaleTest::wholeReport_data()
{
    addHostLocales();
}

void HostLocaleTest::wholeReport()
{
    QFETCH(QByteArray, hostLocale);
    QString expected;
    {
        const DescribedWindows windows(DescribedWindows::load(QStringLiteral("workstation")));
        expected = withoutMoment(allInfos(true));
    }
    const DescribedWindows windows(DescribedWindows::load(QStringLiteral("workstation")));
    const HostLocale locale(hostLocale);
    COMPARE_TEXT(withoutMoment(allInfos(true)), expected);
}

void HostLocaleTest::windowsHalfOfTheWorkstation_data()
{
    addHostLocales();
}

void HostLocaleTest::windowsHalfOfTheWorkstation()
{
    QFETCH(QByteArray, hostLocale);
    QFile golden(QStringLiteral(GOLDEN_DIR "/workstation/all_win_infos.txt"));
    QVERIFY(golden.open(QIODevice::ReadOnly));
    const DescribedWindows windows(DescribedWindows::load(QStringLiteral("workstation")));
    const HostLocale locale(hostLocale);
    COMPARE_TEXT(allWinInfos(), QString::fromUtf8(golden.readAll()));
}

namespace {

using SectionFunction = QString (*)();

void addNumbers(const char *name, SectionFunction section, const QByteArray &registry, const QByteArray &system,
                const QString &expected)
{
    for (const char *hostLocale : hostLocales)
        QTest::addRow("%s %s", name, hostLocale) << QByteArray(hostLocale) << section << registry << system << expected;
}

void rowsOfVersion()
{
    addNumbers(
        "versions", [] { return windowsVersion(true); },
        machineKey("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion")
            + numberValue("CurrentMajorVersionNumber", 12345) + numberValue("CurrentMinorVersionNumber", 23456)
            + textValue("CurrentBuildNumber", "34567") + numberValue("UBR", 45678),
        R"({"GetVersionEx": {"dwMajorVersion": 56789, "dwMinorVersion": 67890, "dwBuildNumber": 78901}})",
        "Windows version: \n"
        "Version (major.minor.build): \n"
        "From GetVersionEx: 56789.67890.78901\n"
        "From registry:     12345.23456.34567.45678\n"
        "                   Windows unknown major version\n"
        "Last service pack installed: \n");
    addNumbers("an edition without a name", platformName, QByteArray(),
               R"({"GetVersionEx": {"dwMajorVersion": 6, "dwMinorVersion": 1, "wProductType": 1},
                   "GetProductInfo": {"dwReturnedProductType": "0x12345678"}})",
               "Windows 7 0x12345678, 64-bit");
}

void rowsOfProcessor()
{
    addNumbers("processors", processorInfo, QByteArray(),
               R"({"GetSystemInfo": {
                   "wProcessorArchitecture": 9, "dwPageSize": 65536,
                   "lpMinimumApplicationAddress": "0x10000", "lpMaximumApplicationAddress": "0x7ffffffeffff",
                   "dwActiveProcessorMask": "0x80000001", "dwNumberOfProcessors": 12345, "dwProcessorType": 8664,
                   "dwAllocationGranularity": 1048576, "wProcessorLevel": 23456, "wProcessorRevision": 34567}})",
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
    addNumbers("processors of the registry", processorRegistryInfo,
               machineKey("Hardware\\Description\\System\\CentralProcessor\\0") + numberValue("~MHZ", 1234567)
                   + numberValue("FeatureSet", 0x12345678)
                   + machineKey("Hardware\\Description\\System\\CentralProcessor\\1") + numberValue("~MHZ", 1005),
               QByteArray("{}"),
               "Central Processor information from Registry\n"
               "Processor #0\n"
               "MHZ:                  1234567 MHz = 1234.567 GHz\n"
               "FeatureSet:           0x12345678\n"
               "Processor #1\n"
               "MHZ:                  1005 MHz = 1.005 GHz\n");
}

void rowsOfMemory()
{
    addNumbers("memory", memoryInfo, QByteArray(),
               R"({"GlobalMemoryStatusEx": {
                   "dwMemoryLoad": 1234, "ullTotalPhys": 1099511627776, "ullAvailPhys": 1072693248,
                   "ullTotalPageFile": 1047552, "ullAvailPageFile": 1023,
                   "ullTotalVirtual": "0xffffffffffffffff", "ullAvailVirtual": "0x7ffffffe0000"}})",
               "Memory Information:\n"
               "MemoryLoad:            1234%\n"
               "TotalPhys:             1099511627776 Byte = 1024.0 GByte\n"
               "AvailPhys:             1072693248 Byte = 1023.0 MByte\n"
               "TotalPageFile:         1047552 Byte = 1023.0 KByte\n"
               "AvailPageFile:         1023 Byte = 1023 Byte\n"
               "TotalVirtual:          18446744073709551615 Byte = 17179869183.9 GByte\n"
               "AvailVirtual:          140737488224256 Byte = 131071.9 GByte\n");
    addNumbers("registry quota", registryQuota, QByteArray(),
               R"({"GetSystemRegistryQuota": {"allowed": 4294967295, "used": 1234567}})",
               "Registry quota:\n"
               "Used [bytes]:           1234567\n"
               "Allowed [bytes]:        4294967295\n");
}

void rowsOfDescriptions()
{
    addNumbers("time zone", timeZoneInfoFromRegistry,
               machineKey("SYSTEM\\CurrentControlSet\\Control\\TimeZoneInformation")
                   + numberValue("ActiveTimeBias", quint32(-1234)) + numberValue("Bias", 2345)
                   + numberValue("DaylightBias", quint32(-3456)) + numberValue("StandardBias", 4567),
               QByteArray("{}"),
               "Time Zone information from Registry\n"
               "ActiveTimeBias: -1234 min (offset to UTC)\n"
               "Bias:           2345 min (offset to UTC)\n"
               "DaylightBias:   -3456 min (additional offset if daylight saving is active)\n"
               "StandardBias:   4567 min (additional offset if no daylight saving is active)\n");
    addNumbers("source of information", systemInformationFromRegistry,
               machineKey("SYSTEM\\CurrentControlSet\\Control\\SystemInformation")
                   + numberValue("InformationSource", quint32(-12345)),
               QByteArray("{}"), "SystemInformation from Registry\nInformationSource:   -12345 \n");
    addNumbers("video", videoInfoFromRegistry,
               machineKey("SYSTEM\\CurrentControlSet\\Control\\Video\\{A}\\Video")
                   + machineKey("SYSTEM\\CurrentControlSet\\Control\\Video\\{A}\\0000")
                   + hexValue("HardwareInformation.qwMemorySize", 11, QByteArray("\0\0\0\0\0\1\0\0", 8))
                   + numberValue("OpenGLVersion", 65536) + numberValue("OpenGLVersionWoW", 65537)
                   + numberValue("OpenGLFlags", 12345) + numberValue("OpenGLFlagsWoW", 23456),
               QByteArray("{}"),
               ">>> Info about video from registry:\n\n"
               "0000\n"
               "   Video Memory: 1024.0 GByte\n"
               "   OpenGL Version: 65536 = 0x10000\n"
               "   OpenGL Version WoW: 65537 = 0x10001\n"
               "   OpenGL Flags: 12345 = 0x3039\n"
               "   OpenGL Flags WoW: 23456 = 0x5ba0\n");
    // A name whose bytes read "Properties"; the key that is opened for it stands beside it.
    addNumbers("properties of a device class", driverInfoFromRegistry,
               machineKey("SYSTEM\\CurrentControlSet\\Control\\Class\\{1}") + textValue("Class", "Net")
                   + machineKey("SYSTEM\\CurrentControlSet\\Control\\Class\\{1}\\?????") + numberValue("DeviceType", 123456)
                   + numberValue("DeviceCharacteristics", 12345)
                   + machineKey("SYSTEM\\CurrentControlSet\\Control\\Class\\{1}\\"
                                + QString::fromUtf16(u"\u7250\u706f\u7265\u6974\u7365").toUtf8()),
               QByteArray("{}"),
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
    addNumbers("version of a product", installedApplicationsFromRegistry,
               "[HKEY_CLASSES_ROOT\\Installer\\Products\\A1]\n" + textValue("ProductName", "Q9")
                   + numberValue("Version", 0xffffffff) + numberValue("Language", 0x10407),
               QByteArray("{}"),
               ">>> Info about installed Velkor applications from registry:\n\n"
               "ProductName: Q9\n"
               "Version: 255.255.65535 (raw value 0xffffffff)\n"
               "Language: 0x10407\n"
               "\n");
    addNumbers("counted library", refCountSharedDllText,
               machineKey("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs")
                   + numberValue("C:\\\\Windows\\\\system32\\\\vkdnssd.dll", 12345),
               R"({"GetSystemWindowsDirectory": "C:\\Windows"})", "RefCount for vkdnssd.dll: 12345\n");
    addNumbers("version of DNS-SD", checkStandardBonjourText, QByteArray(),
               R"({"libraries": {"dnssd.dll": {"DNSServiceGetProperty": {"error": 0, "DaemonVersion": 4294967295}}}})",
               "Standard Bonjour: installed.\nDNS-SD version: 429496.72.95\n");
    addNumbers("error of DNS-SD", checkVelkorBonjourText, QByteArray(),
               R"({"libraries": {"vkdnssd.dll": {"DNSServiceGetProperty": {"error": -65537}}}})",
               "velkor DNS-SD: installed.\nDNS-SD version:  failed to get version, error = -65537\n");
}

void rowsOfDirectories()
{
    addNumbers("sizes of a drive", diskInformation, QByteArray(),
               R"({"GetLogicalDrives": 4, "drives": {"C:\\": {"GetDiskFreeSpaceEx": {
                   "freeBytesAvailableToCaller": 1023, "totalNumberOfBytes": 1099511627776}}}})",
               "Disk information: \nC:\\ Free: 1023 Byte Total: 1024.0 GByte \n");
    addNumbers("error of the drives", diskInformation, QByteArray(), R"({"GetLogicalDrives": {"error": 12345}})",
               "Disk information: \nFailed GetLogicalDrives(), error = 12345");
    const QByteArray longDirectories = R"({"GetSystemWindowsDirectory": ")" + QByteArray(1024, 'w')
        + R"(", "GetSystemWow64Directory": ")" + QByteArray(2000, 'w') + "\"}";
    addNumbers("long directories", windowsSystemDirectories, QByteArray(), longDirectories,
               "Windows system directories\n"
               "buffer for sysDir too small, need 1025\n"
               "System directory:      \n"
               "buffer for wow64Dir too small, need 2001\n"
               "System Wow64 directory:  \n");
    addNumbers("WinSxS of a long directory", winSxSDirectoryEntries, QByteArray(), longDirectories,
               "WinSxS directory entries\n"
               "buffer for sysDir too small, need 1025\n"
               "Directory '/WinSxS' does not exist.");
    // 11 characters before the value, 40000 of it and the terminator
    addNumbers("environment", someEnvironmentVariables, QByteArray(),
               R"({"environment": {"OS": ")" + QByteArray(40000, 'x') + R"("},
                   "ExpandEnvironmentStrings": {"3": {"error": 5}}})",
               "Some environment variables:\n"
               "Expand env var 0, buffer too small, would need 40012\n"
               "PATH     = %PATH%\n"
               "HOMEPATH = %HOMEPATH%\n"
               "Expand env var 3 failed!\n"
               "PROCESSOR_IDENTIFIER = %PROCESSOR_IDENTIFIER%\n");
}

constexpr int manyGateways = 1000;

void rowsOfAdapters()
{
    QByteArray gateways;
    QString gatewayLines;
    for (int number = 1; number <= manyGateways; ++number) {
        gateways += QByteArray(number == 1 ? "" : ", ") + R"(["10.0.0.1", "255.0.0.0"])";
        gatewayLines += "Gateway " + QString::number(number) + ": 10.0.0.1, 255.0.0.0\n";
    }
    addNumbers(
        "adapter", [] { return adapterDetails(12345); }, QByteArray(),
        R"({"GetAdaptersInfo": [{"Index": 12345, "DhcpEnabled": 23456, "HaveWins": 34567, "GatewayList": [)" + gateways
            + R"(], "DhcpServer": [["10.0.0.2", "255.0.0.0"]], "PrimaryWinsServer": ["10.0.0.3", "255.0.0.0"],
                   "SecondaryWinsServer": ["10.0.0.4", "255.0.0.0"], "LeaseObtained": 1702534353,
                   "LeaseExpires": 2147483648}]})",
        gatewayLines
            + "DHCP enabled:  23456\n"
              "DHCP server: 10.0.0.2, 255.0.0.0\n"
              "Lease obtained: Thu Dec 14 06:12:33 2023\n"
              "Lease expires:  0x80000000\n"
              "Have WINS: 34567\n"
              "Primary WINS Server: 10.0.0.3, 255.0.0.0\n"
              "Secondary WINS Server: 10.0.0.4, 255.0.0.0\n");
}

} // namespace

Q_DECLARE_METATYPE(SectionFunction)

void HostLocaleTest::numbersOfWindows_data()
{
    QTest::addColumn<QByteArray>("hostLocale");
    QTest::addColumn<SectionFunction>("section");
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("expected");
    rowsOfVersion();
    rowsOfProcessor();
    rowsOfMemory();
    rowsOfDescriptions();
    rowsOfSoftware();
    rowsOfDirectories();
    rowsOfAdapters();
}

void HostLocaleTest::numbersOfWindows()
{
    QFETCH(QByteArray, hostLocale);
    QFETCH(SectionFunction, section);
    QFETCH(QByteArray, registry);
    QFETCH(QByteArray, system);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry, system.isEmpty() ? QByteArray("{}") : system);
    const HostLocale locale(hostLocale);
    COMPARE_TEXT(section(), expected);
}

void HostLocaleTest::numberOfTheWarning()
{
    for (const char *hostLocale : hostLocales) {
        const DescribedWindows windows(QByteArray(), R"({"GetSystemWindowsDirectory": ")" + QByteArray(1024, 'w') + "\"}");
        const HostLocale locale(hostLocale);
        QTest::ignoreMessage(QtWarningMsg, "velkor::SystemInfo::WinSysInfo::refCountSharedDll "
                                           "buffer for sysDir too small, need 1025\n");
        unsigned int count = 0;
        QVERIFY(!refCountSharedDll(QStringLiteral("vkdnssd.dll"), count));
    }
}

void HostLocaleTest::byteSizes()
{
    for (const char *hostLocale : hostLocales) {
        const HostLocale locale(hostLocale);
        QCOMPARE(formatByteSize(1000), QStringLiteral("1000 Byte"));
        QCOMPARE(formatByteSize(quint64(1000) << 10), QStringLiteral("1000.0 KByte"));
        QCOMPARE(formatByteSize(quint64(1000) << 20), QStringLiteral("1000.0 MByte"));
        QCOMPARE(formatByteSize(quint64(1000) << 30), QStringLiteral("1000.0 GByte"));
    }
}

void HostLocaleTest::processId()
{
    for (const char *hostLocale : hostLocales) {
        const HostLocale locale(hostLocale);
        pretendedPid = 12345678901;
        const QString text = qtCoreApplication();
        pretendedPid = 0;
        COMPARE_TEXT(text.section(QLatin1Char('\n'), 5, 5), QStringLiteral("Application PID:      12345678901"));
    }
}

void HostLocaleTest::constantsOfQt()
{
    for (const char *hostLocale : hostLocales) {
        const HostLocale locale(hostLocale);
        const QString text = qtGlobal();
        QVERIFY2(text.endsWith(QLatin1String("\nPointer size QSysInfo::Wordsize   64bits\n"
                                             "Pointer size QT_POINTER_SIZE      8bytes\n")),
                 qPrintable(text));
        COMPARE_TEXT(qtAccessibility(), QStringLiteral("Qt Accessibility\nQAccessible::isActive() = 0\n"));
    }
}

void HostLocaleTest::libraryVersion()
{
    for (const char *hostLocale : hostLocales) {
        const HostLocale locale(hostLocale);
        QCOMPARE(libVersionString(), QStringLiteral("1.3.12"));
        QCOMPARE(separator(), QString(72, QLatin1Char('-')) + QLatin1Char('\n'));
    }
}

namespace {

/// A section with screens, in a process with that host locale.
QString textWithScreens(const char *section, const QByteArray &screens, const QByteArray &hostLocale)
{
    QStringList environment = qt_environment::environmentWithScreens(screens);
    if (!hostLocale.isEmpty()) {
        environment += {QStringLiteral("HOST_LOCALE=") + QString::fromLatin1(hostLocale),
                        QStringLiteral("LOCPATH=") + qEnvironmentVariable("LOCPATH")};
    }
    return qt_environment::sectionText(QString::fromLatin1(section), environment);
}

} // namespace

void HostLocaleTest::manyScreens_data()
{
    addHostLocales();
}

// 1000 screens, the last of which has a sibling: itself.
void HostLocaleTest::manyScreens()
{
    QFETCH(QByteArray, hostLocale);
    const QByteArray screens = '[' + QByteArray("{},").repeated(999) + R"({"name": "last", "siblings": [999]}])";
    const QString desktop = textWithScreens("qtDesktop", screens, hostLocale);
    COMPARE_TEXT(desktop.section(QLatin1Char('\n'), 2, 2), QStringLiteral("Number of screens:  1000"));
    COMPARE_TEXT(desktop.section(QLatin1Char('\n'), -6),
                 QStringLiteral("Screen #1000:\n"
                                "  screen Geometry          width:  1000, height:  1000\n"
                                "  available Geometry       width:  1000, height:  1000\n"
                                "  available virt. Geometry width:  1000, height:  1000\n"
                                "  virtual siblings: #1000 \n"));
    const QString hardware = textWithScreens("qtScreens", screens, hostLocale);
    QVERIFY2(hardware.contains(QLatin1String("\n#1000\n  Name: last\n")), qPrintable(hardware.right(1000)));
}

void HostLocaleTest::numbersOfAScreen_data()
{
    addHostLocales();
}

// 2540 mm are 100 inches, 1905 mm are 75; together they make a diagonal of 3175 mm,
// which are 125 inches. The orientations are no numbers that Qt knows.
void HostLocaleTest::numbersOfAScreen()
{
    QFETCH(QByteArray, hostLocale);
    const QByteArray screens(R"([{"name": "wall", "millimetres": [2540, 1905], "geometry": [0, 0, 123400, 92550],
                                  "available": [0, 0, 123400, 92000], "logicalDpi": [1234.5, 2345.5], "depth": 1234,
                                  "pixelRatio": 1, "refreshRate": 1234.5, "orientation": 1234, "nativeOrientation": 2345,
                                  "siblings": [0]}])");
    COMPARE_TEXT(textWithScreens("qtScreens", screens, hostLocale),
                 QStringLiteral("QScreen (hardware)\n"
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
                                "  Primary Orientation: 2\n"));
    COMPARE_TEXT(textWithScreens("qtDesktop", screens, hostLocale),
                 QStringLiteral("QScreen (Desktop)\n"
                                "Desktop file name: \n"
                                "Number of screens:  1\n"
                                "Primary screen:     wall\n"
                                "Screen #1: (primary screen)\n"
                                "  screen Geometry          width: 123400, height: 92550\n"
                                "  available Geometry       width: 123400, height: 92000\n"
                                "  available virt. Geometry width: 123400, height: 92000\n"
                                "  virtual siblings: #1 \n"));
}

// By code units: capitals first, letters with marks last. In each thread Qt keeps the
// collator of the first comparison by locale, so each locale gets a thread.
void HostLocaleTest::orderOfWinSxS()
{
    const DescribedWindows windows(QByteArray(),
                                   R"({"GetSystemWindowsDirectory": "C:\\Windows", "WinSxS": [
                                       "\u00e4_microsoft.vc90.crt", "b_microsoft.vc90.crt", "Z_microsoft.vc90.crt"]})");
    for (const char *hostLocale : hostLocales) {
        const HostLocale locale(hostLocale);
        QString text;
        std::thread([&] { text = winSxSDirectoryEntries(); }).join();
        COMPARE_TEXT(text, QStringLiteral("WinSxS directory entries\n"
                                          "Z_microsoft.vc90.crt\n"
                                          "b_microsoft.vc90.crt\n")
                         + QChar(0xe4) + QStringLiteral("_microsoft.vc90.crt\n"));
    }
}

TEST_WITH_APPLICATION(HostLocaleTest);
#include "tst_host_locale.moc"
