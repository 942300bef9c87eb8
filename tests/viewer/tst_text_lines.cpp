// Where the lines and the rows of a text are, and which characters it has.

#include "test_main.h"
#include "text/text_lines.h"
#include "text/text_positions.h"
#include "text/text_rows.h"
#include "text/utf8_character.h"

class TextLinesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines_data();
    void lines();
    void characters_data();
    void characters();
    void characterIsFoundFromEachByte();
    void rowsCoverLongLines_data();
    void rowsCoverLongLines();
    void widestRow_data();
    void widestRow();
    void manyEmptyLinesNeedLittleMemory();
    void positionsAgreeWithQString();
};

namespace {

const QByteArray grin = QByteArrayLiteral("\xF0\x9F\x98\x80");
const QByteArray acute = QByteArrayLiteral("\xCC\x81"); // combining

} // namespace

void TextLinesTest::lines_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QList<QByteArray>>("expected");
    using Lines = QList<QByteArray>;
    QTest::newRow("empty") << QByteArray() << Lines {""};
    QTest::newRow("no line end") << QByteArray("one") << Lines {"one"};
    QTest::newRow("line feed") << QByteArray("one\ntwo") << Lines {"one", "two"};
    QTest::newRow("at the end") << QByteArray("one\n") << Lines {"one", ""};
    QTest::newRow("carriage return and line feed") << QByteArray("one\r\ntwo\r\n") << Lines {"one", "two", ""};
    QTest::newRow("carriage return") << QByteArray("one\rtwo\r") << Lines {"one", "two", ""};
    QTest::newRow("all of them") << QByteArray("\r\r\n\n\n\r") << Lines {"", "", "", "", "", ""};
    QTest::newRow("null is no end") << QByteArray("a\0b\n", 4) << Lines {QByteArray("a\0b", 3), ""};
}

void TextLinesTest::lines()
{
    QFETCH(QByteArray, text);
    QFETCH(QList<QByteArray>, expected);
    const TextLines lines(text);
    QList<QByteArray> found;
    for (int i = 0; i < lines.count(); ++i) {
        const TextRange range = lines.line(i);
        found << text.mid(range.begin, range.end - range.begin);
        const int next = i + 1 < lines.count() ? lines.line(i + 1).begin : text.size() + 1;
        for (int offset = range.begin; offset < next; ++offset)
            QCOMPARE(lines.lineAt(offset), i);
    }
    QCOMPARE(found, expected);
    QCOMPARE(lines.text(), text);
}

void TextLinesTest::characters_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    const QString wrong(QChar::ReplacementCharacter);
    QTest::newRow("ASCII") << QByteArray("aZ~\x7F") << QStringLiteral("aZ~\x7F");
    QTest::newRow("two bytes") << QByteArray("\xC2\x80\xDF\xBF") << QStringLiteral("\u0080\u07FF");
    QTest::newRow("three bytes") << QByteArray("\xE0\xA0\x80\xEF\xBF\xBD") << QStringLiteral("\u0800\uFFFD");
    QTest::newRow("four bytes") << QByteArray("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF") << QStringLiteral("\U00010000\U0010FFFF");
    QTest::newRow("no first byte") << QByteArray("a\x80\xBF"
                                                 "b")
                                   << "a" + wrong + wrong + "b";
    QTest::newRow("too long") << QByteArray("\xC0\x80\xE0\x9F\xBF\xF0\x8F\xBF\xBF") << wrong.repeated(9);
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80\xED\x9F\xBF") << wrong.repeated(3) + QStringLiteral("\uD7FF");
    QTest::newRow("above U+10FFFF") << QByteArray("\xF4\x90\x80\x80\xF5\xFF") << wrong.repeated(6);
    QTest::newRow("ends early") << QByteArray("\xE2\x82") << wrong.repeated(2);
    QTest::newRow("interrupted") << QByteArray("\xE2\x82z\xF0\x9F\x98\xE2\x82\xAC")
                                 << wrong.repeated(2) + "z" + wrong.repeated(3) + QStringLiteral("\u20AC");
}

void TextLinesTest::characters()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    QCOMPARE(decodedText(bytes, 0, bytes.size()), expected);
}

void TextLinesTest::characterIsFoundFromEachByte()
{
    const QByteArray text = "a\xC3\xA9" + grin + "\x98\xE2\x82z";
    const int begins[] = {0, 1, 1, 3, 3, 3, 3, 7, 8, 9, 10, 11};
    for (int offset = 0; offset <= text.size(); ++offset)
        QCOMPARE(beginOfCharacter(text, offset), begins[offset]);
    QCOMPARE(beginOfCharacter(text, -1), 0);
    QCOMPARE(beginOfCharacter(text, 99), text.size());
}

void TextLinesTest::rowsCoverLongLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("rows");
    const int longest = TextRows::longestRow;
    QTest::newRow("empty") << QByteArray() << 1;
    QTest::newRow("as long as a row") << QByteArray(longest, 'x') << 1;
    QTest::newRow("one more") << QByteArray(longest + 1, 'x') << 2;
    QTest::newRow("long") << QByteArray(10 * longest, 'x') << 10;
    QTest::newRow("character at the break") << QByteArray(longest - 1, 'x') + grin.repeated(longest) << 5;
    QTest::newRow("accent at the break") << QByteArray(longest - 1, 'x') + "e" + acute + "z" << 2;
    QTest::newRow("many accents") << QByteArray("e") + acute.repeated(longest) << 3;
    QTest::newRow("wrong bytes") << QByteArray(3 * longest, '\x80') << 3;
}

void TextLinesTest::rowsCoverLongLines()
{
    QFETCH(QByteArray, line);
    QFETCH(int, rows);
    const QByteArray text = "before\r\n" + line + "\r\nafter\n" + line;
    const TextRows found {TextLines(text)};
    QCOMPARE(found.count(), 2 + 2 * rows);
    for (int row = 0; row < found.count(); ++row) {
        const TextRange range = found.row(row);
        QVERIFY(range.end - range.begin <= TextRows::longestRow + 32);
        QCOMPARE(found.rowAt(range.begin), row);
        QCOMPARE(beginOfCharacter(text, range.begin), range.begin);
        const bool continues = (row >= 1 && row < rows) || (row >= 2 + rows && row < 1 + 2 * rows);
        QCOMPARE(found.continues(row), continues);
        QCOMPARE(found.rowAt(range.end), continues ? row + 1 : row);
        if (continues)
            QCOMPARE(found.row(row + 1).begin, range.end);
    }
    QCOMPARE(found.row(1).begin, 8);
    QCOMPARE(found.row(rows).end, 8 + line.size());
    QCOMPARE(found.row(1 + rows).begin, 8 + line.size() + 2);
    QCOMPARE(found.row(1 + 2 * rows).end, text.size());
    if (QByteArray(QTest::currentDataTag()) == "accent at the break")
        QCOMPARE(found.row(1).end, 8 + TextRows::longestRow - 1); // the letter goes with its accent
}

void TextLinesTest::widestRow_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("columns");
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("longest line") << QByteArray("one\nthree\ntwo") << 5;
    QTest::newRow("tab") << QByteArray("0123456789\na\tb\tc") << 17;
    QTest::newRow("two columns") << QByteArray("\xE7\xB3\xBB\xE7\xB5\xB1") << 4;
    QTest::newRow("letter of two bytes") << QByteArray("\xC3\xA9\xC3\xA9") << 2;
    QTest::newRow("long line") << QByteArray(10000, 'x') << TextRows::longestRow;
}

void TextLinesTest::widestRow()
{
    QFETCH(QByteArray, text);
    QTEST(TextRows {TextLines(text)}.widestColumns(), "columns");
}

void TextLinesTest::manyEmptyLinesNeedLittleMemory()
{
    constexpr int count = 1000000;
    const TextRows rows {TextLines(QByteArray(count, '\n'))};
    QCOMPARE(rows.count(), count + 1);
    QCOMPARE(rows.rowAt(count / 2), count / 2);
    QCOMPARE(rows.row(count).begin, count);
}

void TextLinesTest::positionsAgreeWithQString()
{
    const QByteArray piece = "ab\xC3\xA9" + grin + "\xE7\xB3\xBB\r\n";
    const QByteArray text = piece.repeated(1000); // several checkpoints
    const QString string = QString::fromUtf8(text);
    const TextPositions positions(text);
    QCOMPARE(positions.units(), string.size());
    for (int unit = 0; unit <= string.size(); unit += 7) {
        const bool isSecond = unit < string.size() && string.at(unit).isLowSurrogate();
        const int begin = isSecond ? unit - 1 : unit;
        const int offset = string.left(begin).toUtf8().size();
        QCOMPARE(positions.offsetOf(unit), offset);
        QCOMPARE(positions.unitsBefore(offset), begin);
    }
    QCOMPARE(positions.offsetOf(string.size() + 5), text.size());
    QCOMPARE(positions.offsetOf(-1), 0);
    QCOMPARE(positions.unitsBefore(text.size() + 5), string.size());
    QVERIFY(positions.isOf(text));
    QVERIFY(!positions.isOf(QByteArray("other")));
}

TEST_WITHOUT_APPLICATION(TextLinesTest);

#include "tst_text_lines.moc"
