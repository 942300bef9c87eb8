// formatByteSize(): limits of the units and of the decimal digit.

#include "rows.h"
#include "win/format_byte_size.h"

#include <QtTest/QtTest>

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

void text()
{
    const auto row = [](const char *name, quint64 bytes, const QString &expected) {
        addTestRow(name, [=] {
            QCOMPARE(formatByteSize(bytes), expected);
        });
    };
    row("nothing", 0, "0 Byte");
    row("one byte", 1, "1 Byte");
    row("last in Byte", 1023, "1023 Byte");
    row("first KByte", 1024, "1.0 KByte");
    row("a KByte and a half", 1536, "1.5 KByte");
    row("last below two KByte", 2047, "1.9 KByte");
    row("two KByte", 2048, "2.0 KByte");
    row("last KByte: truncated, not rounded", 1048575, "1023.9 KByte");
    row("first MByte", 1048576, "1.0 MByte");
    row("last below 1.5 MByte", 1572863, "1.4 MByte");
    row("1.5 MByte", 1572864, "1.5 MByte");
    row("last below two MByte", 2097151, "1.9 MByte");
    row("last MByte: truncated, not rounded", 1073741823, "1023.9 MByte");
    row("first GByte", 1073741824, "1.0 GByte");
    row("last below 1.5 GByte", 1610612735, "1.4 GByte");
    row("1.5 GByte", 1610612736, "1.5 GByte");
    row("largest signed 32-bit size", 2147483647, "1.9 GByte");
    row("first larger than signed 32 bits", 2147483648, "2.0 GByte");
    row("largest 32-bit size", 4294967295, "3.9 GByte");
    row("first larger than 32 bits", 4294967296, "4.0 GByte");
    row("16 GByte", 17179869184, "16.0 GByte");
    row("no unit beyond GByte: last below 2^40", 1099511627775, "1023.9 GByte");
    row("no unit beyond GByte: 2^40", 1099511627776, "1024.0 GByte");
    row("largest signed 64-bit size", 9223372036854775807u, "8589934591.9 GByte");
    row("first larger than signed 64 bits", 9223372036854775808u, "8589934592.0 GByte");
    row("largest size", 18446744073709551615u, "17179869183.9 GByte");
}

// The digit counts tenths of a unit, which is 1024 of the next smaller unit. These are the smallest
// sizes that have each digit, and the sizes before them.
void digitIsTruncated()
{
    const auto row = [](const QString &name, quint64 remainder, int digit) {
        addTestRow(name, [=] {
            const quint64 bytes = 7 * 1024 + remainder;
            const QString number = QString("7.") + QString::number(digit);
            QCOMPARE(formatByteSize(bytes), number + " KByte");
            QCOMPARE(formatByteSize(bytes * 1024), number + " MByte");
            QCOMPARE(formatByteSize(bytes * 1024 + 1023), number + " MByte");
            QCOMPARE(formatByteSize(bytes * 1048576), number + " GByte");
            QCOMPARE(formatByteSize(bytes * 1048576 + 1048575), number + " GByte");
        });
    };
    const quint64 firstWithDigit[] = {0, 103, 205, 308, 410, 512, 615, 717, 820, 922};
    for (int digit = 0; digit < 10; ++digit) {
        const quint64 first = firstWithDigit[digit];
        const quint64 last = digit < 9 ? firstWithDigit[digit + 1] - 1 : 1023;
        row(QString::asprintf("first with .%d", digit), first, digit);
        row(QString::asprintf("last with .%d", digit), last, digit);
    }
}

void addTests()
{
    addTestRows("text", text);
    addTestRows("digitIsTruncated", digitIsTruncated);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
