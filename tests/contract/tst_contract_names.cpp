// GetUserNameW and GetComputerNameExW: sizes with and without the terminator.

#include "answering_windows.h"
#include "test_main.h"

class ContractNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void userName();
    void userNameTooLong_data();
    void userNameTooLong();
    void computerName_data();
    void computerName();
    void computerNameTooLong_data();
    void computerNameTooLong();
    void unknownFormatFails();
};

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

void addFormats()
{
    QTest::addColumn<int>("format");
    QTest::newRow("NetBIOS") << 0;
    QTest::newRow("DNS host") << 1;
    QTest::newRow("DNS domain") << 2;
    QTest::newRow("DNS fully qualified") << 3;
    QTest::newRow("physical NetBIOS") << 4;
    QTest::newRow("physical DNS host") << 5;
    QTest::newRow("physical DNS domain") << 6;
    QTest::newRow("physical DNS fully qualified") << 7;
}

} // namespace

void ContractNamesTest::userName()
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

void ContractNamesTest::userNameTooLong_data()
{
    QTest::addColumn<int>("missing"); // units less than needed; 0: all of them
    QTest::newRow("no room for the terminator") << 1;
    QTest::newRow("no room at all") << 0;
}

void ContractNamesTest::userNameTooLong()
{
    QFETCH(int, missing);
    const AnsweringWindows windows;
    const DWORD needed = userNameInto(257).size;
    const TextAnswer answer = userNameInto(missing ? needed - DWORD(missing) : 0);
    QCOMPARE(GetLastError(), DWORD(ERROR_INSUFFICIENT_BUFFER));
    QCOMPARE(answer.result, DWORD(FALSE));
    QVERIFY(answer.untouched);
    QCOMPARE(answer.size, needed);
}

void ContractNamesTest::computerName_data()
{
    addFormats();
}

void ContractNamesTest::computerName()
{
    QFETCH(int, format);
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
}

void ContractNamesTest::computerNameTooLong_data()
{
    addFormats();
}

void ContractNamesTest::computerNameTooLong()
{
    QFETCH(int, format);
    const AnsweringWindows windows;
    const DWORD length = computerNameInto(format, 1024).size;
    for (const DWORD room : {length, DWORD(0)}) { // as long as the name; nothing
        const TextAnswer answer = computerNameInto(format, room);
        QCOMPARE(GetLastError(), DWORD(ERROR_MORE_DATA));
        QCOMPARE(answer.result, DWORD(FALSE));
        QVERIFY(answer.untouched);
        QCOMPARE(answer.size, length + 1);
    }
}

void ContractNamesTest::unknownFormatFails()
{
    const AnsweringWindows windows;
    const TextAnswer answer = computerNameInto(8, 64);
    QCOMPARE(answer.result, DWORD(FALSE));
    QVERIFY(answer.untouched);
    QCOMPARE(answer.size, DWORD(64));
}

TEST_WITH_CORE_APPLICATION(ContractNamesTest);
#include "tst_contract_names.moc"
