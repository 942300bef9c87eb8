// What vkreplay says about a report and the description of the same machine.

#include "capture_comparison.h"
#include "capture_redaction.h"
#include "described_windows.h"
#include "line_pairs.h"
#include "test_main.h"
#include "win/windows_sections.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>

using namespace velkor;

class CaptureComparisonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameTexts();
    void verdicts_data();
    void verdicts();
    void otherOrderOfARedactedReport();
    void longAliases();
    void missingSections();
    void text();
    void captureFile();
    void wrongCaptureFiles_data();
    void wrongCaptureFiles();
    void equalLinesOfTexts_data();
    void equalLinesOfTexts();
    void largeTexts();
};

namespace {

QByteArray workstationReport()
{
    QFile file(QStringLiteral(REPORTS_DATA_DIR "/workstation.txt"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read the report");
    return file.readAll();
}

QByteArray replayed(const machine::Machine &machine)
{
    const DescribedWindows windows(machine);
    return SystemInfo::WinSysInfo::allWinInfos().toUtf8();
}

QByteArray windowsHalf(const QByteArray &report)
{
    return report.left(report.indexOf(Reports::halfHeading(Reports::Half::Qt)));
}

/// Verdict, section, number and text of each line, such as "moment memoryInfo 43 report".
QStringList differences(const CaptureComparison &comparison)
{
    QStringList lines;
    for (const QByteArray &line : captureComparisonText(comparison).split('\n'))
        lines += QString::fromUtf8(line);
    lines.removeLast(); // after the last line feed
    lines.removeLast(); // the counts
    return lines;
}

CaptureComparison compared(const QByteArray &report, const QByteArray &replay, const CaptureNotes &notes = {})
{
    return compareCapture(Reports::read(report), replay, notes);
}

QByteArray replaced(QByteArray text, const QByteArray &before, const QByteArray &after)
{
    const int at = text.indexOf(before);
    if (at < 0)
        qFatal("'%s' is not in the text", before.constData());
    return text.replace(at, before.size(), after);
}

} // namespace

void CaptureComparisonTest::sameTexts()
{
    const QByteArray report = workstationReport();
    const CaptureComparison comparison = compared(report, windowsHalf(report));
    QCOMPARE(differences(comparison), QStringList());
    QCOMPARE(comparison.same, windowsHalf(report).count('\n'));
    QCOMPARE(comparison.same + comparison.notCompared, report.count('\n'));
    QByteArray withCarriageReturns = report;
    withCarriageReturns.replace('\n', "\r\n");
    QCOMPARE(differences(compared(withCarriageReturns, windowsHalf(report))), QStringList());
}

void CaptureComparisonTest::verdicts_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after"); // in the replay
    QTest::addColumn<QStringList>("verdicts");
    const auto row = [](const char *name, const char *before, const char *after, const QStringList &verdicts) {
        QTest::newRow(name) << QByteArray(before) << QByteArray(after) << verdicts;
    };
    row("free memory", "AvailPhys:             9216737280", "AvailPhys:             9", {"moment", "moment"});
    row("free space", "Free: 100.9 GByte", "Free: 100.8 GByte", {"moment", "moment"});
    row("size of a drive", "Total: 237.7 GByte", "Total: 237.9 GByte", {"FAILED", "FAILED"});
    row("label of a drive", "  Windows  Free", "  Fenster  Free", {"FAILED", "FAILED"});
    row("free space and label", "Windows  Free: 100.9", "Fenster  Free: 100.8", {"FAILED", "FAILED"});
    row("a variable", "HOMEPATH = ", "HOMEPATH = C:", {"host", "host"});
    row("a variable that is not there", "OS       = Windows_NT\n", "", {"FAILED"});
    row("numbers of the release", "From GetVersionEx: 6.2.9200", "From GetVersionEx: 10.0.19045", {"host", "host"});
    row("name of the release", "                   Windows 10", "                   Windows 8", {"host", "host"});
    row("release in the registry", "From registry:     10.0.19045", "From registry:     10.0.19046", {"FAILED", "FAILED"});
    row("service pack", "Last service pack installed: ", "Last service pack installed: 1", {"FAILED", "FAILED"});
    row("a module", "\\ntdll.dll\n", "\\NTDLL.DLL\n", {"modules", "modules"});
    row("a module more", "Loaded modules/DLLs:\n", "Loaded modules/DLLs:\nC:\\a.dll\n", {"modules"});
    row("a line more", "SystemManufacturer:", "\nSystemManufacturer:", {"FAILED"});
    row("a space more", "MemoryLoad: ", "MemoryLoad:  ", {"FAILED", "FAILED"});
    row("a line less", "ReleaseId:              2009\n", "", {"FAILED"});
    row("the heading", "############ Windows", "########### Windows", {"FAILED", "FAILED"});
    row("a separator", "\n------------------------------------------------------------------------\nThis", "\nThis", {"FAILED"});
}

void CaptureComparisonTest::verdicts()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QStringList, verdicts);
    const QByteArray report = workstationReport();
    const QByteArray replay = replaced(windowsHalf(report), before, after);
    QStringList found;
    for (const QString &line : differences(compared(report, replay)))
        found += line.section(QLatin1Char(' '), 0, 0);
    QCOMPARE(found, verdicts);
}

// "Disk&Ven_word-1..." sorts behind "Disk&Ven_SanDisk...".
void CaptureComparisonTest::otherOrderOfARedactedReport()
{
    const Reports::Document report = Reports::read(workstationReport());
    Reports::RedactionOptions options;
    options.hide = QStringList {QStringLiteral("Intenso")};
    const RedactedCapture redacted = redactCapture(DescribedWindows::load(QStringLiteral("workstation")), report, {}, options);
    CaptureNotes notes;
    notes.isRedacted = true;
    const QByteArray replay = replayed(redacted.machine);
    const CaptureComparison comparison = compareCapture(redacted.report, replay, notes);
    QVERIFY(comparison.count(Verdict::Order) > 0);
    QCOMPARE(comparison.count(Verdict::Order), int(comparison.lines.size()));
    const CaptureComparison other = compareCapture(redacted.report, replay, {}); // nobody redacted
    QCOMPARE(other.count(Verdict::Failed), int(comparison.lines.size()));
    const QByteArray changed = replaced(replay, "Disk&Ven_word-1", "Disk&Ven_word-2");
    QCOMPARE(compareCapture(redacted.report, changed, notes).count(Verdict::Failed), 2);
}

// GetComputerNameEx() returns at most 15 characters in the buffer of the report.
void CaptureComparisonTest::longAliases()
{
    const Reports::Document report = Reports::read(workstationReport());
    Reports::RedactionOptions options;
    options.key = "a key of sixteen bytes or more";
    const RedactedCapture redacted = redactCapture(DescribedWindows::load(QStringLiteral("workstation")), report, {}, options);
    CaptureNotes notes;
    notes.isRedacted = true;
    const CaptureComparison comparison = compareCapture(redacted.report, replayed(redacted.machine), notes);
    QCOMPARE(comparison.count(Verdict::Failed), 0);
    QCOMPARE(comparison.count(Verdict::Length), 6); // two of the eight names are empty
}

void CaptureComparisonTest::missingSections()
{
    const QByteArray whole = workstationReport();
    const int begin = whole.indexOf("Computer name\n");
    const int end = whole.indexOf("User name:");
    const QByteArray report = whole.left(begin) + whole.mid(end);
    CaptureNotes notes;
    QCOMPARE(compared(report, windowsHalf(whole), notes).count(Verdict::Failed), 9);
    notes.missing = QStringList {QStringLiteral("vkreport: the whole report crashed after 1.2 s"),
                                 QStringLiteral("vkreport: missing: computerNames: crashed after 0.3 s (SIGSEGV)")};
    const CaptureComparison comparison = compared(report, windowsHalf(whole), notes);
    QCOMPARE(comparison.count(Verdict::Missing), 9);
    QCOMPARE(int(comparison.lines.size()), 9);
}

void CaptureComparisonTest::text()
{
    const QByteArray report = workstationReport();
    const QByteArray begin = windowsHalf(report);
    const QByteArray other = replaced(begin, "ReleaseId:              2009\n", "ReleaseId:              \x1b[31m" + QByteArray(2000, 'x') + "\n");
    const int line = report.left(report.indexOf("ReleaseId:")).count('\n') + 1;
    const QByteArray place = "FAILED  windowsVersionFromRegistry  line " + QByteArray::number(line);
    const QList<QByteArray> lines = captureComparisonText(compared(report, other)).split('\n');
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines.at(0), place + ": report: ReleaseId:              2009");
    QVERIFY(lines.at(1).startsWith(place + ": replay: ReleaseId:              \\x1b[31mxxx"));
    QVERIFY(lines.at(1).endsWith("xxx... (1029 more bytes)"));
    QCOMPARE(lines.at(2), QByteArray::number(begin.count('\n') - 1) + " lines are the same, 2 FAILED, " + QByteArray::number(report.count('\n') - begin.count('\n')) + " lines of the Qt half and OpenGL are not compared");
    QCOMPARE(lines.at(3), QByteArray());
}

void CaptureComparisonTest::captureFile()
{
    CaptureNotes notes;
    notes.version = QStringLiteral("1.2.3");
    notes.isRedacted = true;
    notes.exitCode = 3;
    notes.missing = QStringList {QString::fromUtf8("a \"line\" ü")};
    notes.aliases.emplace();
    notes.aliases->insert(QStringLiteral("user"), 2);
    const QByteArray json = captureJson(notes);
    QCOMPARE(QString::fromUtf8(json).simplified(),
             QString::fromUtf8("{ \"aliases\": { \"user\": 2 }, \"exitCode\": 3, \"missing\": [ \"a \\\"line\\\" ü\" ], \"redacted\": true, \"version\": \"1.2.3\" }"));
    QString error;
    const auto read = readCaptureJson(json, error);
    QVERIFY2(read, qPrintable(error));
    QCOMPARE(read->version, notes.version);
    QCOMPARE(read->isRedacted, true);
    QCOMPARE(read->exitCode, 3);
    QCOMPARE(read->missing, notes.missing);
    notes.aliases.reset();
    QVERIFY(!captureJson(notes).contains("aliases"));
}

void CaptureComparisonTest::wrongCaptureFiles_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("a list") << QByteArray("[]");
    QTest::newRow("nothing in it") << QByteArray("{}");
    QTest::newRow("text for a truth value") << QByteArray(R"({"redacted": "true", "missing": []})");
    QTest::newRow("text for a list") << QByteArray(R"({"redacted": true, "missing": "a"})");
}

void CaptureComparisonTest::wrongCaptureFiles()
{
    QFETCH(QByteArray, json);
    QString error;
    QVERIFY(!readCaptureJson(json, error));
    QVERIFY(!error.isEmpty());
}

void CaptureComparisonTest::equalLinesOfTexts_data()
{
    QTest::addColumn<QString>("left"); // each character is a line
    QTest::addColumn<QString>("right");
    QTest::addColumn<QString>("common");
    QTest::newRow("nothing") << ""
                             << ""
                             << "";
    QTest::newRow("all") << "abc"
                         << "abc"
                         << "abc";
    QTest::newRow("nothing in common") << "abc"
                                       << "def"
                                       << "";
    QTest::newRow("one more") << "abd"
                              << "abcd"
                              << "abd";
    QTest::newRow("one less at the end") << "abcd"
                                         << "abc"
                                         << "abc";
    QTest::newRow("same lines repeated") << "aaab"
                                         << "aab"
                                         << "aab";
    QTest::newRow("exchanged") << "xabcdy"
                               << "xcdaby"
                               << "xcdy";
}

void CaptureComparisonTest::equalLinesOfTexts()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    QFETCH(QString, common);
    const auto linesOf = [](const QString &text) {
        std::vector<QByteArray> lines;
        for (const QChar line : text)
            lines.push_back(QByteArray(1, line.toLatin1()));
        return lines;
    };
    QString found;
    for (const auto &pair : equalLines(linesOf(left), linesOf(right))) {
        QCOMPARE(left.at(pair.first), right.at(pair.second));
        found += left.at(pair.first);
    }
    QCOMPARE(found, common);
}

// 200000 lines in reverse order; and 200000 of two kinds, which have no line that occurs once.
void CaptureComparisonTest::largeTexts()
{
    constexpr int count = 200000;
    constexpr qint64 longest = 60000; // milliseconds; comparing each line with each would take minutes
    std::vector<QByteArray> ascending;
    std::vector<QByteArray> twoKinds;
    for (int i = 0; i < count; ++i) {
        ascending.push_back(QByteArray::number(i));
        twoKinds.push_back(i % 3 == 0 ? "a" : "b");
    }
    const std::vector<QByteArray> descending(ascending.rbegin(), ascending.rend());
    std::vector<QByteArray> otherKinds(twoKinds.begin() + 1, twoKinds.end());
    otherKinds.push_back("c");
    QElapsedTimer time;
    time.start();
    QCOMPARE(equalLines(ascending, descending).size(), std::size_t(1));
    QVERIFY(equalLines(twoKinds, otherKinds).size() > std::size_t(count / 2));
    const QByteArray report = windowsHalf(workstationReport());
    const QByteArray large = replaced(report, "WinSxS directory entries\n", "WinSxS directory entries\n" + QByteArray("an entry\n").repeated(count));
    CaptureNotes notes;
    notes.isRedacted = true;
    QCOMPARE(compared(report, large, notes).count(Verdict::Failed), count);
    QVERIFY2(time.elapsed() < longest, qPrintable(QString::number(time.elapsed())));
}

TEST_WITH_CORE_APPLICATION(CaptureComparisonTest);
#include "tst_capture_comparison.moc"
