// Rows and pages of printed text.

#include "output/page_layout.h"
#include "test_main.h"

class PageLayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rows_data();
    void rows();
    void pages_data();
    void pages();
    void nothingIsLost_data();
    void nothingIsLost();
    void wideCharacters();
    void charactersThatBelongTogether();
    void longLine();
};

namespace {

/// Every UTF-16 unit is one unit wide, and a wide ideograph two.
qreal widthOf(const QString &text)
{
    qreal width = 0;
    for (const QChar character : text)
        width += character.unicode() >= 0x4e00 && character.unicode() <= 0x9fff ? 2 : 1;
    return width;
}

PageLayout layoutOf(const QByteArray &text, int columns = 10, int rows = 1000)
{
    return PageLayout(text, columns, rows, 1, widthOf);
}

/// A row that continues a line begins with "+".
QStringList rowsOf(const PageLayout &layout, int page = 0)
{
    QStringList texts;
    for (const PageLayout::Row &row : layout.page(page))
        texts += (row.continues ? QStringLiteral("+") : QString()) + row.text;
    return texts;
}

} // namespace

void PageLayoutTest::rows_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const QByteArray &text, const QStringList &expected) { QTest::newRow(name) << text << expected; };
    row("nothing", "", {});
    row("a line", "abc\n", {"abc"});
    row("without a line feed", "abc", {"abc"});
    row("empty lines", "\n\na\n\n", {"", "", "a", ""});
    row("carriage returns and line feeds", "a\r\nb\r\n", {"a", "b"});
    row("carriage returns", "a\rb\r", {"a", "b"});
    row("exactly as wide as the page", "0123456789\n", {"0123456789"});
    row("one more", "0123456789a\n", {"0123456789", "+a"});
    row("twice as wide", "01234567890123456789\n", {"0123456789", "+0123456789"});
    row("blanks", "   a      b  \n", {"   a      ", "+b  "});
    row("tabs", "a\tb\n", {"a       b"});
    row("control characters", "a\x1b[0m\n", {"a\\x1b[0m"});
    row("direction", "a\xe2\x80\xae"
                     "b\n",
        {"a\\u202eb"});
    row("no-break space", "a\xc2\xa0"
                          "b\n",
        {QString::fromUtf8("a\xc2\xa0"
                           "b")});
    row("no UTF-8", "a\xff\n", {QString::fromUtf8("a\xef\xbf\xbd")});
    row("another letter in a long line", "J\xc3\xb6rn 567890abc\n", {QString::fromUtf8("J\xc3\xb6rn 56789"), "+0abc"});
}

void PageLayoutTest::rows()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, expected);
    QCOMPARE(rowsOf(layoutOf(text)), expected);
}

void PageLayoutTest::pages_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<int>("count");
    QTest::newRow("0") << 0 << 1;
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("4") << 4 << 1;
    QTest::newRow("5") << 5 << 2;
    QTest::newRow("8") << 8 << 2;
    QTest::newRow("9") << 9 << 3;
}

void PageLayoutTest::pages()
{
    QFETCH(int, lines);
    QFETCH(int, count);
    QByteArray text;
    QStringList expected;
    for (int i = 0; i < lines; ++i) {
        text += QByteArray::number(i) + '\n';
        expected += QString::number(i);
    }
    const PageLayout layout = layoutOf(text, 10, 4);
    QCOMPARE(layout.pageCount(), count);
    QStringList all;
    for (int page = 0; page < count; ++page) {
        QVERIFY(rowsOf(layout, page).size() <= 4);
        all += rowsOf(layout, page);
    }
    QCOMPARE(all, expected);
    QVERIFY(rowsOf(layout, count).isEmpty());
}

void PageLayoutTest::nothingIsLost_data()
{
    QTest::addColumn<int>("columns");
    for (const int columns : {1, 2, 3, 7, 80})
        QTest::newRow(qPrintable(QString::number(columns))) << columns;
}

// The rows of a line are the line, in any width.
void PageLayoutTest::nothingIsLost()
{
    QFETCH(int, columns);
    const QByteArrayList lines {"", "a", "C:\\Users\\J\xc3\xb6rn\\\xe6\x96\x87\xe6\x9b\xb8\\x.dll", QByteArray(500, 'x'),
                                "\xf0\x9f\x98\x80\xf0\x9f\x98\x80\xf0\x9f\x98\x80", "e\xcc\x81"
                                                                                    "e\xcc\x81"
                                                                                    "e\xcc\x81",
                                "\t\t"};
    const PageLayout layout = layoutOf(lines.join('\n'), columns, 5);
    QStringList joined;
    for (int page = 0; page < layout.pageCount(); ++page) {
        for (const PageLayout::Row &row : layout.page(page)) {
            if (row.continues)
                joined.last() += row.text;
            else
                joined += row.text;
        }
    }
    QStringList expected;
    for (const QByteArray &line : lines)
        expected += printedLine(line);
    QCOMPARE(joined, expected);
}

void PageLayoutTest::wideCharacters()
{
    QByteArray line;
    for (int i = 0; i < 7; ++i)
        line += "\xe6\x96\x87";
    QCOMPARE(rowsOf(layoutOf(line)), QStringList({QString::fromUtf8(line.left(15)), QLatin1Char('+') + QString::fromUtf8(line.mid(15))}));
    QCOMPARE(rowsOf(layoutOf(line, 1)).size(), 7); // wider than the page: one character in each row
}

void PageLayoutTest::charactersThatBelongTogether()
{
    const QByteArray smile = "\xf0\x9f\x98\x80"; // two UTF-16 units
    QCOMPARE(rowsOf(layoutOf("012345678" + smile)), QStringList({QStringLiteral("012345678"), QLatin1Char('+') + QString::fromUtf8(smile)}));
    const QByteArray accent = "e\xcc\x81";
    QCOMPARE(rowsOf(layoutOf("012345678" + accent)), QStringList({QStringLiteral("012345678"), QLatin1Char('+') + QString::fromUtf8(accent)}));
}

void PageLayoutTest::longLine()
{
    const int size = 1000000;
    const PageLayout layout = layoutOf("\xc3\xa4" + QByteArray(size, 'x'), 100, 50);
    QCOMPARE(layout.pageCount(), 201); // 1,000,001 characters in rows of 100 and pages of 50 rows
    QCOMPARE(layout.page(200).size(), std::size_t(1));
    QCOMPARE(layout.page(200).front().text, QStringLiteral("x"));
}

TEST_WITHOUT_APPLICATION(PageLayoutTest);
#include "tst_page_layout.moc"
