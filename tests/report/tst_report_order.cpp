// allInfos() and allWinInfos(): order of the sections, headings, separators.

#include "described_windows.h"
#include "report/section_table.h"
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
#endif
};

namespace {

const char rule[] = "------------------------------------------------------------------------\n";
constexpr int ruleLength = int(sizeof rule) - 1;
const char windowsHeading[] = "############ Windows specific section ###########\n";
const char qtHeading[] = "###### System informations retrieved using Qt #######\n";

/// The report without the times, free space and free memory, which change between two calls.
QString withoutClock(const QString &report)
{
    QStringList lines = report.split(QLatin1Char('\n'));
    for (QString &line : lines) {
        if (line.startsWith(QLatin1String("Local Date and Time: ")) || line.startsWith(QLatin1String("UTC   Date and Time: ")))
            line.truncate(21); // the length of the label
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
    // Only the separator of the Windows half precedes the Qt heading; none follows it.
    COMPARE_TEXT(report.mid(qtHalf - ruleLength, ruleLength), QString(rule));
    COMPARE_TEXT(withoutClock(report.left(qtHalf)), withoutClock(WinSysInfo::allWinInfos()));
    QCOMPARE(report.count(QLatin1String(windowsHeading)), 1);
    QCOMPARE(report.count(QLatin1String(qtHeading)), 1);
}

// Date and time come first. A separator follows every section, including the last one.
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

// After a failed query a separator may follow an unfinished line.
void ReportOrderTest::everyRuleIsASeparator()
{
    const QString report = allInfos(true);
    QRegularExpression hyphens(QStringLiteral("-{29,}\n")); // the rule between driver classes has 28
    int separators = 0;
    for (auto match = hyphens.globalMatch(report); match.hasNext(); ++separators)
        QCOMPARE(match.next().captured(), QString(rule));
    int expected = 0;
    for (const Section &section : SectionTable())
        expected += section.part != Part::OpenGL && section.followed == Followed::BySeparator;
    QCOMPARE(separators, expected);
}

#ifdef SIMULATED_WINDOWS

// Every call fails. Only headings and fixed texts remain.
void ReportOrderTest::windowsHalfOfAnEmptyMachine()
{
    const DescribedWindows windows(QByteArray(), "{}");
    QFile golden(QStringLiteral(GOLDEN_DIR "/no_answers.txt"));
    QVERIFY(golden.open(QIODevice::ReadOnly));
    QTest::ignoreMessage(QtWarningMsg,
                         "velkor::SystemInfo::WinSysInfo::refCountSharedDll GetSystemWindowsDirectory returned a 0 len string\n");
    COMPARE_TEXT(WinSysInfo::allWinInfos(), QString::fromUtf8(golden.readAll()));
}

#endif

TEST_WITH_APPLICATION(ReportOrderTest);
#include "tst_report_order.moc"
