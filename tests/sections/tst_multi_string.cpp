// registryMultiStringToList() and registryWideMultiStringToList().

#include "rows.h"
#include "win/multi_string.h"

#include <QtTest/QtTest>
#include <string>
#include <vector>

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

// Buffers that end with a null. '|' in the text stands for a null.

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

// Both functions end a list by the same rules. '|' stands for a null.
void stopRows()
{
    const auto row = [](const QString &name, const QString &text, uint count, const QStringList &expected) {
        addTestRow("narrow: " + name, [=] {
            QCOMPARE(registryMultiStringToList(narrowBuffer(text).constData(), count), expected);
        });
        addTestRow("wide: " + name, [=] {
            QCOMPARE(registryWideMultiStringToList(wideBuffer(text).data(), count), expected);
        });
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
    row("one string without a terminator", "Alpha", 5, {"Alpha"});
    row("one character without a terminator", "A", 1, {"A"});
    row("the count ends inside a string: the whole string", "A|Beta||", 3, {"A", "Beta"});
    row("the count ends inside the first string", "Alpha|B||", 1, {"Alpha"});
    row("the count ends before a string: without it", "A|Beta||", 2, {"A"});
    row("the count ends before a terminator: without the next string", "A|Beta||", 1, {"A"});
    row("an empty string ends the list before a count that is too large", "A|B||stale||", 100, {"A", "B"});
    row("a string of blanks is a string", " |  ||", 6, {" ", "  "});
    row("placeholders are not replaced", "%1|%99 %L1||", 11, {"%1", "%99 %L1"});
}

void narrowTextRows()
{
    const auto row = [](const QString &name, const QByteArray &string, const QString &expected) {
        addTestRow(name, [=] {
            const QByteArray buffer = string + '\0' + string + QByteArray(2, '\0');
            QCOMPARE(registryMultiStringToList(buffer.constData(), uint(buffer.size())), QStringList({expected, expected}));
        });
    };
    row("UTF-8 of two bytes",
        "Gr\xc3\xbc\xc3\x9f"
        "e",
        QString("Gr") + QChar(0xfc) + QChar(0xdf) + "e");
    row("UTF-8 of four bytes", "\xf0\x9f\x98\x80", QString() + QChar(0xd83d) + QChar(0xde00));
    row("a byte that is not UTF-8 becomes U+FFFD", "M\xe4rz", QString("M") + QChar(0xfffd) + "rz");
}

void wideTextRows()
{
    const auto row = [](const QString &name, const QString &string) {
        addTestRow(name, [=] {
            const std::vector<wchar_t> buffer = wideBuffer(string + '|' + string + '|');
            // Quirk: callers pass the count of bytes, which is twice the count of units.
            QCOMPARE(registryWideMultiStringToList(buffer.data(), uint(2 * buffer.size())), QStringList({string, string}));
        });
    };
    row("outside ASCII", QString("M") + QChar(0xe4) + "rz " + QChar(0x20ac));
    row("a surrogate pair", QString() + QChar(0xd83d) + QChar(0xde00));
    row("a lone surrogate", QString() + QChar(0xd83d));
    row("a leading U+FEFF is a character", QString() + QChar(0xfeff) + "A");
    row("a leading U+FFFE is a character", QString() + QChar(0xfffe) + "A");
}

void addRows()
{
    stopRows();
    narrowTextRows();
    wideTextRows();
    addTestRow("a null pointer", [] {
        QCOMPARE(registryMultiStringToList(nullptr, 0), QStringList());
        QCOMPARE(registryWideMultiStringToList(nullptr, 0), QStringList());
    });
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
