// What the reader finds in reports: whole ones, and those that people damaged on their way.

#include "document_texts.h"
#include "test_main.h"

#include <QtCore/QDir>
#include <map>

using namespace velkor::Reports;

class ReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void factsOfWorkstation();
    void wholeReports_data();
    void wholeReports();
    void damaged_data();
    void damaged();
    void factsOfDamaged_data();
    void factsOfDamaged();
    void lists();
    void valuesOfSeveralLines();
    void itemsHoldTheirValues();
    void carriageReturnsInOneSection();
    void largeNoise();
    void costlyTexts_data();
    void costlyTexts();
};

namespace {

struct Row
{
    QString section;
    QString item;
    QString key;
    QString text;
};

std::vector<QStringList> table(const QString &fileName)
{
    std::vector<QStringList> rows;
    const QStringList lines = QString::fromUtf8(contentsOf(fileName)).split(QLatin1Char('\n'));
    for (int i = 1; i < lines.size(); ++i) {
        if (!lines[i].isEmpty())
            rows.push_back(lines[i].split(QLatin1Char('\t')));
    }
    return rows;
}

/// The items of equal identity among their siblings have a number from the second on: "driver X #2".
std::vector<Row> rowsOf(const Document &document, bool display)
{
    std::map<QString, int> counts;
    std::map<int, QString> paths;
    std::vector<Row> rows;
    for (int i = 0; i < int(document.facts().size()); ++i) {
        const Fact &fact = document.facts()[std::size_t(i)];
        const QString section = sectionName(document, i);
        if (fact.item >= 0 && paths.count(fact.item) == 0) {
            QString path = itemPath(document, fact.item);
            const int count = ++counts[section + path];
            paths[fact.item] = count > 1 && path.contains(QStringLiteral("driver ")) ? path + QStringLiteral(" #%1").arg(count) : path;
        }
        QByteArray text = document.value(fact);
        if (document.values(fact).size() > 1 && text.contains('\n'))
            text.replace("\n", " | ");
        rows.push_back({section, fact.item < 0 ? QString() : paths[fact.item], QString::fromLatin1(document.row(fact).key),
                        display ? document.display(fact) : QString::fromUtf8(text)});
    }
    return rows;
}

/// The texts that the document has for that fact.
QStringList textsOf(const std::vector<Row> &rows, const Row &wanted)
{
    QStringList texts;
    for (const Row &row : rows) {
        if (row.section == wanted.section && row.item == wanted.item && row.key.compare(wanted.key, Qt::CaseInsensitive) == 0)
            texts += row.text;
    }
    return texts;
}

QString dataFile(const char *name)
{
    return QStringLiteral(REPORTS_DATA_DIR "/") + QLatin1String(name);
}

QString damagedFile(const QString &name)
{
    return QStringLiteral(DAMAGED_DIR "/") + name;
}

/// Texts that a value with line breaks made equal to a text without such a value: nothing in them
/// shows that a value goes on. The reader reads them as what they look like.
const std::map<QString, const char *> &asTheyLook()
{
    static const std::map<QString, const char *> states = {
        {QStringLiteral("value-label-that-may-follow.txt"), ""},
        {QStringLiteral("value-section-opengl-at-end.txt"), ""},
        {QStringLiteral("value-report-whole.txt"), "severalReports"},
        {QStringLiteral("value-variable-indented.txt"), ""},
        {QStringLiteral("value-driver-rule-and-class.txt"), ""},
        {QStringLiteral("value-driver-empty-line.txt"), ""},
        {QStringLiteral("value-bios-continuation.txt"), ""},
        {QStringLiteral("value-printer.txt"), ""},
        {QStringLiteral("value-interface-whole.txt"), ""},
        {QStringLiteral("value-product-empty-line.txt"), ""},
        {QStringLiteral("value-separator.txt"), "foreignText"}, // or a section that this version does not know
    };
    return states;
}

} // namespace

void ReaderTest::factsOfWorkstation()
{
    const Document document = read(contentsOf(dataFile("workstation.txt")));
    QCOMPARE(int(document.states()), 0);
    QCOMPARE(otherLines(document), 0);
    const std::vector<Row> rows = rowsOf(document, false);
    const std::vector<QStringList> expected = table(dataFile("workstation_facts.tsv"));
    QVERIFY(expected.size() > 200);
    for (const QStringList &row : expected) {
        const QStringList texts = textsOf(rows, {row[0], row[1], row[2], {}});
        QVERIFY2(texts == QStringList {row[3]}, qPrintable(row.join(QStringLiteral(" | ")) + QStringLiteral(": ") + texts.join(QStringLiteral(" / "))));
    }
}

void ReaderTest::wholeReports_data()
{
    QTest::addColumn<QString>("file");
    const QString project = QStringLiteral(PROJECT_DIR "/");
    for (const char *file : {"docs/example-report.txt", "tests/golden/workstation/all_win_infos.txt", "tests/golden/wine/all_win_infos.txt",
                             "tests/golden/no_answers.txt", "tests/reports/data/workstation.txt"})
        QTest::newRow(file) << project + QLatin1String(file);
    for (const char *machine : {"workstation", "wine"}) {
        const QDir folder(project + QStringLiteral("tests/golden/") + QLatin1String(machine));
        const QStringList names = folder.entryList(QDir::Files);
        for (const QString &name : names)
            QTest::newRow(qPrintable(QLatin1String(machine) + QLatin1Char(' ') + name)) << folder.filePath(name);
    }
}

void ReaderTest::wholeReports()
{
    QFETCH(QString, file);
    const QByteArray bytes = contentsOf(file);
    QVERIFY(!bytes.isEmpty());
    const Document document = read(bytes);
    QCOMPARE(document.bytes(), bytes);
    QCOMPARE(flawOfPlaces(document), QString());
    if (!file.endsWith(QStringLiteral("platform_name.txt")) && !file.endsWith(QStringLiteral("opengl_drivers.txt"))) // no sections
        QCOMPARE(otherLines(document), 0);
}

void ReaderTest::damaged_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("states");
    const std::vector<QStringList> rows = table(damagedFile(QStringLiteral("states.tsv")));
    QVERIFY(rows.size() > 100);
    for (const QStringList &row : rows) {
        const auto other = asTheyLook().find(row[0]);
        QTest::newRow(qPrintable(row[0])) << row[0] << (other == asTheyLook().end() ? row[1] : QString::fromLatin1(other->second));
    }
}

void ReaderTest::damaged()
{
    QFETCH(QString, file);
    QFETCH(QString, states);
    const QByteArray bytes = contentsOf(damagedFile(file));
    const Document document = read(bytes);
    QCOMPARE(document.bytes(), bytes);
    QCOMPARE(flawOfPlaces(document), QString());
    QStringList names = stateNames(document.states());
    QStringList expected = states.split(QLatin1Char(','), Qt::SkipEmptyParts);
    names.replaceInStrings(QStringLiteral("crLf"), QStringLiteral("crlf"));
    names.sort();
    expected.sort();
    QCOMPARE(names, expected);
    QCOMPARE(document.ambiguous().empty(), !document.states().testFlag(State::Ambiguous));
}

void ReaderTest::factsOfDamaged_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QVector<QStringList>>("facts");
    std::map<QString, QVector<QStringList>> files;
    for (const QStringList &row : table(damagedFile(QStringLiteral("facts.tsv"))))
        files[row[0]] += row;
    QVERIFY(files.size() > 90);
    for (const auto &file : files)
        QTest::newRow(qPrintable(file.first)) << file.first << file.second;
}

void ReaderTest::factsOfDamaged()
{
    QFETCH(QString, file);
    QFETCH(QVector<QStringList>, facts);
    const std::vector<Row> rows = rowsOf(read(contentsOf(damagedFile(file))), true);
    for (const QStringList &fact : facts) {
        const QStringList texts = textsOf(rows, {fact[1], fact[2], fact[3], {}});
        QVERIFY2(texts.contains(fact[4]), qPrintable(fact.join(QStringLiteral(" | ")) + QStringLiteral(": ") + texts.join(QStringLiteral(" / "))));
    }
}

void ReaderTest::lists()
{
    const Document document = read("BIOS information from Registry\nSystemBiosVersion:     A\n                       B 2\nVideoBiosVersion:      \n"
                                   "------------------------------------------------------------------------\n");
    QCOMPARE(int(document.facts().size()), 2);
    QCOMPARE(document.values(document.facts()[0]), (std::vector<QByteArray> {"A", "B 2"}));
    QCOMPARE(document.value(document.facts()[0]), QByteArray("A\nB 2"));
    QCOMPARE(document.values(document.facts()[1]), (std::vector<QByteArray> {""}));
}

void ReaderTest::valuesOfSeveralLines()
{
    const Document document = read("> Windows version information from Registry\n> ProductName:            one\n> two\n> \n> three\n"
                                   "> RegisteredOwner:        four\n"
                                   "> ------------------------------------------------------------------------\n");
    QCOMPARE(int(document.facts().size()), 2);
    QCOMPARE(document.value(document.facts()[0]), QByteArray("one\ntwo\n\nthree"));
    QCOMPARE(document.value(document.facts()[1]), QByteArray("four"));
    QCOMPARE(document.linePrefix(), QByteArray("> "));
}

void ReaderTest::itemsHoldTheirValues()
{
    // An empty line ends an instance, and the line after it shows that it belongs to a value.
    const Document document = read(">>> Info about 'SCSI' disk devices from registry:\nDisk\n   Service:             one\n\n   two\n"
                                   "------------------------------------------------------------------------\n");
    QCOMPARE(flawOfPlaces(document), QString());
    QCOMPARE(document.value(document.facts().back()), QByteArray("one\n\n   two"));
}

void ReaderTest::carriageReturnsInOneSection()
{
    const QByteArray text = contentsOf(dataFile("workstation.txt"));
    const int begin = text.indexOf("Memory Information:");
    const int end = text.indexOf("AvailVirtual:");
    QByteArray changed = text.mid(begin, end - begin);
    changed.replace("\n", "\r\n");
    const Document document = read(text.left(begin) + changed + text.mid(end));
    QCOMPARE(stateNames(document.states()), QStringList {QStringLiteral("crLf")});
    QCOMPARE(document.facts().size(), read(text).facts().size());
    QVERIFY(compare(read(text), document).same());
    const Fact *load = document.find(document.findSection("memoryInfo"), -1, "memoryLoad");
    QCOMPARE(document.value(*load), QByteArray("45%"));
}

void ReaderTest::largeNoise()
{
    QByteArray noise;
    quint32 state = 1;
    while (noise.size() < 4000000) {
        state = state * 1664525 + 1013904223;
        noise += char(state >> 24);
    }
    for (const QByteArray &bytes : {noise, QByteArray(4000000, '\n'), QByteArray(4000000, '-'), QByteArray(4000000, '>'),
                                    QByteArray("Version: \n").repeated(400000)}) {
        const Document document = read(bytes);
        QCOMPARE(document.bytes(), bytes);
        QCOMPARE(flawOfPlaces(document), QString());
        QCOMPARE(document.states().testFlag(State::NoReport), !bytes.startsWith("Version"));
    }
}

/// Texts that a reader that looks back or ahead without limit would need hours for, which is longer than
/// ctest waits.
void ReaderTest::costlyTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    const QByteArray separator = separatorLine() + '\n';
    QTest::newRow("sections without headings") << ("DNS-SD version: 1\nDNS-SD version: 2\n" + separator).repeated(30000);
    QTest::newRow("a line of spaces between addresses")
        << "Network Interfaces Info\n" + QByteArray(55, '_') + "\nlo\n" + QByteArray(3000000, ' ') + "\n" + separator;
    QTest::newRow("a line of no-break spaces")
        << "Network Interfaces Info\n" + QByteArray(55, '_') + "\nlo\n" + QByteArray("\xc2\xa0").repeated(1500000) + "\n" + separator;
    QTest::newRow("sections that resume") << "Windows version: \n"
            + ("From GetVersionEx: 6.2\n" + separator + "Memory Information:\n").repeated(30000);
    QTest::newRow("headings that go back") << ("QLocale\n" + separator + "Qt Global\n" + separator).repeated(15000);
    QTest::newRow("labels that repeat") << "OEM Information from Registry\n" + QByteArray("Model:     x\n").repeated(200000);
    QTest::newRow("rules") << ">>> Info about drivers from registry:\n\n" + (QByteArray(28, '-') + "\nA\n").repeated(80000);
    QTest::newRow("wrapped lines") << "Windows version: \n" + ("Last service pack installed: " + QByteArray(40, 'x') + " \n").repeated(40000);
    QTest::newRow("quotes") << QByteArray("> QLocale\n") + QByteArray("> > > > \n").repeated(300000);
}

void ReaderTest::costlyTexts()
{
    QFETCH(QByteArray, text);
    const Document document = read(text);
    QCOMPARE(document.bytes(), text);
    QCOMPARE(flawOfPlaces(document), QString());
}

TEST_WITHOUT_APPLICATION(ReaderTest);
#include "tst_reader.moc"
