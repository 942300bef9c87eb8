// Markdown, HTML, text and the summary of a document.

#include "neutral_text.h"
#include "test_main.h"
#include "texts.h"
#include "vkReports.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

using namespace velkor::Reports;

class FormatsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void summaryOfAWholeReport();
    void summaryNamesFullDisks();
    void summaryOfNothing();
    void textIsTheBytes();
    void chosenSections();
    void markdownOfSections();
    void htmlLoadsNothing();
    void htmlLinksHaveTargets();
    void htmlOfSections();
    void statesAreSaid();
    void nothingIsHiddenAfterANull();
    void maxLength_data();
    void maxLength();
    void maxLengthSaysWhatIsMissing();
    void manySectionsAreShortenedFast();
    void hostileValues_data();
    void hostileValues();
};

namespace {

QByteArray dataFile(const char *name)
{
    QFile file(QStringLiteral(REPORTS_DATA_DIR "/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

const QByteArray &workstation()
{
    static const QByteArray text = dataFile("workstation.txt");
    return text;
}

int row(const char *section)
{
    int index = 0;
    for (const SectionRow &candidate : sectionRows()) {
        if (qstrcmp(candidate.name, section) == 0)
            return index;
        ++index;
    }
    return -1;
}

WriteOptions only(std::vector<int> sections)
{
    WriteOptions options;
    options.sections = std::move(sections);
    return options;
}

WriteOptions atMost(int length)
{
    WriteOptions options;
    options.maxLength = length;
    return options;
}

QString summaryLines(const Document &document)
{
    QString text;
    for (const SummaryLine &line : summary(document))
        text += QStringLiteral("%1|%2|%3\n").arg(QLatin1String(line.key), line.label, line.value);
    return text;
}

/// Markdown without fenced blocks, code spans and ends of folds, by the rules of CommonMark. A span that does not end on
/// its line stays.
QString withoutCode(const QString &markdown)
{
    static const QRegularExpression fence(QStringLiteral("^ {0,3}(`{3,}|~{3,})([^`]*)$"));
    static const QRegularExpression span(QStringLiteral("(?<!`)(`+)(?!`).*?(?<!`)\\1(?!`)"));
    QString open;
    QString rest;
    for (const QString &line : markdown.split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch match = fence.match(line);
        if (!open.isEmpty()) {
            if (match.hasMatch() && match.captured(1).startsWith(open) && match.captured(2).trimmed().isEmpty())
                open.clear();
        } else if (match.hasMatch()) {
            open = match.captured(1);
        } else if (line != QStringLiteral("</details>")) { // ours
            rest += QString(line).remove(span) + QLatin1Char('\n');
        }
    }
    return open.isEmpty() ? rest : QStringLiteral("A fence stays open.");
}

} // namespace

// By hand, from the lines of the report.
void FormatsTest::summaryOfAWholeReport()
{
    COMPARE_TEXT(summaryLines(read(workstation())),
                 QStringLiteral(
                     "windows|Windows|Windows 10 Professional Edition, 64-bit\n"
                     "windowsVersion|Version|10.0.19045.3803 (GetVersionEx: 6.2.9200)\n"
                     "edition|Edition|Windows 10 Pro, Professional, 22H2\n"
                     "servicePack|Service pack|none\n"
                     "machine|Machine|FUJITSU, ESPRIMO P757, V5.0.0.12 R1.31.0 for D3601-A1x\n"
                     "processor|Processor|Intel(R) Core(TM) i7-7700 CPU @ 3.60GHz, 8 logical\n"
                     "memory|Memory|15.8 GByte, free: 8.5 GByte\n"
                     "graphics|Graphics|Intel(R) HD Graphics 630, driver 27.20.100.9664, 6-1-2021; "
                     "Radeon (TM) Pro WX 2100 Graphics, driver 27.20.21026.2006, 10-28-2021\n"
                     "openGl|OpenGL|4.5.14831 Compatibility Profile Context 21.Q4 27.20.21026.2006, "
                     "Radeon (TM) Pro WX 2100 Graphics\n"
                     "screens|Screens|#1 1920 x 1080, 96 dpi, ratio 1, \\\\.\\DISPLAY1; "
                     "#2 1152 x 2048, 96 dpi, ratio 1.25, \\\\.\\DISPLAY2\n"
                     "qt|Qt|5.15.12, linked against 5.15.11\n"
                     "application|Application|Q9 V3.1 3.1.447 (C:/Program Files/Velkor/Q9 V3/Q9.exe)\n"
                     "dnsSd|DNS-SD|dnssd.dll installed, 333.10.0; "
                     "vkdnssd.dll installed, no version: -65563 (kDNSServiceErr_ServiceNotRunning)\n"
                     "date|Date of the report|14.12.2023 08:41:27\n"
                     "locale|Locale|German, Germany\n"
                     "timeZone|Time zone|@tzres.dll,-322 (offset to UTC: -60 min)\n"
                     "network|Network|connected: Intel(R) Ethernet Connection (5) I219-LM\n"
                     "nearlyFull|Nearly full|no disk\n"
                     "failed|Failed|checkVelkorBonjour: DNS-SD version: failed to get version, error: "
                     "-65563 (kDNSServiceErr_ServiceNotRunning)\n"));
}

// 12.5 of 256.0 GByte are less than 5 %, 13.0 are more. A disk of 10 GByte or more is full with less
// than 1 GByte as well. An optical disc is always full.
void FormatsTest::summaryNamesFullDisks()
{
    const QByteArray text = "Disk information: \n"
                            "C:\\ fixed drive          NTFS  Windows  Free: 12.5 GByte Total: 256.0 GByte \n"
                            "D:\\ fixed drive          NTFS  Data  Free: 13.0 GByte Total: 256.0 GByte \n"
                            "E:\\ CD/DVD drive         CDFS  Setup  Free: 0.0 GByte Total: 0.7 GByte \n"
                            "F:\\ removable media      FAT32  Stick  Free: 0.9 GByte Total: 15.0 GByte \n"
                            "G:\\ removable media      FAT32  Stick  Free: 1.0 GByte Total: 15.0 GByte \n"
                            "H:\\ removable media      FAT32  Stick  Free: 0.9 GByte Total: 3.8 GByte \n"
                            "------------------------------------------------------------------------\n";
    QStringList disks;
    for (const SummaryLine &line : summary(read(text))) {
        if (qstrcmp(line.key, "nearlyFull") == 0)
            disks << line.value;
    }
    QCOMPARE(disks, QStringList({QStringLiteral("C:\\ free: 12.5 GByte of 256.0 GByte"), QStringLiteral("F:\\ free: 0.9 GByte of 15.0 GByte")}));
}

void FormatsTest::summaryOfNothing()
{
    QCOMPARE(summaryLines(read(QByteArray())), QStringLiteral("states|Text|This text contains no system report.\n"));
}

void FormatsTest::textIsTheBytes()
{
    for (const QByteArray &bytes : {workstation(), QByteArray("\xff\xfe\x00"), QByteArray("> Memory Information:\r\n"), QByteArray()})
        QCOMPARE(toText(read(bytes)), bytes);
    QCOMPARE(toText(read(workstation()), atMost(65536)), workstation());
}

void FormatsTest::chosenSections()
{
    const QByteArray text = toText(read(workstation()), only({row("qtLocale"), row("wordSize")}));
    QCOMPARE(text, QByteArray("This is a 64bit application.\n"
                              "QLocale\nCountry:          Germany\nLanguage:         German\nMeasuring System: MetricSystem\n"));
}

void FormatsTest::markdownOfSections()
{
    const QByteArray text = "Computer name\nNetBios name:                 a`@b|c\nDNS domain:           \n"
                            "Disk information: \nC:\\ fixed drive          NTFS  Windows  Free: 1.0 GByte Total: 2.0 GByte \n"
                            "------------------------------------------------------------------------\n";
    const QString markdown = QString::fromUtf8(toMarkdown(read(text), only({row("computerNames"), row("diskInformation")})));
    const QString sections = markdown.mid(markdown.indexOf(QStringLiteral("## Windows")));
    COMPARE_TEXT(sections, QStringLiteral("## Windows\n\n"
                                          "### Computer name\n\n"
                                          "| Fact | Value |\n|---|---|\n"
                                          "| NetBios name | ``a`@b\\x7cc`` |\n"
                                          "| DNS domain | *(empty)* |\n\n"
                                          "### Disk information\n\n"
                                          "<details><summary>1 drive</summary>\n\n"
                                          "```\nDisk information: \nC:\\ fixed drive          NTFS  Windows  Free: 1.0 GByte Total: 2.0 GByte \n```\n\n"
                                          "</details>\n\n"));
}

void FormatsTest::htmlLoadsNothing()
{
    const QByteArray html = toHtml(read(workstation()));
    QVERIFY(html.contains("<meta charset=\"utf-8\">"));
    QVERIFY(html.contains("content=\"default-src 'none'; style-src 'unsafe-inline'\""));
    for (const char *forbidden : {"<script", "<link", "<img", "<iframe", "<base", "src=", "url(", "@import", "onload", "javascript:"})
        QVERIFY2(!html.contains(forbidden), forbidden);
    const QRegularExpression outside(QStringLiteral("href=\"[^#]"));
    QVERIFY(!QString::fromUtf8(html).contains(outside));
}

void FormatsTest::htmlLinksHaveTargets()
{
    const QString html = QString::fromUtf8(toHtml(read("Some mail\n" + workstation())));
    QRegularExpressionMatchIterator links = QRegularExpression(QStringLiteral("href=\"#([^\"]+)\"")).globalMatch(html);
    int count = 0;
    for (; links.hasNext(); ++count) {
        const QString target = links.next().captured(1);
        QCOMPARE(html.count(QStringLiteral("id=\"%1\"").arg(target)), 1);
    }
    QVERIFY2(count > int(sectionRows().size()), qPrintable(QString::number(count)));
    QVERIFY(html.contains(QStringLiteral("<h2 id=\"other\">Text that is no report</h2>\n<pre>\nSome mail\n</pre>")));
}

// A drive without sizes has empty cells; a screen with many facts has a table of its own.
void FormatsTest::htmlOfSections()
{
    const QString drives = QString::fromUtf8(toHtml(read(workstation()), only({row("diskInformation")})));
    QVERIFY(drives.contains(QStringLiteral(
        "<th scope=\"col\">root</th><th scope=\"col\">type</th><th scope=\"col\">file system</th><th scope=\"col\">label</th>"
        "<th scope=\"col\">free</th><th scope=\"col\">total</th></tr></thead><tbody>\n"
        "<tr><td>C:\\</td><td>fixed drive</td><td>NTFS</td><td>Windows</td><td>100.9 GByte</td><td>237.7 GByte</td></tr>\n")));
    const QString screens = QString::fromUtf8(toHtml(read(workstation()), only({row("qtScreens")})));
    QVERIFY(screens.contains(QStringLiteral("<h4>screen 2</h4>")));
    QVERIFY(screens.contains(QStringLiteral("<tr><th scope=\"row\">RefreshRate</th><td>75 Hz</td></tr>")));
}

void FormatsTest::statesAreSaid()
{
    const QByteArray quoted = "Hello,\n\n> " + QByteArray(workstation()).replace("\n", "\n> ");
    const Document document = read(quoted);
    for (const QByteArray &text : {toMarkdown(document), toHtml(document)}) {
        QVERIFY(text.contains("The report was quoted in a mail"));
        QVERIFY(text.contains("There is text that does not belong to a report."));
    }
}

// QString::fromUtf8() of a QByteArray ends at a null.
void FormatsTest::nothingIsHiddenAfterANull()
{
    QByteArray text = QByteArray("before\0after\n", 13) + workstation();
    text.replace("ProductName:            Windows 10 Pro", QByteArray("ProductName:            Win\0dows", 32));
    const Document document = read(text);
    for (const QByteArray &output : {toMarkdown(document), toHtml(document)}) {
        QVERIFY(output.contains("before\\x00after"));
        QVERIFY(output.contains("Win\\x00dows"));
        QVERIFY(output.contains("17055318016 Byte"));
    }
    QVERIFY(toText(document, atMost(text.size() - 100)).contains("17055318016 Byte"));
    QVERIFY(summaryLines(document).contains(QStringLiteral("dows, Professional")));
}

void FormatsTest::maxLength_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("workstation") << workstation();
    QTest::newRow("two reports") << workstation() + workstation();
    QTest::newRow("characters of two units") << QByteArray("\xf0\x9f\x98\x80").repeated(3000) + workstation();
    QTest::newRow("no report") << QByteArray("x\n").repeated(5000);
    QTest::newRow("nothing") << QByteArray();
}

void FormatsTest::maxLength()
{
    QFETCH(QByteArray, text);
    const Document document = read(text);
    std::vector<int> lengths;
    for (int length = 1; length < 65536; length += length < 40 ? 1 : length / 4)
        lengths.push_back(length);
    for (const int length : lengths) {
        for (const bool isSummary : {false, true}) {
            WriteOptions options = atMost(length);
            options.onlySummary = isSummary;
            const QString markdown = QString::fromUtf8(toMarkdown(document, options));
            QVERIFY2(markdown.size() <= length, qPrintable(QStringLiteral("Markdown, %1").arg(length)));
            QCOMPARE(markdown.count(QStringLiteral("<details>")), markdown.count(QStringLiteral("</details>")));
            QVERIFY(withoutCode(markdown) != QStringLiteral("A fence stays open."));
            QVERIFY2(QString::fromUtf8(toText(document, options)).size() <= length, qPrintable(QStringLiteral("text, %1").arg(length)));
        }
    }
}

// The summary outlives the long lists; what goes is named.
void FormatsTest::maxLengthSaysWhatIsMissing()
{
    const Document document = read(workstation());
    const QByteArray markdown = toMarkdown(document, atMost(20000));
    QVERIFY(markdown.contains("Shortened to at most 20000 characters."));
    QVERIFY(markdown.contains("loadedModules"));
    QVERIFY(markdown.contains("modules: left out"));
    QVERIFY(!markdown.contains("ntdll.dll"));
    QVERIFY(markdown.contains("| Memory | `15.8 GByte, free: 8.5 GByte` |"));
    const QByteArray text = toText(document, atMost(20000));
    QVERIFY(text.startsWith("[Shortened to at most 20000 characters."));
    QVERIFY(!text.contains("ntdll.dll"));
    QVERIFY(text.contains("TotalPhys:             17055318016 Byte"));
    const QByteArray whole = toMarkdown(document, atMost(1000000));
    QVERIFY(!whole.contains("Shortened"));
    QCOMPARE(whole, toMarkdown(document));
}

// With quadratic time this takes hours.
void FormatsTest::manySectionsAreShortenedFast()
{
    const QByteArray section = "This is a 64bit application.\n------------------------------------------------------------------------\n";
    const Document document = read(section.repeated(40000));
    QVERIFY(document.sections().size() >= 40000);
    QVERIFY(QString::fromUtf8(toMarkdown(document, atMost(30000))).size() <= 30000);
    QVERIFY(QString::fromUtf8(toText(document, atMost(30000))).size() <= 30000);
}

namespace {

/// "\x1B" for a byte.
QByteArray unescaped(const QByteArray &text)
{
    QByteArray result;
    for (int i = 0; i < text.size(); ++i) {
        if (text.mid(i, 2) == "\\x") {
            result += char(text.mid(i + 2, 2).toInt(nullptr, 16));
            i += 3;
        } else {
            result += text.at(i);
        }
    }
    return result;
}

/// A report with \a value in many places: a fact, the summary, a list, items, and outside of it.
QByteArray reportWith(const QByteArray &value)
{
    QByteArray text = workstation();
    text.replace("RegisteredOwner:        ", "RegisteredOwner:        " + value + "\nCSDVersion: ");
    text.replace("ProductName:            Windows 10 Pro", "ProductName:            " + value);
    text.replace("  ALLUSERSPROFILE=", "  " + value + "=x\n  HOSTILE=" + value + "\n  ALLUSERSPROFILE=");
    text.replace("Library Paths:        ", "Library Paths:        " + value + "\n                      ");
    text.replace("### Service: igfx", "### Service: " + value);
    text.replace("GL_EXTENSIONS) = ", "GL_EXTENSIONS) = " + value + ' ');
    return value + '\n' + text + value + '\n';
}

bool hasSurrogates(const QByteArray &utf8)
{
    for (int i = utf8.indexOf('\xed'); i >= 0; i = utf8.indexOf('\xed', i + 1)) {
        if (i + 1 < utf8.size() && uchar(utf8.at(i + 1)) >= 0xa0)
            return true;
    }
    return false;
}

void verifyAbsent(const char *output, const QByteArray &utf8, const QByteArray &pattern)
{
    if (pattern == "-")
        return;
    if (pattern == "[\\x{D800}-\\x{DFFF}]") { // not valid in QRegularExpression
        QVERIFY2(!hasSurrogates(utf8), output);
        return;
    }
    const QString text = QString::fromUtf8(utf8);
    const QRegularExpression forbidden(QString::fromUtf8(pattern));
    QVERIFY2(forbidden.isValid(), pattern.constData());
    const QRegularExpressionMatch match = forbidden.match(text);
    QVERIFY2(!match.hasMatch(), (output + QByteArray(": ") + match.captured().toUtf8().toPercentEncoding()).constData());
}

} // namespace

void FormatsTest::hostileValues_data()
{
    QTest::addColumn<QList<QByteArray>>("columns");
    int count = 0;
    for (const QByteArray &line : dataFile("hostile.tsv").split('\n').mid(1)) {
        const QList<QByteArray> columns = line.split('\t');
        if (columns.size() < 8)
            continue;
        QTest::newRow(columns.at(0).constData()) << columns;
        ++count;
    }
    QVERIFY2(count >= 40, "hostile.tsv has too few rows");
}

void FormatsTest::hostileValues()
{
    QFETCH(QList<QByteArray>, columns);
    const QByteArray value = unescaped(columns.at(3)).repeated(columns.at(2).toInt());
    const Document document = read(reportWith(value));
    QCOMPARE(toText(document), reportWith(value));
    verifyAbsent("terminal", terminalText(QString::fromUtf8(toText(document))).toUtf8(), columns.at(4));
    verifyAbsent("html", toHtml(document), columns.at(5));
    verifyAbsent("markdown", withoutCode(QString::fromUtf8(toMarkdown(document))).toUtf8(), columns.at(6));
    verifyAbsent("shortened", withoutCode(QString::fromUtf8(toMarkdown(document, atMost(9000)))).toUtf8(), columns.at(6));
    WriteOptions onlySummary;
    onlySummary.onlySummary = true;
    verifyAbsent("summary", toText(document, onlySummary), columns.at(4));
    // No table of ours is cut at the length that spreadsheets accept, or joined with commas.
    if (columns.at(0) == "long-word" || columns.at(0) == "formula-quote")
        return;
    const QString cell = terminalText(tableText(QString::fromUtf8(value))).replace(QLatin1Char('\n'), QStringLiteral("\\x0a"));
    verifyAbsent("cell", cell.toUtf8(), columns.at(7));
}

TEST_WITHOUT_APPLICATION(FormatsTest);
#include "tst_formats.moc"
