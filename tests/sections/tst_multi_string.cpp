// registryMultiStringToList() and registryWideMultiStringToList().

#include "test_main.h"
#include "win/multi_string.h"

#include <QtTest/QtTest>
#include <string>
#include <vector>

using namespace velkor::SystemInfo::WinSysInfo;

class MultiStringTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void narrow_data();
    void narrow();
    void narrowText_data();
    void narrowText();
    void wide_data();
    void wide();
    void wideText_data();
    void wideText();
    void noBuffer();
};

namespace {

const QChar replacement(0xfffd);

/// A buffer of 8-bit text or of UTF-16 with a null behind it, where '|' in \a text
/// stands for a null.
QByteArray narrowBuffer(const QString &text)
{
    return text.toLatin1().replace('|', '\0');
}

std::vector<wchar_t> wideBuffer(const QString &text)
{
    std::vector<wchar_t> buffer;
    for (const QChar unit : text)
        buffer.push_back(unit == QLatin1Char('|') ? L'\0' : wchar_t(unit.unicode()));
    buffer.push_back(L'\0');
    return buffer;
}

// The stop rules are the same for both; '|' stands for a null.
void addRows()
{
    QTest::addColumn<QString>("buffer");
    QTest::addColumn<uint>("count");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const char *buffer, uint count, const QStringList &expected) {
        QTest::newRow(name) << QString(buffer) << count << expected;
    };
    row("count 0: nothing", "A|B||", 0, {});
    row("three strings in their order", "C|A|B||", 7, {"C", "A", "B"});
    row("the same string twice", "A|A||", 5, {"A", "A"});
    row("one string", "Alpha||", 7, {"Alpha"});
    row("one null: nothing", "|", 1, {});
    row("two nulls: nothing", "||", 2, {});
    row("first string empty: nothing", "|B||", 4, {});
    row("an empty string inside ends the list", "A||C||", 6, {"A"});
    row("without the terminator of the list", "A|B|", 4, {"A", "B"});
    row("without any terminator", "A|B", 3, {"A", "B"});
    row("one string without terminator", "Alpha", 5, {"Alpha"});
    row("one character without terminator", "A", 1, {"A"});
    row("cut inside a string: it is taken whole", "A|Beta||", 3, {"A", "Beta"});
    row("cut inside the first string", "Alpha|B||", 1, {"Alpha"});
    row("cut before a string: it is left out", "A|Beta||", 2, {"A"});
    row("cut before a terminator: the next string is left out", "A|Beta||", 1, {"A"});
    row("the empty string wins over a count that is too large", "A|B||stale||", 100, {"A", "B"});
    row("blanks are a string", " |  ||", 6, {" ", "  "});
    row("placeholders stay", "%1|%99 %L1||", 11, {"%1", "%99 %L1"});
}

} // namespace

void MultiStringTest::narrow_data()
{
    addRows();
}

void MultiStringTest::narrow()
{
    QFETCH(QString, buffer);
    QFETCH(uint, count);
    QFETCH(QStringList, expected);
    QCOMPARE(registryMultiStringToList(narrowBuffer(buffer).constData(), count), expected);
}

void MultiStringTest::narrowText_data()
{
    QTest::addColumn<QByteArray>("string");
    QTest::addColumn<QString>("expected");
    QTest::newRow("UTF-8 of two bytes")
        << QByteArray("Gr\xc3\xbc\xc3\x9f"
                      "e")
        << QString("Gr") + QChar(0xfc) + QChar(0xdf) + "e";
    QTest::newRow("UTF-8 of four bytes") << QByteArray("\xf0\x9f\x98\x80") << QString() + QChar(0xd83d) + QChar(0xde00);
    QTest::newRow("a byte of an ANSI code page") << QByteArray("M\xe4rz") << QString("M") + replacement + "rz";
}

void MultiStringTest::narrowText()
{
    QFETCH(QByteArray, string);
    QFETCH(QString, expected);
    const QByteArray buffer = string + '\0' + string + QByteArray(2, '\0');
    QCOMPARE(registryMultiStringToList(buffer.constData(), uint(buffer.size())), QStringList({expected, expected}));
}

void MultiStringTest::wide_data()
{
    addRows();
}

void MultiStringTest::wide()
{
    QFETCH(QString, buffer);
    QFETCH(uint, count);
    QFETCH(QStringList, expected);
    QCOMPARE(registryWideMultiStringToList(wideBuffer(buffer).data(), count), expected);
}

void MultiStringTest::wideText_data()
{
    QTest::addColumn<QString>("string");
    QTest::newRow("beyond ASCII") << QString("M") + QChar(0xe4) + "rz " + QChar(0x20ac);
    QTest::newRow("two units that are one character") << QString() + QChar(0xd83d) + QChar(0xde00);
    QTest::newRow("half of such a pair") << QString() + QChar(0xd83d);
    QTest::newRow("a leading U+FEFF is a character") << QString() + QChar(0xfeff) + "A";
    QTest::newRow("a leading U+FFFE is a character") << QString() + QChar(0xfffe) + "A";
}

// With the count of bytes that callers have, which is twice that of units.
void MultiStringTest::wideText()
{
    QFETCH(QString, string);
    const std::vector<wchar_t> buffer = wideBuffer(string + '|' + string + '|');
    QCOMPARE(registryWideMultiStringToList(buffer.data(), uint(2 * buffer.size())), QStringList({string, string}));
}

void MultiStringTest::noBuffer()
{
    QCOMPARE(registryMultiStringToList(nullptr, 0), QStringList());
    QCOMPARE(registryWideMultiStringToList(nullptr, 0), QStringList());
}

TEST_WITH_CORE_APPLICATION(MultiStringTest);
#include "tst_multi_string.moc"
