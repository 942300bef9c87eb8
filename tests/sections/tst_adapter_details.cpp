// adapterDetails() and formatLeaseTime(): texts and calls.

#include "described_windows.h"
#include "rows.h"
#include "run_time_form.h"
#include "texts.h"
#include "win/adapter_details.h"
#include "win/lease_time.h"

#include <limits>

#ifdef SIMULATED_WINDOWS
#  include "simulated_windows.h"
#  include <windows.h>
#else
#  include <time.h>
#endif

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

void unknownIndex()
{
    QCOMPARE(adapterDetails(0xfffffff0), QString());
}

void leaseTime()
{
    const auto row = [](const QString &name, qint64 time, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray {});
            COMPARE_TEXT(formatLeaseTime(time), inFormOfRunTime(expected));
        });
    };

    row("the start of 1970", qint64(0), "Thu Jan  1 00:00:00 1970\n");
    row("a day of one digit", qint64(259200), "Sun Jan  4 00:00:00 1970\n");
    row("a leap day", qint64(1709210096), "Thu Feb 29 12:34:56 2024\n");
    row("the last second of a year", qint64(1704067199), "Sun Dec 31 23:59:59 2023\n");
    row("0x7fffffff: the last time that _localtime32_s() converts", qint64(0x7fffffff), "Tue Jan 19 03:14:07 2038\n");
    row("0x80000000: negative as 32 bits", qint64(0x80000000), "0x80000000\n");
    row("0xffffffff: -1 as 32 bits", qint64(0xffffffff), "0xffffffff\n");
    row("0x100000000: only the low 32 bits are converted, which are 0", qint64(0x100000000), "Thu Jan  1 00:00:00 1970\n");
    row("0x7fffffff0003f480: only the low 32 bits are converted, which are three days", qint64(0x7fffffff0003f480), "Sun Jan  4 00:00:00 1970\n");
    row("0x1abcdef0f: all 64 bits show in the fallback, in lower case", qint64(0x1abcdef0f), "0x1abcdef0f\n");
    row("-1: all 64 bits show in the fallback", qint64(-1), "0xffffffffffffffff\n");
    row("the smallest number: its low 32 bits are 0", std::numeric_limits<qint64>::min(), "Thu Jan  1 00:00:00 1970\n");
    row("-0x100000000: a negative time whose low 32 bits are a valid one", qint64(-0x100000000), "Thu Jan  1 00:00:00 1970\n");
    row("-0x80000000: negative in both widths", qint64(-0x80000000LL), "0xffffffff80000000\n");
}

#ifdef SIMULATED_WINDOWS

// 0x65000000 and 0x66000000 seconds since 1970
const char twoLeaseTimes[] = R"("LeaseObtained": 1694498816, "LeaseExpires": 1711276032)";
const char oneGateway[] = R"("GatewayList": [["10.0.0.1", "255.0.0.0"]])";

QByteArray systemFile(const QByteArray &adapters)
{
    return "{\"GetAdaptersInfo\": [" + adapters + "]}";
}

/// The adapter with the index 7 and these fields.
QByteArray seventh(const QByteArray &fields)
{
    return "{\"Index\": 7, " + fields + "}";
}

QByteArray withDhcp(const QByteArray &servers)
{
    return seventh(QByteArray(oneGateway) + ", \"DhcpEnabled\": 1, \"DhcpServer\": [" + servers + "], " + twoLeaseTimes);
}

QByteArray withWins(const QByteArray &haveWins)
{
    return seventh(QByteArray(oneGateway) + ", \"HaveWins\": " + haveWins
                   + R"(, "PrimaryWinsServer": ["10.0.0.4", "255.0.0.4"], "SecondaryWinsServer": ["10.0.0.5", "255.0.0.5"])");
}

QByteArray otherAdapter(int index)
{
    return "{\"Index\": " + QByteArray::number(index) + R"(, "GatewayList": [["10.9.9.9", "255.9.9.9"]]})";
}

machine::AdapterRecord adapterRecord(quint32 index)
{
    machine::AdapterRecord adapter;
    adapter.Index = index;
    adapter.GatewayList = {{QStringLiteral("10.0.0.1"), QStringLiteral("255.0.0.0")}};
    adapter.DhcpServer.emplace_back();
    return adapter;
}

/// The calls of heap functions and GetAdaptersInfo(): name, sizes and result, and whether flags are set.
QStringList journalOfAdapterCalls()
{
    QStringList calls;
    for (const simulated::Call &call : simulated::journal()) {
        const QString name = QLatin1String(call.name);
        if (call.name == "HeapAlloc")
            calls += QStringLiteral("%1 %2").arg(name).arg(call.sizeIn);
        else if (call.name == "GetAdaptersInfo")
            calls += QStringLiteral("%1 %2->%3: %4").arg(name).arg(call.sizeIn).arg(call.sizeOut).arg(call.result);
        else
            calls += name;
        if (call.access)
            calls.last() += QStringLiteral(" with flags");
    }
    return calls;
}

int callsNamed(const QByteArray &name)
{
    int count = 0;
    for (const simulated::Call &call : simulated::journal())
        count += call.name == name;
    return count;
}

/// The number of memory blocks that are not freed.
int leakedBlocks()
{
    int count = -callsNamed("HeapFree");
    for (const simulated::Call &call : simulated::journal())
        count += call.name == "HeapAlloc" && call.result != 0;
    return count;
}

const char gatewayLine[] = "Gateway: 10.0.0.1, 255.0.0.0\n";
const char dhcpOff[] = "DHCP enabled:  0\n";
const char winsOff[] = "Have WINS: 0\n";
const char leaseLines[] = "Lease obtained: Tue Sep 12 06:06:56 2023\n"
                          "Lease expires:  Sun Mar 24 10:27:12 2024\n";

/// The details of an adapter that has only one gateway.
QString plainDetails()
{
    return QString(gatewayLine) + dhcpOff + winsOff;
}

void leaseTimeZone()
{
    const auto row = [](const QString &name, const QByteArray &zone, qint64 time, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows("", "{\"timeZone\": " + zone + "}");
            COMPARE_TEXT(formatLeaseTime(time), expected);
        });
    };
    row("an hour ahead of UTC", QByteArray("-60"), qint64(0), "Thu Jan  1 01:00:00 1970\n");
    row("five and a half hours ahead of UTC", QByteArray("-330"), qint64(0), "Thu Jan  1 05:30:00 1970\n");
    row("eight hours after UTC: still the previous year", QByteArray("480"), qint64(0), "Wed Dec 31 16:00:00 1969\n");
}

void leaseTimeCalls()
{
    const DescribedWindows windows(QByteArray {});
    formatLeaseTime(0x7000000005);
    const auto &journal = simulated::journal();
    QCOMPARE(journal.size(), std::size_t(2));
    QCOMPARE(journal[0].name, QByteArray("_localtime32_s"));
    QCOMPARE(journal[0].value, QStringLiteral("5"));
    QCOMPARE(journal[1].name, QByteArray("asctime_s"));
    QCOMPARE(journal[1].sizeIn, quint64(64));
}

/// asctime_s() of the simulated Windows ends the process if a parameter is invalid, as the Universal C run-time
/// library does. Each pattern of bits stands in the low half, and also with a high half.
void noLeaseTimeIsInvalid()
{
    QVector<quint32> lows {0, 1, 86399, 86400, 0x7ffffffe, 0x7fffffff, 0x80000000, 0x80000001, 0xfffffffe, 0xffffffff};
    for (int bit = 0; bit < 32; ++bit)
        lows << (quint32(1) << bit) << ((quint32(1) << bit) - 1) << ~(quint32(1) << bit);
    QVector<quint64> highs {0, 1, 0x7fffffff, 0x80000000, 0xffffffff};
    for (int bit = 1; bit < 31; ++bit)
        highs << (quint64(1) << bit);
    for (const char *zone : {"0", "-840", "720", "2147483647", "-2147483648"}) {
        const DescribedWindows windows("", QByteArray("{\"timeZone\": ") + zone + '}');
        for (const bool fails : {false, true}) {
            const auto fault = fails ? simulated::Fault::everyCall("_localtime32_s", 0) : simulated::Fault::everyCall("none", 0);
            for (const quint64 high : qAsConst(highs)) {
                for (const quint32 low : qAsConst(lows)) {
                    const QString text = formatLeaseTime(qint64(high << 32 | low));
                    const bool isNumber = text == QStringLiteral("0x") + QString::number(high << 32 | low, 16) + QLatin1Char('\n');
                    QVERIFY2(isNumber || (!fails && low < 0x80000000 && text.size() == 25), qPrintable(text));
                }
            }
        }
    }
}

void failingLeaseTime()
{
    const auto row = [](const QString &name, const QByteArray &call, int callsMade) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray {});
            const auto fault = simulated::Fault::everyCall(call, 0);
            COMPARE_TEXT(formatLeaseTime(0x12abc0000ffff), QStringLiteral("0x12abc0000ffff\n"));
            QCOMPARE(fault.hits(), std::size_t(1));
            QCOMPARE(int(simulated::journal().size()), callsMade);
        });
    };
    row("the conversion to local time fails", QByteArray("_localtime32_s"), 1);
    row("the conversion to text fails", QByteArray("asctime_s"), 2);
}

void text()
{
    const auto row = [](const QString &name, const QByteArray &adapters, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows("", systemFile(adapters));
            COMPARE_TEXT(adapterDetails(7), expected);
            QCOMPARE(leakedBlocks(), 0);
        });
    };

    row("one gateway: the unnumbered line", seventh(oneGateway), plainDetails());
    row("no gateway: the line shows the address 0.0.0.0 of Windows", seventh(R"("GatewayList": [["0.0.0.0", "0.0.0.0"]])"), QStringLiteral("Gateway: 0.0.0.0, 0.0.0.0\n") + dhcpOff + winsOff);
    row("no gateway and empty texts: the line has no address", seventh(R"("GatewayList": [["", ""]])"), QStringLiteral("Gateway: , \n") + dhcpOff + winsOff);
    row("two gateways: both are numbered", seventh(R"("GatewayList": [["10.0.0.1", "255.0.0.1"], ["10.0.0.2", "255.0.0.2"]])"), QStringLiteral("Gateway 1: 10.0.0.1, 255.0.0.1\nGateway 2: 10.0.0.2, 255.0.0.2\n") + dhcpOff + winsOff);
    row("three gateways: three numbered lines in list order", seventh(R"("GatewayList": [["10.0.0.3", "255.0.0.3"], ["10.0.0.1", "255.0.0.1"], ["10.0.0.2", "255.0.0.2"]])"), QStringLiteral("Gateway 1: 10.0.0.3, 255.0.0.3\nGateway 2: 10.0.0.1, 255.0.0.1\n"
                                                                                                                                                                                             "Gateway 3: 10.0.0.2, 255.0.0.2\n")
            + dhcpOff + winsOff);

    row("DHCP disabled: no server, no lease times", seventh(QByteArray(oneGateway) + R"(, "DhcpServer": [["10.0.0.2", "255.0.0.2"]], )" + twoLeaseTimes), plainDetails());
    row("DHCP enabled, one server: the unnumbered line and the lease times", withDhcp(R"(["10.0.0.2", "255.0.0.2"])"), QString(gatewayLine) + "DHCP enabled:  1\nDHCP server: 10.0.0.2, 255.0.0.2\n" + leaseLines + winsOff);
    row("DHCP enabled, three servers: numbered in list order", withDhcp(R"(["10.0.0.6", "255.0.0.6"], ["10.0.0.2", "255.0.0.2"], ["10.0.0.4", "255.0.0.4"])"), QString(gatewayLine) + "DHCP enabled:  1\nDHCP server 1: 10.0.0.6, 255.0.0.6\n"
                                                                                                                                                                                      "DHCP server 2: 10.0.0.2, 255.0.0.2\nDHCP server 3: 10.0.0.4, 255.0.0.4\n"
            + leaseLines + winsOff);
    row("DhcpEnabled is not 1: an unsigned number", seventh(QByteArray(oneGateway) + R"(, "DhcpEnabled": 4294967295)"), QString(gatewayLine) + "DHCP enabled:  4294967295\nDHCP server: , \n"
                                                                                                                                               "Lease obtained: Thu Jan  1 00:00:00 1970\nLease expires:  Thu Jan  1 00:00:00 1970\n"
            + winsOff);
    row("lease times that cannot be converted: their numbers", seventh(QByteArray(oneGateway) + R"(, "DhcpEnabled": 1, "LeaseObtained": "0x80000000", "LeaseExpires": -1)"), QString(gatewayLine) + "DHCP enabled:  1\nDHCP server: , \n"
                                                                                                                                                                                                    "Lease obtained: 0x80000000\nLease expires:  0xffffffffffffffff\n"
            + winsOff);

    const char winsLines[] = "Primary WINS Server: 10.0.0.4, 255.0.0.4\nSecondary WINS Server: 10.0.0.5, 255.0.0.5\n";
    row("WINS disabled: no servers", withWins("0"), plainDetails());
    row("WINS enabled: primary and secondary server", withWins("1"), QString(gatewayLine) + dhcpOff + "Have WINS: 1\n" + winsLines);
    row("HaveWins is not 1: a signed number", withWins("-1"), QString(gatewayLine) + dhcpOff + "Have WINS: -1\n" + winsLines);

    row("no adapter with the index: an empty text", otherAdapter(6) + "," + otherAdapter(8), QString());
    row("the last of three adapters", otherAdapter(6) + "," + otherAdapter(8) + "," + seventh(oneGateway), plainDetails());
    row("two adapters with the same index: the first one", seventh(oneGateway) + "," + otherAdapter(7), plainDetails());

    row("Quirk: a placeholder in an address is replaced with the mask", seventh(R"("GatewayList": [["%1", "mask"]])"), QStringLiteral("Gateway: mask, %2\n") + dhcpOff + winsOff);
    row("Quirk: a placeholder in a numbered address is replaced with the mask", seventh(R"("GatewayList": [["%3", "mask"], ["%9", "%1"]])"), QStringLiteral("Gateway 1: mask, mask\nGateway 2: %9, %1\n") + dhcpOff + winsOff);
    row("bytes that are not UTF-8 become U+FFFD", seventh("\"GatewayList\": [[\"\xc3\xa9\", \"255.0.0.0\"]]"), QString(QChar(0xfffd)).prepend("Gateway: ") + ", 255.0.0.0\n" + dhcpOff + winsOff);
}

void unreadableList()
{
    const auto row = [](const QString &name, const QByteArray &system) {
        addTestRow(name, [=] {
            const DescribedWindows windows("", system);
            QCOMPARE(adapterDetails(0), QString());
            QCOMPARE(callsNamed("GetAdaptersInfo"), 2);
            QCOMPARE(leakedBlocks(), 0);
        });
    };
    row("no answer", QByteArray("{}"));
    row("no adapters: ERROR_NO_DATA", QByteArray(R"({"GetAdaptersInfo": []})"));
    row("not supported", QByteArray(R"({"GetAdaptersInfo": {"error": 50}})"));
}

void calls()
{
    const auto row = [](const QString &name, const QByteArray &adapters, const QStringList &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows("", systemFile(adapters));
            QVERIFY(!adapterDetails(7).isEmpty());
            QCOMPARE(journalOfAdapterCalls(), expected);
        });
    };

    // An adapter has 704 bytes, each further gateway or server 48.
    row("one adapter: the second call follows although the first one succeeds", seventh(oneGateway), QStringList {"HeapAlloc 704", "GetAdaptersInfo 704->704: 0", "GetAdaptersInfo 704->704: 0", "HeapFree"});
    row("two adapters: a second buffer has the size that the first call returned", otherAdapter(6) + "," + seventh(oneGateway), QStringList {"HeapAlloc 704", "GetAdaptersInfo 704->1408: 111", "HeapFree", "HeapAlloc 1408", "GetAdaptersInfo 1408->1408: 0", "HeapFree"});
    row("one adapter and two further gateways: a second buffer", seventh(R"("GatewayList": [["", ""], ["", ""], ["", ""]])"), QStringList {"HeapAlloc 704", "GetAdaptersInfo 704->800: 111", "HeapFree", "HeapAlloc 800", "GetAdaptersInfo 800->800: 0", "HeapFree"});
}

void failingCalls()
{
    const auto row = [](const QString &name, const QByteArray &adapters, const QByteArray &call, int number, quint32 error,
                        const QString &expected, int listCalls) {
        addTestRow(name, [=] {
            const DescribedWindows windows("", systemFile(adapters));
            const auto fault = simulated::Fault::nthCall(call, std::size_t(number), error);
            COMPARE_TEXT(adapterDetails(7), expected);
            QCOMPARE(fault.hits(), std::size_t(1));
            QCOMPARE(callsNamed("GetAdaptersInfo"), listCalls);
            QCOMPARE(leakedBlocks(), 0);
        });
    };

    const QByteArray one = seventh(oneGateway);
    const QByteArray two = otherAdapter(6) + "," + one;
    const QByteArray dhcp = withDhcp(R"(["10.0.0.2", "255.0.0.2"])");
    const QByteArray list("GetAdaptersInfo");
    const QString upToLeases = QString(gatewayLine) + "DHCP enabled:  1\nDHCP server: 10.0.0.2, 255.0.0.2\n";

    row("the first call fails: the result of the second one counts", one, list, 0, quint32(ERROR_ACCESS_DENIED), plainDetails(), 2);
    row("the first call returns ERROR_BUFFER_OVERFLOW: the result of the second one counts", one, list, 0, quint32(ERROR_BUFFER_OVERFLOW), plainDetails(), 2);
    row("the first call fails without a size: the second one returns ERROR_BUFFER_OVERFLOW", two, list, 0, quint32(ERROR_ACCESS_DENIED), QString(), 2);
    row("the second call fails", one, list, 1, quint32(ERROR_ACCESS_DENIED), QString(), 2);
    row("the second call returns ERROR_BUFFER_OVERFLOW: no third one", one, list, 1, quint32(ERROR_BUFFER_OVERFLOW), QString(), 2);
    row("the first allocation fails: no call", two, QByteArray("HeapAlloc"), 0, quint32(0), QString(), 0);
    row("the second allocation fails: no second call", two, QByteArray("HeapAlloc"), 1, quint32(0), QString(), 1);
    row("the start of the lease cannot be converted: its number", dhcp, QByteArray("_localtime32_s"), 0, quint32(0), upToLeases + "Lease obtained: 0x65000000\nLease expires:  Sun Mar 24 10:27:12 2024\n" + winsOff, 2);
    row("the text of the end of the lease fails: its number", dhcp, QByteArray("asctime_s"), 1, quint32(0), upToLeases + "Lease obtained: Tue Sep 12 06:06:56 2023\nLease expires:  0x66000000\n" + winsOff, 2);
}

void listThatGrowsBetweenTheCalls()
{
    const DescribedWindows windows("", systemFile(seventh(oneGateway)));
    int calls = 0;
    simulated::setBeforeCall([&calls](std::size_t, const QByteArray &name) {
        if (name == "GetAdaptersInfo" && ++calls == 2)
            simulated::machineInUse().system.GetAdaptersInfo.value->push_back(adapterRecord(8));
    });
    QCOMPARE(adapterDetails(7), QString());
    QCOMPARE(calls, 2);
    QCOMPARE(leakedBlocks(), 0);
}

void listThatShrinksBetweenTheCalls()
{
    const DescribedWindows windows("", systemFile(otherAdapter(6) + "," + otherAdapter(7)));
    int calls = 0;
    simulated::setBeforeCall([&calls](std::size_t, const QByteArray &name) {
        if (name == "GetAdaptersInfo" && ++calls == 2)
            *simulated::machineInUse().system.GetAdaptersInfo.value = {adapterRecord(7)};
    });
    COMPARE_TEXT(adapterDetails(7), plainDetails());
    QCOMPARE(calls, 2);
    QCOMPARE(leakedBlocks(), 0);
}

#endif

void addTests()
{
#ifndef SIMULATED_WINDOWS
    // The rows expect UTC, the time zone of a machine without "timeZone".
    qputenv("TZ", "UTC0");
    _tzset();
#endif
    addTestRow("unknownIndex", unknownIndex);
    addTestRows("leaseTime", leaseTime);
#ifdef SIMULATED_WINDOWS
    addTestRows("leaseTimeZone", leaseTimeZone);
    addTestRow("leaseTimeCalls", leaseTimeCalls);
    addTestRow("noLeaseTimeIsInvalid", noLeaseTimeIsInvalid);
    addTestRows("failingLeaseTime", failingLeaseTime);
    addTestRows("text", text);
    addTestRows("unreadableList", unreadableList);
    addTestRows("calls", calls);
    addTestRows("failingCalls", failingCalls);
    addTestRow("listThatGrowsBetweenTheCalls", listThatGrowsBetweenTheCalls);
    addTestRow("listThatShrinksBetweenTheCalls", listThatShrinksBetweenTheCalls);
#endif
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
