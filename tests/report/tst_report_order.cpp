// allInfos() and allWinInfos(): order, headings, separators.

#include "described_windows.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"
#include "win/windows_sections.h"

#include <QtCore/QFile>
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

// Every call fails. Headings and fixed texts remain.
void ReportOrderTest::windowsHalfOfAnEmptyMachine()
{
    const DescribedWindows windows(QByteArray(), "{}");
    QFile golden(QStringLiteral(GOLDEN_DIR "/no_answers.txt"));
    QVERIFY(golden.open(QIODevice::ReadOnly));
    QTest::ignoreMessage(QtWarningMsg,
                         "velkor::SystemInfo::WinSysInfo::refCountSharedDll GetSystemWindowsDirectory returned a 0 len string\n");
    COMPARE_TEXT(WinSysInfo::allWinInfos(), QString::fromUtf8(golden.readAll()));
}

void ReportOrderTest::separatorsOfTheWindowsHalf()
{
    const DescribedWindows windows(DescribedWindows::load(QStringLiteral("workstation")));
    const QString text = WinSysInfo::allWinInfos();
    QCOMPARE(text.count(QLatin1String(rule)), 23);
    QVERIFY(text.endsWith(QLatin1String(rule)));
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
    COMPARE_TEXT(WinSysInfo::refCountSharedDllText(), expected);
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
    COMPARE_TEXT(WinSysInfo::loadedModulesText(), expected);
}

#endif

TEST_WITH_APPLICATION(ReportOrderTest);
#include "tst_report_order.moc"
