// Lines of two reports beside each other.

#include "comparison/aligned_text.h"
#include "comparison/compared_reports.h"
#include "test_main.h"

#include <QtCore/QFile>

using namespace velkor::Reports;

class AlignedTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pairsOfLines_data();
    void pairsOfLines();
    void aLargeBlockOfEqualLinesEnds();
    void rows();
    void whatMailProgramsDoIsNoDifference_data();
    void whatMailProgramsDoIsNoDifference();
    void everyLineIsInOneRow_data();
    void everyLineIsInOneRow();
    void aMinuteApart();
    void placesOfChanges();
    void aCancelledComparisonHasNoResult();
};

namespace {

QByteArray contents(const QString &fileName)
{
    QFile file(QStringLiteral(PAIRS_DIR "/") + fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

ComparedReports compared(const QByteArray &older, const QByteArray &newer)
{
    const std::atomic_bool cancelled {false};
    return *compareReports(read(older), read(newer), cancelled);
}

QByteArray lineOf(const Document &document, const std::vector<AlignedLine> &lines, int index)
{
    if (index < 0)
        return "(none)";
    const AlignedLine &line = lines[std::size_t(index)];
    return document.text().mid(line.begin, line.end - line.begin);
}

QByteArray olderLine(const AlignedText &text, int row)
{
    return lineOf(text.olderDocument, text.older, text.rows[std::size_t(row)].older);
}

QByteArray newerLine(const AlignedText &text, int row)
{
    return lineOf(text.newerDocument, text.newer, text.rows[std::size_t(row)].newer);
}

/// The rows that are not the same, as a list of "older|newer".
QList<QByteArray> differentRows(const AlignedText &text)
{
    QList<QByteArray> result;
    for (int row = 0; row < int(text.rows.size()); ++row) {
        if (text.rows[std::size_t(row)].change != LineChange::Same)
            result += olderLine(text, row) + '|' + newerLine(text, row);
    }
    return result;
}

std::vector<int> keysOf(const QByteArray &letters)
{
    std::vector<int> keys;
    for (const char letter : letters)
        keys.push_back(letter == '-' ? -1 : letter - 'a');
    return keys;
}

const char small[] = "Memory Information\n"
                     "MemoryLoad:            45%\n"
                     "------------------------------------------------------------------------\n";

} // namespace

void AlignedTextTest::pairsOfLines_data()
{
    QTest::addColumn<QByteArray>("older");
    QTest::addColumn<QByteArray>("newer");
    QTest::addColumn<QByteArray>("common"); // the letters that are paired

    QTest::newRow("nothing") << QByteArray() << QByteArray() << QByteArray();
    QTest::newRow("one is empty") << QByteArray("abc") << QByteArray() << QByteArray();
    QTest::newRow("equal") << QByteArray("abcab") << QByteArray("abcab") << QByteArray("abcab");
    QTest::newRow("changed in the middle") << QByteArray("abcde") << QByteArray("abxde") << QByteArray("abde");
    QTest::newRow("removed at the beginning") << QByteArray("abc") << QByteArray("bc") << QByteArray("bc");
    QTest::newRow("added at the end") << QByteArray("abc") << QByteArray("abcd") << QByteArray("abc");
    QTest::newRow("a block moved") << QByteArray("xabcy") << QByteArray("xyabc") << QByteArray("xabc");
    QTest::newRow("reversed: only one can stay") << QByteArray("abc") << QByteArray("cba") << QByteArray("?");
    QTest::newRow("no line occurs once") << QByteArray("xaabby") << QByteArray("zabbaw") << QByteArray("abb");
    QTest::newRow("lines without a key equal none") << QByteArray("a-b") << QByteArray("a-b") << QByteArray("ab");
}

void AlignedTextTest::pairsOfLines()
{
    QFETCH(QByteArray, older);
    QFETCH(QByteArray, newer);
    QFETCH(QByteArray, common);
    std::size_t budget = 10000;
    const std::vector<int> olderKeys = keysOf(older);
    const std::vector<int> newerKeys = keysOf(newer);
    const auto pairs = LineMatcher(olderKeys, newerKeys, 26, budget).match({0, older.size()}, {0, newer.size()});
    QByteArray found;
    LinePair last {-1, -1};
    for (const LinePair &pair : pairs) {
        QCOMPARE(older.at(pair.older), newer.at(pair.newer));
        QVERIFY(pair.older > last.older && pair.newer > last.newer);
        last = pair;
        found += older.at(pair.older);
    }
    if (common == "?")
        QCOMPARE(found.size(), 1);
    else
        QCOMPARE(found, common);
}

void AlignedTextTest::aLargeBlockOfEqualLinesEnds()
{
    // No line occurs once and the ends differ: the table of all pairs would have 10^10 cells.
    const QByteArray older = "x" + QByteArray("ab").repeated(50000) + "y";
    const QByteArray newer = "z" + QByteArray("ba").repeated(50000) + "w";
    const std::vector<int> olderKeys = keysOf(older);
    const std::vector<int> newerKeys = keysOf(newer);
    std::size_t budget = 1000000;
    const auto pairs = LineMatcher(olderKeys, newerKeys, 26, budget).match({0, older.size()}, {0, newer.size()});
    QVERIFY(pairs.empty());
    QVERIFY(budget < 1000000);
}

void AlignedTextTest::rows()
{
    // TEMP changed and E: is gone; the lines around them stay where they are.
    const AlignedText text = compared(contents(QStringLiteral("full-disk/OLD.txt")), contents(QStringLiteral("full-disk/NEW.txt"))).text;
    const QList<QByteArray> different = differentRows(text);
    QVERIFY(different.contains("TEMP     = C:\\Users\\J\xc3\xb6rn\\AppData\\Local\\Temp|TEMP     = Z:\\Temp"));
    QVERIFY(different.contains("E:\\ removable media      FAT32  MESSDATEN  Free: 11.7 GByte Total: 28.6 GByte |(none)"));
    QVERIFY(different.contains("Temp:                      C:/Users/J\xc3\xb6rn/AppData/Local/Temp|Temp:                      Z:/Temp"));
    QVERIFY(different.contains("  TMP=C:\\Users\\J\xc3\xb6rn\\AppData\\Local\\Temp|  TMP=Z:\\Temp"));
    QCOMPARE(different.size(), 16); // as many as diff has, which counts a line that changed as one
}

void AlignedTextTest::whatMailProgramsDoIsNoDifference_data()
{
    QTest::addColumn<QByteArray>("altered");

    const QByteArray text = contents(QStringLiteral("full-disk/OLD.txt"));
    QByteArray crLf = text;
    QTest::newRow("carriage returns") << crLf.replace("\n", "\r\n");
    QByteArray quoted = "> " + text;
    quoted.chop(1);
    QTest::newRow("quotes") << quoted.replace("\n", "\n> ") + "\n";
    QByteArray stripped = text;
    while (stripped.contains(" \n"))
        stripped.replace(" \n", "\n");
    QTest::newRow("blanks at the end") << stripped;
    QByteArray noBreak = text;
    QTest::newRow("no-break spaces") << noBreak.replace("  ", "\xc2\xa0 ");
}

void AlignedTextTest::whatMailProgramsDoIsNoDifference()
{
    QFETCH(QByteArray, altered);
    const AlignedText text = compared(contents(QStringLiteral("full-disk/OLD.txt")), altered).text;
    QVERIFY(text.rows.size() > 1000);
    QCOMPARE(differentRows(text), QList<QByteArray>());
}

void AlignedTextTest::everyLineIsInOneRow_data()
{
    QTest::addColumn<QString>("pair");
    for (const char *pair : {"driver-update", "full-disk", "minute-apart", "missing-runtime", "other-machine"})
        QTest::newRow(pair) << QString::fromLatin1(pair);
}

/// Puts all lines of one side together again.
static QByteArray joined(const Document &document, const std::vector<AlignedLine> &lines, const std::vector<AlignedRow> &rows, int AlignedRow::*line)
{
    QByteArray text;
    int next = 0;
    for (const AlignedRow &row : rows) {
        if (row.*line < 0)
            continue;
        if (row.*line != next++)
            return "lines are missing or out of order";
        const AlignedLine &place = lines[std::size_t(row.*line)];
        text += document.text().mid(place.begin, place.next - place.begin);
    }
    return text;
}

static QByteArray sectionsOf(const Document &document)
{
    QByteArray text;
    for (const Section &section : document.sections())
        text += document.text().mid(section.begin, section.end - section.begin);
    return text;
}

void AlignedTextTest::everyLineIsInOneRow()
{
    QFETCH(QString, pair);
    const QByteArray older = contents(pair + QStringLiteral("/OLD.txt"));
    const QByteArray newer = contents(pair + QStringLiteral("/NEW.txt"));
    const AlignedText text = compared(older, newer).text;
    QCOMPARE(joined(text.olderDocument, text.older, text.rows, &AlignedRow::older), sectionsOf(read(older)));
    QCOMPARE(joined(text.newerDocument, text.newer, text.rows, &AlignedRow::newer), sectionsOf(read(newer)));
}

void AlignedTextTest::aMinuteApart()
{
    const AlignedText text = compared(contents(QStringLiteral("minute-apart/OLD.txt")), contents(QStringLiteral("minute-apart/NEW.txt"))).text;
    int everyMoment = 0;
    for (const AlignedRow &row : text.rows) {
        if (row.change == LineChange::Same)
            continue;
        QCOMPARE(row.change, LineChange::Changed);
        QVERIFY(row.everyMoment);
        ++everyMoment;
    }
    QCOMPARE(everyMoment, 10); // what diff marks
}

void AlignedTextTest::placesOfChanges()
{
    const ComparedReports reports = compared(contents(QStringLiteral("driver-update/OLD.txt")), contents(QStringLiteral("driver-update/NEW.txt")));
    QCOMPARE(reports.places.size(), reports.comparison.changes.size());
    for (std::size_t i = 0; i < reports.places.size(); ++i) {
        const Change &change = reports.comparison.changes[i];
        const ChangePlace &place = reports.places[i];
        QCOMPARE(place.older.size(), 1); // all changes of this pair are of lines
        QCOMPARE(place.newer.size(), 1);
        QVERIFY2(QString::fromUtf8(olderLine(reports.text, place.older.begin)).contains(change.oldValue), qPrintable(change.oldValue));
        QVERIFY2(QString::fromUtf8(newerLine(reports.text, place.newer.begin)).contains(change.newValue), qPrintable(change.newValue));
    }
}

void AlignedTextTest::aCancelledComparisonHasNoResult()
{
    const std::atomic_bool cancelled {true};
    QVERIFY(!compareReports(read(small), read(small), cancelled));
}

TEST_WITHOUT_APPLICATION(AlignedTextTest);

#include "tst_aligned_text.moc"
