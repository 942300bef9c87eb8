// GetUserNameW() and GetComputerNameExW(): sizes, with or without the terminator.

#include "answering_windows.h"
#include "rows.h"

namespace {

TextAnswer userNameInto(DWORD capacity)
{
    SetLastError(poison);
    return textAnswer(capacity, [](WCHAR *buffer, DWORD *size) { return GetUserNameW(buffer, size); });
}

TextAnswer computerNameInto(int format, DWORD capacity)
{
    SetLastError(poison);
    return textAnswer(capacity, [&](WCHAR *buffer, DWORD *size) {
        return GetComputerNameExW(COMPUTER_NAME_FORMAT(format), buffer, size);
    });
}

const std::pair<const char *, int> formats[] = {
    {"NetBIOS", ComputerNameNetBIOS},
    {"DNS host", ComputerNameDnsHostname},
    {"DNS domain", ComputerNameDnsDomain},
    {"DNS fully qualified", ComputerNameDnsFullyQualified},
    {"physical NetBIOS", ComputerNamePhysicalNetBIOS},
    {"physical DNS host", ComputerNamePhysicalDnsHostname},
    {"physical DNS domain", ComputerNamePhysicalDnsDomain},
    {"physical DNS fully qualified", ComputerNamePhysicalDnsFullyQualified},
};

void userName()
{
    const AnsweringWindows windows;
    const TextAnswer large = userNameInto(257);
    QCOMPARE(large.result, DWORD(TRUE));
    QVERIFY(!large.text.isEmpty());
    QCOMPARE(large.size, DWORD(large.text.size() + 1)); // with its terminator
    QVERIFY(large.withinBounds);

    const TextAnswer exact = userNameInto(large.size);
    QCOMPARE(exact.result, DWORD(TRUE));
    QCOMPARE(exact.text, large.text);
    QCOMPARE(exact.size, large.size);
    QVERIFY(exact.withinBounds);
}

void userNameTooLong()
{
    const auto row = [](const QString &name, int missing) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            const DWORD needed = userNameInto(257).size;
            const TextAnswer answer = userNameInto(missing ? needed - DWORD(missing) : 0);
            QCOMPARE(GetLastError(), DWORD(ERROR_INSUFFICIENT_BUFFER));
            QCOMPARE(answer.result, DWORD(FALSE));
            QVERIFY(answer.untouched);
            QCOMPARE(answer.size, needed);
        });
    };
    row("no room for the terminator", 1);
    row("a buffer of 0 units", 0);
}

void computerName()
{
    const auto row = [](const QString &name, int format) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            const TextAnswer large = computerNameInto(format, 1024);
            QCOMPARE(large.result, DWORD(TRUE));
            QCOMPARE(large.size, DWORD(large.text.size())); // without its terminator
            QVERIFY(!large.untouched);
            QVERIFY(large.withinBounds);

            const TextAnswer exact = computerNameInto(format, large.size + 1);
            QCOMPARE(exact.result, DWORD(TRUE));
            QCOMPARE(exact.text, large.text);
            QCOMPARE(exact.size, large.size);
            QVERIFY(exact.withinBounds);
        });
    };
    for (const auto &named : formats)
        row(named.first, named.second);
}

void computerNameTooLong()
{
    const auto row = [](const QString &name, int format) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            const DWORD length = computerNameInto(format, 1024).size;
            for (const DWORD capacity : {length, DWORD(0)}) { // without the terminator; nothing
                const TextAnswer answer = computerNameInto(format, capacity);
                QCOMPARE(GetLastError(), DWORD(ERROR_MORE_DATA));
                QCOMPARE(answer.result, DWORD(FALSE));
                QVERIFY(answer.untouched);
                QCOMPARE(answer.size, length + 1);
            }
        });
    };
    for (const auto &named : formats)
        row(named.first, named.second);
}

void unknownFormatFails()
{
    const AnsweringWindows windows;
    const TextAnswer answer = computerNameInto(8, 64);
    QCOMPARE(answer.result, DWORD(FALSE));
    QVERIFY(answer.untouched);
    QCOMPARE(answer.size, DWORD(64));
}

void addTests()
{
    addTestRow("userName", userName);
    addTestRows("userNameTooLong", userNameTooLong);
    addTestRows("computerName", computerName);
    addTestRows("computerNameTooLong", computerNameTooLong);
    addTestRow("unknownFormatFails", unknownFormatFails);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
