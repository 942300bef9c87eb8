// GetAdaptersInfo(): layout of the list, and texts that are too long.

#include "described_windows.h"
#include "poisoned_buffer.h"
#include "rows.h"

#include <QtTest/QtTest>
#include <iphlpapi.h>

namespace {

QByteArray adapters(const QByteArray &list)
{
    return "{\"GetAdaptersInfo\": " + list + '}';
}

PIP_ADAPTER_INFO records(PoisonedBuffer &buffer)
{
    return reinterpret_cast<PIP_ADAPTER_INFO>(buffer.bytes());
}

QStringList addresses(const IP_ADDR_STRING &first)
{
    QStringList result;
    for (const IP_ADDR_STRING *entry = &first; entry; entry = entry->Next)
        result += QLatin1String(entry->IpAddress.String) + QLatin1Char('/') + QLatin1String(entry->IpMask.String);
    return result;
}

void failures()
{
    const auto row = [](const QString &name, const QByteArray &system, DWORD error) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray(), system);
            PoisonedBuffer buffer(704);
            ULONG size = 704;
            QCOMPARE(GetAdaptersInfo(records(buffer), &size), error);
            QCOMPARE(size, ULONG(704));
            QVERIFY(buffer.isUntouched());
        });
    };
    row("absent", QByteArray("{}"), DWORD(ERROR_INVALID_PARAMETER));
    row("null", adapters("null"), DWORD(ERROR_INVALID_PARAMETER));
    row("an error", adapters("{\"error\": 50}"), DWORD(50));
    row("an empty list", adapters("[]"), DWORD(ERROR_NO_DATA));
}

void sizeNeeded()
{
    const auto row = [](const QString &name, const QByteArray &list, const ULONG &needed) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray(), adapters(list));
            PoisonedBuffer buffer(needed + 100);
            for (const ULONG capacity : {ULONG(0), ULONG(1), needed - 1}) {
                ULONG size = capacity;
                QCOMPARE(GetAdaptersInfo(records(buffer), &size), DWORD(ERROR_BUFFER_OVERFLOW));
                QCOMPARE(size, needed);
                QVERIFY(buffer.isUntouched());
            }
            ULONG size = needed;
            QCOMPARE(GetAdaptersInfo(nullptr, &size), DWORD(ERROR_BUFFER_OVERFLOW));
            for (const ULONG capacity : {needed, needed + 100}) {
                size = capacity;
                QCOMPARE(GetAdaptersInfo(records(buffer), &size), DWORD(ERROR_SUCCESS));
                QCOMPARE(size, needed);
                QVERIFY(buffer.isUntouchedFrom(int(needed)));
            }
        });
    };
    row("one adapter", QByteArray("[{}]"), ULONG(704));
    row("two adapters", QByteArray("[{}, {}]"), ULONG(1408));
    row("one gateway is part of the record", QByteArray(R"([{"GatewayList": [["1", ""]]}])"), ULONG(704));
    row("three gateways: two after the records", QByteArray(R"([{"GatewayList": [["1", ""], ["2", ""], ["3", ""]]}])"), ULONG(704 + 2 * 48));
    row("two DHCP servers: one after the records", QByteArray(R"([{"DhcpServer": [["1", ""], ["2", ""]]}])"), ULONG(704 + 48));
    row("further addresses of several adapters", QByteArray(R"([{"GatewayList": [["1", ""], ["2", ""]]}, {"GatewayList": [["1", ""], ["2", ""]],
                           "DhcpServer": [["1", ""], ["2", ""]]}])"),
        ULONG(2 * 704 + 3 * 48));
}

void furtherAddressesFollowAllRecords()
{
    const DescribedWindows windows(QByteArray(), adapters(R"([
        {"Index": 1, "GatewayList": [["10.0.0.1", "255.0.0.0"], ["10.0.0.2", "255.0.0.0"], ["10.0.0.3", ""]]},
        {"Index": 2, "GatewayList": [["10.0.1.1", ""]], "DhcpServer": [["10.0.1.2", ""], ["10.0.1.3", ""]]}])"));
    PoisonedBuffer buffer(2000);
    ULONG size = 2000;
    QCOMPARE(GetAdaptersInfo(records(buffer), &size), DWORD(ERROR_SUCCESS));
    const IP_ADAPTER_INFO &first = records(buffer)[0];
    const IP_ADAPTER_INFO &second = records(buffer)[1];
    QCOMPARE(first.Next, &records(buffer)[1]);
    QVERIFY(!second.Next);
    QCOMPARE(addresses(first.GatewayList),
             QStringList({QStringLiteral("10.0.0.1/255.0.0.0"), QStringLiteral("10.0.0.2/255.0.0.0"),
                          QStringLiteral("10.0.0.3/")}));
    QCOMPARE(addresses(first.DhcpServer), QStringList(QStringLiteral("/")));
    QCOMPARE(addresses(second.GatewayList), QStringList(QStringLiteral("10.0.1.1/")));
    QCOMPARE(addresses(second.DhcpServer), QStringList({QStringLiteral("10.0.1.2/"), QStringLiteral("10.0.1.3/")}));
    const BYTE *behind = buffer.bytes() + 2 * 704;
    QCOMPARE(reinterpret_cast<const BYTE *>(first.GatewayList.Next), behind);
    QCOMPARE(reinterpret_cast<const BYTE *>(first.GatewayList.Next->Next), behind + 48);
    QCOMPARE(reinterpret_cast<const BYTE *>(second.DhcpServer.Next), behind + 2 * 48);
}

void allFields()
{
    const DescribedWindows windows(QByteArray(), adapters(R"([{
        "Index": 17, "AdapterName": "{1}", "Description": "K\u00e4rtner \u0416", "DhcpEnabled": 1, "HaveWins": -1,
        "PrimaryWinsServer": ["10.0.0.4", "255.0.0.0"], "SecondaryWinsServer": ["10.0.0.5", "255.0.0.0"],
        "LeaseObtained": 1701337145, "LeaseExpires": "0x123456789abcdef"}])"));
    PoisonedBuffer buffer(704);
    ULONG size = 704;
    QCOMPARE(GetAdaptersInfo(records(buffer), &size), DWORD(ERROR_SUCCESS));
    const IP_ADAPTER_INFO &adapter = *records(buffer);
    QCOMPARE(adapter.Index, DWORD(17));
    QCOMPARE(QByteArray(adapter.AdapterName), QByteArray("{1}"));
    QCOMPARE(QByteArray(adapter.Description), QByteArray("K\xe4rtner ?")); // in the ANSI code page
    QCOMPARE(adapter.DhcpEnabled, UINT(1));
    QCOMPARE(adapter.HaveWins, BOOL(-1));
    QCOMPARE(addresses(adapter.PrimaryWinsServer), QStringList(QStringLiteral("10.0.0.4/255.0.0.0")));
    QCOMPARE(addresses(adapter.SecondaryWinsServer), QStringList(QStringLiteral("10.0.0.5/255.0.0.0")));
    QCOMPARE(qint64(adapter.LeaseObtained), qint64(1701337145));
    QCOMPARE(qint64(adapter.LeaseExpires), qint64(0x123456789abcdef));
    QCOMPARE(adapter.ComboIndex, DWORD(0)); // not part of a description
    QVERIFY(!adapter.CurrentIpAddress && !adapter.Next);
}

void textsAreTruncatedToTheirFields()
{
    const QByteArray longText(400, 'x');
    const DescribedWindows windows(QByteArray(),
                                   adapters("[{\"AdapterName\": \"" + longText + "\", \"Description\": \"" + longText
                                            + "\", \"GatewayList\": [[\"" + longText + "\", \"" + longText + "\"]]}]"));
    PoisonedBuffer buffer(704);
    ULONG size = 704;
    QCOMPARE(GetAdaptersInfo(records(buffer), &size), DWORD(ERROR_SUCCESS));
    const IP_ADAPTER_INFO &adapter = *records(buffer);
    QCOMPARE(QByteArray(adapter.AdapterName), QByteArray(259, 'x'));
    QCOMPARE(QByteArray(adapter.Description), QByteArray(131, 'x'));
    QCOMPARE(QByteArray(adapter.GatewayList.IpAddress.String), QByteArray(15, 'x'));
    QCOMPARE(QByteArray(adapter.GatewayList.IpMask.String), QByteArray(15, 'x'));
}

void recordWithoutAddresses()
{
    machine::Machine machine;
    machine.system.GetAdaptersInfo.value.emplace(1);
    const DescribedWindows windows(machine);
    PoisonedBuffer buffer(704);
    ULONG size = 704;
    QCOMPARE(GetAdaptersInfo(records(buffer), &size), DWORD(ERROR_SUCCESS));
    QCOMPARE(addresses(records(buffer)->GatewayList), QStringList(QStringLiteral("/")));
}

void addTests()
{
    addTestRows("failures", failures);
    addTestRows("sizeNeeded", sizeNeeded);
    addTestRow("furtherAddressesFollowAllRecords", furtherAddressesFollowAllRecords);
    addTestRow("allFields", allFields);
    addTestRow("textsAreTruncatedToTheirFields", textsAreTruncatedToTheirFields);
    addTestRow("recordWithoutAddresses", recordWithoutAddresses);
}

} // namespace

TEST_WITHOUT_APPLICATION(RowTest(addTests));
