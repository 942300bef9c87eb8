// UTF-16 and UTF-8. The bytes are derived by hand from the Unicode standard.

#include "test_main.h"
#include "text_encoding.h"

using namespace velkor::Reports;

class TextEncodingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void both_data();
    void both();
    void everyUnit();
    void detected_data();
    void detected();
    void utf8_data();
    void utf8();
};

void TextEncodingTest::both_data()
{
    QTest::addColumn<QByteArray>("utf16"); // little-endian, in hexadecimal digits
    QTest::addColumn<QByteArray>("utf8");
    QTest::newRow("ASCII") << QByteArray("4100 0a00") << QByteArray("41 0a");
    QTest::newRow("null") << QByteArray("0000") << QByteArray("00");
    QTest::newRow("the last of one byte") << QByteArray("7f00") << QByteArray("7f");
    QTest::newRow("the first of two bytes") << QByteArray("8000") << QByteArray("c280");
    QTest::newRow("the last of two bytes") << QByteArray("ff07") << QByteArray("dfbf");
    QTest::newRow("the first of three bytes") << QByteArray("0008") << QByteArray("e0a080");
    QTest::newRow("the last unit") << QByteArray("ffff") << QByteArray("efbfbf");
    QTest::newRow("the first pair") << QByteArray("00d8 00dc") << QByteArray("f0908080");
    QTest::newRow("the last pair") << QByteArray("ffdb ffdf") << QByteArray("f48fbfbf");
    QTest::newRow("a high surrogate alone") << QByteArray("00d8 4100") << QByteArray("eda080 41");
    QTest::newRow("a high surrogate at the end") << QByteArray("4100 ffdb") << QByteArray("41 edafbf");
    QTest::newRow("a low surrogate alone") << QByteArray("00dc") << QByteArray("edb080");
    QTest::newRow("surrogates in the wrong order") << QByteArray("00dc 00d8") << QByteArray("edb080 eda080");
    QTest::newRow("two high ones and a low one") << QByteArray("00d8 00d8 00dc") << QByteArray("eda080 f0908080");
    QTest::newRow("the mark") << QByteArray("fffe") << QByteArray("efbbbf");
}

void TextEncodingTest::both()
{
    QFETCH(QByteArray, utf16);
    QFETCH(QByteArray, utf8);
    const QByteArray units = QByteArray::fromHex(utf16);
    const QByteArray bytes = QByteArray::fromHex(utf8);
    QByteArray bigEndian;
    for (int i = 0; i + 1 < units.size(); i += 2)
        bigEndian.append(units[i + 1]).append(units[i]);
    QCOMPARE(fromUtf16(units, Encoding::Utf16LittleEndian), bytes);
    QCOMPARE(fromUtf16(bigEndian, Encoding::Utf16BigEndian), bytes);
    QCOMPARE(toUtf16(bytes, Encoding::Utf16LittleEndian), units);
    QCOMPARE(toUtf16(bytes, Encoding::Utf16BigEndian), bigEndian);
    QCOMPARE(fromUtf16(units + 'x', Encoding::Utf16LittleEndian), bytes); // the last byte is no unit
}

void TextEncodingTest::everyUnit()
{
    QByteArray units;
    for (int unit = 0; unit < 0x10000; ++unit) {
        units.append(char(unit & 0xff));
        units.append(char(unit >> 8));
    }
    QCOMPARE(toUtf16(fromUtf16(units, Encoding::Utf16LittleEndian), Encoding::Utf16LittleEndian), units);
}

void TextEncodingTest::detected_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("encoding");
    const QString text = QStringLiteral("Memory Information:\n");
    QByteArray little;
    QByteArray big;
    for (const QChar character : text) {
        little.append(char(character.cell())).append(char(character.row()));
        big.append(char(character.row())).append(char(character.cell()));
    }
    QTest::newRow("empty") << QByteArray() << int(Encoding::Utf8);
    QTest::newRow("ASCII") << text.toLatin1() << int(Encoding::Utf8);
    QTest::newRow("mark of UTF-8") << QByteArray("\xef\xbb\xbf"
                                                 "abc")
                                   << int(Encoding::Utf8);
    QTest::newRow("little-endian mark") << QByteArray("\xff\xfe"
                                                      "a")
                                        << int(Encoding::Utf16LittleEndian);
    QTest::newRow("big-endian mark") << QByteArray("\xfe\xff", 2) << int(Encoding::Utf16BigEndian);
    QTest::newRow("little-endian zeros") << little << int(Encoding::Utf16LittleEndian);
    QTest::newRow("big-endian zeros") << big << int(Encoding::Utf16BigEndian);
    QTest::newRow("few units") << little.left(14) << int(Encoding::Utf8);
    QTest::newRow("eight units") << little.left(16) << int(Encoding::Utf16LittleEndian);
    QTest::newRow("only zeros") << QByteArray(100, '\0') << int(Encoding::Utf8);
}

void TextEncodingTest::detected()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, encoding);
    QCOMPARE(int(detectEncoding(bytes)), encoding);
}

void TextEncodingTest::utf8_data()
{
    QTest::addColumn<QByteArray>("bytes"); // in hexadecimal digits
    QTest::addColumn<bool>("valid");
    const auto row = [](const char *bytes, bool valid) { QTest::newRow(bytes) << QByteArray(bytes) << valid; };
    row("", true);
    row("00 7f", true);
    row("80", false);
    row("bf", false);
    row("c080", false); // overlong
    row("c1bf", false);
    row("c280", true);
    row("dfbf", true);
    row("c2", false);
    row("c241", false);
    row("c2c0", false);
    row("e09fbf", false); // overlong
    row("e0a080", true);
    row("ed9fbf", true);
    row("eda080", false); // surrogate
    row("edbfbf", false);
    row("ee8080", true);
    row("efbfbf", true);
    row("e0a0", false);
    row("e0a041", false);
    row("e1c080", false);
    row("f08fbfbf", false); // overlong
    row("f0908080", true);
    row("f48fbfbf", true);
    row("f4908080", false); // above U+10FFFF
    row("f5808080", false);
    row("ff", false);
    row("f09080", false);
    row("f0908041", false);
    row("41 c3a4 42", true);
    row("41 e4 42", false);
}

void TextEncodingTest::utf8()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, valid);
    QCOMPARE(isUtf8(QByteArray::fromHex(bytes)), valid);
}

TEST_WITHOUT_APPLICATION(TextEncodingTest);
#include "tst_text_encoding.moc"
