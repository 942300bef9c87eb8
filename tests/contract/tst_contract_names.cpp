// GetUserNameW and GetComputerNameExW: sizes with and without the terminator.

#include "answering_windows.h"
#include "rows.h"

namespace {

TextAnswer userNameInto(DWORD room)
{
    SetLastError(poison);
    return textAnswer(room, [](WCHAR *buffer, DWORD *size) { return GetUserNameW(buffer, size); });
}

TextAnswer computerNameInto(int format, DWORD room)
{
    SetLastError(poison);
    return textAnswer(room, [&](WCHAR *buffer, DWORD *size) {
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
    const TextAnswer roomy = userNameInto(257);
    QCOMPARE(roomy.result, DWORD(TRUE));
    QVERIFY(!roomy.text.isEmpty());
    QCOMPARE(roomy.size, DWORD(roomy.text.size() + 1)); // with its terminator
    QVERIFY(roomy.withinRoom);

    const TextAnswer exact = userNameInto(roomy.size);
    QCOMPARE(exact.result, DWORD(TRUE));
    QCOMPARE(exact.text, roomy.text);
    QCOMPARE(exact.size, roomy.size);
    QVERIFY(exact.withinRoom);
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
    row("no room at all", 0);
}

void computerName()
{
    const auto row = [](const QString &name, int format) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            const TextAnswer roomy = computerNameInto(format, 1024);
            QCOMPARE(roomy.result, DWORD(TRUE));
            QCOMPARE(roomy.size, DWORD(roomy.text.size())); // without its terminator
            QVERIFY(!roomy.untouched);
            QVERIFY(roomy.withinRoom);

            const TextAnswer exact = computerNameInto(format, roomy.size + 1);
            QCOMPARE(exact.result, DWORD(TRUE));
            QCOMPARE(exact.text, roomy.text);
            QCOMPARE(exact.size, roomy.size);
            QVERIFY(exact.withinRoom);
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
            for (const DWORD room : {length, DWORD(0)}) { // as long as the name; nothing
                const TextAnswer answer = computerNameInto(format, room);
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
