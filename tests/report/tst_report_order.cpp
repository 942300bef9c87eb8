// allInfos() and allWinInfos(): order, headings, separators.

#include "described_windows.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"
#include "win/windows_sections.h"

#include <QtCore/QRegularExpression>

using namespace velkor::SystemInfo;

class ReportOrderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noCarriageReturns();
    void windowsHalfComesFirst();
    void qtHalfWithoutOpenGL();
    void everyRuleIsASeparator();
#ifdef SIMULATED_WINDOWS
    void windowsHalfOfAnEmptyMachine();
    void separatorsOfTheWindowsHalf();
    void groupsOfTheWindowsHalf();
    void refCountLine_data();
    void refCountLine();
    void loadedModules_data();
    void loadedModules();
#endif
};

namespace {

const char rule[] = "------------------------------------------------------------------------\n";
const char windowsHeading[] = "############ Windows specific section ###########\n";
const char qtHeading[] = "###### System informations retrieved using Qt #######\n";

/// The report with what changes from one moment to the next taken out.
QString withoutClock(const QString &report)
{
    QStringList lines = report.split(QLatin1Char('\n'));
    for (QString &line : lines) {
        if (line.startsWith(QLatin1String("Local Date and Time: ")) || line.startsWith(QLatin1String("UTC   Date and Time: ")))
            line.truncate(21);
        if (line.startsWith(QLatin1String("AvailP")) || line.startsWith(QLatin1String("AvailV"))
            || line.startsWith(QLatin1String("MemoryLoad")) || line.contains(QLatin1String("Free: ")))
            line.clear();
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

void ReportOrderTest::noCarriageReturns()
{
    QVERIFY(!allInfos(true).contains(QLatin1Char('\r')));
}

void ReportOrderTest::windowsHalfComesFirst()
{
    const QString report = allInfos(true);
    QVERIFY(report.startsWith(QLatin1String(windowsHeading)));
    const int qtHalf = report.indexOf(QLatin1String(qtHeading));
    QVERIFY(qtHalf > 0);
    // Only the Windows half's own separator stands before the Qt heading, none behind it.
    COMPARE_TEXT(report.mid(qtHalf - 73, 73), QString(rule));
    COMPARE_TEXT(withoutClock(report.left(qtHalf)), withoutClock(WinSysInfo::allWinInfos()));
    QCOMPARE(report.count(QLatin1String(windowsHeading)), 1);
    QCOMPARE(report.count(QLatin1String(qtHeading)), 1);
}

// Date and time come first, and one separator follows every section, the last too.
void ReportOrderTest::qtHalfWithoutOpenGL()
{
    const QString report = allInfos(true);
    const QString qtHalf = report.mid(report.indexOf(QLatin1String(qtHeading)) + int(qstrlen(qtHeading)));
    const int network = qtHalf.indexOf(QLatin1String("Network Interfaces Info\n"));
    const int environment = qtHalf.indexOf(QLatin1String(rule) + qtSystemEnvironment());
    QVERIFY(network > 0 && environment > network);
    const QString expected = qtDateTime() + rule + qtGlobal() + rule + qtCoreApplication() + rule + qtLocale() + rule
        + qtScreens() + rule + qtDesktop() + rule + qtDesktopServices() + rule + qtAccessibility() + rule
        + qtPrinterInfo() + rule + qtHostInfo() + rule + qtHalf.mid(network, environment - network) + rule
        + qtSystemEnvironment() + rule;
    COMPARE_TEXT(withoutClock(qtHalf), withoutClock(expected));
    QVERIFY(!qtHalf.contains(QLatin1String("QGLFormat")));
}

// A line that a failed query left open runs into the separator behind it.
void ReportOrderTest::everyRuleIsASeparator()
{
    const QString report = allInfos(true);
    QRegularExpression hyphens(QStringLiteral("-{29,}\n")); // 28 divide driver classes
    int separators = 0;
    for (auto match = hyphens.globalMatch(report); match.hasNext(); ++separators)
        QCOMPARE(match.next().captured(), QString(rule));
    QCOMPARE(separators, 23 + 12);
}

#ifdef SIMULATED_WINDOWS

// Everything that can fail fails: what stays are headings and fixed texts.
void ReportOrderTest::windowsHalfOfAnEmptyMachine()
{
    const DescribedWindows windows(QByteArray(), "{}");
    const QString r(rule);
    const QString expected = QString(windowsHeading)
        + "Windows version: \nGetVersionExA(&osver) failed!\n"
        + "Windows version information from Registry\n" + r
        + "This is a 64bit application.\n" + r
        + "Internet Explorer information from Registry\n<failed to open registry key '%1'" + r
        + "Processor information: \n"
          "Processor architecture:       x86 (32/64bit)\n"
          "Number of processors:       0\n"
          "Active processors:          \n"
          "Processor type:             unknown\n"
          "Processor revision:         0 = 0x0000\n"
          "Processor level:            0\n"
          "Page size:                  0\n"
          "Minimum Application Address 0x0000000000000000\n"
          "Maximum Application Address 0x0000000000000000\n"
          "Allocation Granularity:     0 = 0x00000000\n"
          "Central Processor information from Registry\n"
        + r
        + "Memory Information:\n" + r
        + "Computer name\n" + r
        + "OEM Information from Registry\nGetVersionExA(&osver) failed!\n" + r
        + "SystemInformation from Registry\n" + r
        + "BIOS information from Registry\n" + r
        + ">>> Info about video from registry:\n\n" + r
        + ">>> Info about drivers from registry:\n\n" + r
        + "Time Zone information from Registry\n" + r
        + ">>> Info about installed Velkor applications from registry:\n\n"
          ">>> Info about installed Velkor Visual Basic applications from registry:\n\n"
        + r
        + "WinSxS directory entries\n" + r
        + "Some environment variables:\n"
          "OS       = %OS%\n"
          "PATH     = %PATH%\n"
          "HOMEPATH = %HOMEPATH%\n"
          "TEMP     = %TEMP%\n"
          "PROCESSOR_IDENTIFIER = %PROCESSOR_IDENTIFIER%\n"
        + r
        + "Disk information: \nFailed GetLogicalDrives(), error = 0" + r
        + ">>> Info about 'FDC' disk devices from registry:\n"
          ">>> Info about 'IDE' disk devices from registry:\n"
          ">>> Info about 'SCSI' disk devices from registry:\n"
          ">>> Info about 'USBSTOR' disk devices from registry:\n"
        + r
        + ">> Info about 'PARALLEL PORTS' ports from registry:\n"
          ">> Info about 'SERIALCOMM' ports from registry:\n"
        + r
        + "Registry quota:\n" + r
        + "Windows system directories\n"
          "Special Folders: \n"
          "CSIDL_PERSONAL    \n"
          "CSIDL_PROGRAMS    \n"
          "CSIDL_PROGRAM_FILES    \n"
          "CSIDL_LOCAL_APPDATA    \n"
          "CSIDL_APPDATA    \n"
        + r
        + "Standard Bonjour: not installed.\n" + r
        + "velkor DNS-SD: not installed.\n"
          "RefCount for vkdnssd.dll: failed to get refCount!\n"
        + r
        + "Loaded modules/DLLs:\n" + r;
    QTest::ignoreMessage(QtWarningMsg,
                         "velkor::SystemInfo::WinSysInfo::refCountSharedDll GetSystemWindowsDirectory returned a 0 len string\n");
    COMPARE_TEXT(WinSysInfo::allWinInfos(), expected);
}

void ReportOrderTest::separatorsOfTheWindowsHalf()
{
    const DescribedWindows windows(DescribedWindows::load(QStringLiteral("workstation")));
    const QString text = WinSysInfo::allWinInfos();
    QCOMPARE(text.count(QLatin1String(rule)), 23);
    QVERIFY(text.endsWith(QLatin1String(rule)));
}

// Which sections share a group, by their first lines.
void ReportOrderTest::groupsOfTheWindowsHalf()
{
    const DescribedWindows windows(DescribedWindows::load(QStringLiteral("workstation")));
    const QStringList groups = WinSysInfo::allWinInfos().split(QLatin1String(rule));
    const QStringList firstLines = {
        "############ Windows specific section ###########",
        "This is a 64bit application.",
        "Internet Explorer information from Registry",
        "Processor information: ",
        "Memory Information:",
        "Computer name",
        "OEM Information from Registry",
        "SystemInformation from Registry",
        "BIOS information from Registry",
        ">>> Info about video from registry:",
        ">>> Info about drivers from registry:",
        "Time Zone information from Registry",
        ">>> Info about installed Velkor applications from registry:",
        "WinSxS directory entries",
        "Some environment variables:",
        "Disk information: ",
        ">>> Info about 'FDC' disk devices from registry:",
        ">> Info about 'PARALLEL PORTS' ports from registry:",
        "Registry quota:",
        "Windows system directories",
        "Standard Bonjour: installed.",
        "velkor DNS-SD: installed.",
        "Loaded modules/DLLs:",
        "",
    };
    QStringList actual;
    for (const QString &group : groups)
        actual += group.section(QLatin1Char('\n'), 0, 0);
    QCOMPARE(actual, firstLines);
    QVERIFY(groups.at(0).contains(QLatin1String("\nWindows version information from Registry\n")));
    QVERIFY(groups.at(3).contains(QLatin1String("\nCentral Processor information from Registry\n")));
    QVERIFY(groups.at(5).contains(QLatin1String("\nUser name:                    ")));
    QVERIFY(groups.at(12).contains(QLatin1String("\n>>> Info about installed Velkor Visual Basic applications from registry:\n")));
    QVERIFY(groups.at(19).contains(QLatin1String("\nSpecial Folders: \n")));
    QVERIFY(groups.at(21).contains(QLatin1String("\nRefCount for vkdnssd.dll: 2\n")));
}

void ReportOrderTest::refCountLine_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("expected");
    const QByteArray key = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs]\n";
    QTest::newRow("counted") << key + "\"C:\\\\Windows\\\\system32\\\\vkdnssd.dll\"=dword:00000003\n"
                             << "RefCount for vkdnssd.dll: 3\n";
    QTest::newRow("an unsigned number") << key + "\"C:\\\\Windows\\\\system32\\\\vkdnssd.dll\"=dword:ffffffff\n"
                                        << "RefCount for vkdnssd.dll: 4294967295\n";
    QTest::newRow("not counted") << key << "RefCount for vkdnssd.dll: failed to get refCount!\n";
}

void ReportOrderTest::refCountLine()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry, "{\"GetSystemWindowsDirectory\": \"C:\\\\Windows\"}");
    COMPARE_TEXT(WinSysInfo::sharedDllRefCount(), expected);
}

void ReportOrderTest::loadedModules_data()
{
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("expected");
    QTest::newRow("in list order") << QByteArray("{\"EnumProcessModules\": [\"C:\\\\b.exe\", \"C:\\\\a.dll\"]}")
                                   << "Loaded modules/DLLs:\nC:\\b.exe\nC:\\a.dll\n";
    QTest::newRow("an empty list: the heading alone") << QByteArray("{\"EnumProcessModules\": []}") << "Loaded modules/DLLs:\n";
}

void ReportOrderTest::loadedModules()
{
    QFETCH(QByteArray, system);
    QFETCH(QString, expected);
    const DescribedWindows windows(QByteArray(), system);
    COMPARE_TEXT(WinSysInfo::loadedModulesList(), expected);
}

#endif

TEST_WITH_APPLICATION(ReportOrderTest);
#include "tst_report_order.moc"
