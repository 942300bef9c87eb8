// qtNetworkInterfaces(). On Linux the test creates the networks. On Windows it compares the text
// with results of the calls of Windows.

#include "described_windows.h"
#include "qt/qt_network_interfaces.h"
#include "test_main.h"
#include "texts.h"
#include "win/lease_time.h"

#include <QtCore/QtEndian>
#include <QtNetwork/QNetworkInterface>

#ifdef SIMULATED_WINDOWS
#  include "simulated_windows.h"
#  include <QtCore/QProcess>
#  include <QtCore/QRegularExpression>
#  include <dlfcn.h>
#  include <ifaddrs.h>
#  include <linux/if_packet.h>
#  include <net/if.h>
#  include <sched.h>
#  include <sys/resource.h>
#  include <sys/socket.h>
#  include <unistd.h>
#else
#  include <vector>

#  include <winsock2.h>
#  include <ws2tcpip.h>

#  include <windows.h>

#  include <iphlpapi.h>
#endif

using namespace velkor::SystemInfo;
using namespace velkor::SystemInfo::WinSysInfo;

class NetworkInterfacesTest : public QObject
{
    Q_OBJECT

#ifdef SIMULATED_WINDOWS
public:
    NetworkInterfacesTest();
#endif

private Q_SLOTS:
#ifdef SIMULATED_WINDOWS
    void init();
    void cleanup();
    void text_data();
    void text();
    void interfaceWithoutHardwareAddress();
    void status_data();
    void status();
    void noInterface();
    void calls();
    void listIsReadTwicePerInterface();
    void failingCalls_data();
    void failingCalls();
#else
    void interfacesOfThisMachine();
#endif
};

namespace {

const QString heading = QStringLiteral("Network Interfaces Info\n");
const QString line = QStringLiteral("_______________________________________________________\n");
const QString caption = QStringLiteral("Addresses: IP , netmask , broadcast\n");

} // namespace

#ifdef SIMULATED_WINDOWS

namespace {

/// Replaces the result of QNetworkInterface::flags(): with the kernel, an interface never is up
/// without running, or the other way round.
std::optional<QNetworkInterface::InterfaceFlags> pretendedFlags;

void writeFile(const char *path, const QByteArray &text)
{
    QFile file(QString::fromLatin1(path));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || file.write(text) != text.size())
        qWarning("cannot write %s", path);
}

/// Creates a user namespace unless the user is root. Must be called while the process has only one
/// thread.
void becomeRoot()
{
    const uid_t user = geteuid();
    const gid_t group = getegid();
    if (user == 0 || unshare(CLONE_NEWUSER) != 0)
        return;
    writeFile("/proc/self/setgroups", "deny");
    writeFile("/proc/self/uid_map", "0 " + QByteArray::number(user) + " 1");
    writeFile("/proc/self/gid_map", "0 " + QByteArray::number(group) + " 1");
}

/// Runs "ip" with \a arguments. Returns an empty text, or the error message.
QString ip(const QString &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral("ip"), arguments.split(QLatin1Char(' ')));
    if (!process.waitForFinished())
        return process.errorString();
    return process.exitCode() == 0 ? QString() : QString::fromUtf8(process.readAll());
}

/// The interfaces that are running according to the kernel, sorted by name.
QStringList runningInterfaces()
{
    QStringList names;
    ifaddrs *first = nullptr;
    if (getifaddrs(&first) != 0)
        return names;
    for (const ifaddrs *entry = first; entry; entry = entry->ifa_next) {
        if (entry->ifa_addr && entry->ifa_addr->sa_family == AF_PACKET && entry->ifa_flags & IFF_RUNNING)
            names += QString::fromLatin1(entry->ifa_name);
    }
    freeifaddrs(first);
    names.sort();
    return names;
}

/// No file and no socket can be opened while the object exists.
class NoMoreFiles
{
public:
    NoMoreFiles()
    {
        getrlimit(RLIMIT_NOFILE, &m_before);
        rlimit none = m_before;
        none.rlim_cur = 0;
        setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &m_before); }

private:
    rlimit m_before = {};
};

const char loopbackUp[] = "link set lo up";

/// Creates the connected interfaces vk0 and vk1, with locally administered addresses.
QStringList cable()
{
    return {"link add vk0 index 10 address 02:00:00:00:0a:bc type veth peer name vk1 index 11 address 02:00:00:00:0d:ef",
            "link set vk0 addrgenmode none", "link set vk1 addrgenmode none"};
}

QStringList cableInUse()
{
    return cable() + QStringList {"link set vk0 up", "link set vk1 up"};
}

const QString loopbackOff = line + QStringLiteral("lo\n"
                                                  "Loopback interface\n"
                                                  "Hardware address: 00:00:00:00:00:00\n"
                                                  "Status: Down, Not running\n")
    + caption
    + QStringLiteral("<no address>\n");

// The lines of a loopback interface that is up, after its name. Qt computes a broadcast address if
// the kernel has none.
const QString loopbackOn = QStringLiteral("Loopback interface\n"
                                          "Hardware address: 00:00:00:00:00:00\n"
                                          "Status: Up, Running\n")
    + caption
    + QStringLiteral("127.0.0.1 , 255.0.0.0 , 127.255.255.255\n"
                     "::1 , ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff , \n");

QString end(const QString &name, const QString &address, const QString &status, const QString &addresses)
{
    return line + name + "\nHardware address: " + address + "\nStatus: " + status + "\n" + caption + addresses;
}

QString firstEnd(const QString &name, const QString &status, const QString &addresses)
{
    return end(name, QStringLiteral("02:00:00:00:0A:BC"), status, addresses);
}

QString secondEnd(const QString &status, const QString &addresses)
{
    return end(QStringLiteral("vk1"), QStringLiteral("02:00:00:00:0D:EF"), status, addresses);
}

QByteArray adapters(const QByteArray &list)
{
    return "{\"GetAdaptersInfo\": [" + list + "]}";
}

QByteArray adapter(int index, const QByteArray &description)
{
    return "{\"Index\": " + QByteArray::number(index) + ", \"Description\": \"" + description + "\""
        + R"(, "GatewayList": [["10.0.0.1", "255.0.0.0"]]})";
}

const char plainDetails[] = "Gateway: 10.0.0.1, 255.0.0.0\nDHCP enabled:  0\nHave WINS: 0\n";
const char noAddress[] = "<no address>\n";

} // namespace

// The linker prefers this definition to that of QtNetwork.
QNetworkInterface::InterfaceFlags QNetworkInterface::flags() const
{
    using Flags = InterfaceFlags (*)(const QNetworkInterface *);
    static const auto real = reinterpret_cast<Flags>(dlsym(RTLD_NEXT, "_ZNK17QNetworkInterface5flagsEv"));
    return pretendedFlags ? *pretendedFlags : real(this);
}

/// Every test has its own network, which has only a loopback interface with the index 1 that is down.
void NetworkInterfacesTest::init()
{
    if (unshare(CLONE_NEWNET) != 0)
        QFAIL(qPrintable("a network namespace cannot be made (run as root): " + qt_error_string()));
}

void NetworkInterfacesTest::cleanup()
{
    pretendedFlags.reset();
}

void NetworkInterfacesTest::text_data()
{
    QTest::addColumn<QStringList>("commands");
    QTest::addColumn<QStringList>("running");
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("expected");

    const QString runs = QStringLiteral("Up, Running");
    const QString isDown = QStringLiteral("Down, Not running");

    QTest::newRow("a loopback interface that is down, no address: only the caption")
        << QStringList() << QStringList() << QByteArray("{}") << loopbackOff;
    QTest::newRow("a loopback interface without an adapter of Windows: no gateway, DHCP or WINS lines")
        << QStringList {loopbackUp} << QStringList {"lo"} << adapters(adapter(2, "other"))
        << line + "lo\n" + loopbackOn;
    QTest::newRow("a loopback interface with an adapter of Windows: its description and its details")
        << QStringList {loopbackUp} << QStringList {"lo"} << adapters(adapter(1, "Software Loopback 1"))
        << line + "Software Loopback 1\n" + loopbackOn + plainDetails;

    QTest::newRow("two interfaces without addresses: in the order of Qt's list, a line before each")
        << cableInUse() << QStringList {"vk0", "vk1"} << QByteArray("{}")
        << loopbackOff + firstEnd("vk0", runs, noAddress) + secondEnd(runs, noAddress);
    QTest::newRow("one interface with addresses, one without") << cableInUse()
            + QStringList {"addr add 10.1.2.3/24 broadcast 10.1.2.255 dev vk0", "addr add 172.16.0.9/29 dev vk0",
                           "addr add 2001:db8::a/64 dev vk0 nodad", "addr add fe80::b/64 dev vk0 nodad"}
                                                               << QStringList {"vk0", "vk1"} << QByteArray("{}")
                                                               << loopbackOff
            + firstEnd("vk0", runs,
                       "10.1.2.3 , 255.255.255.0 , 10.1.2.255\n"
                       "172.16.0.9 , 255.255.255.248 , 172.16.0.15\n"
                       "2001:db8::a , ffff:ffff:ffff:ffff:: , \n"
                       "fe80::b%vk0 , ffff:ffff:ffff:ffff:: , \n")
            + secondEnd(runs, noAddress);
    QTest::newRow("an interface that is down shows its address")
        << cable() + QStringList {"addr add 10.1.2.4/16 broadcast 10.1.255.255 dev vk1"} << QStringList()
        << QByteArray("{}")
        << loopbackOff + firstEnd("vk0", isDown, noAddress)
            + secondEnd(isDown, "10.1.2.4 , 255.255.0.0 , 10.1.255.255\n");

    QTest::newRow("each interface has the adapter with its index")
        << cableInUse() << QStringList {"vk0", "vk1"}
        << adapters(adapter(11, "second") + "," + adapter(12, "other") + R"(, {"Index": 10, "Description": "first",
               "GatewayList": [["10.0.0.7", "255.0.0.7"], ["10.0.0.8", "255.0.0.8"], ["10.0.0.9", "255.0.0.9"]],
               "DhcpEnabled": 1, "DhcpServer": [["10.0.0.2", "255.0.0.2"]],
               "LeaseObtained": 259200, "LeaseExpires": "0x80000000",
               "HaveWins": 1, "PrimaryWinsServer": ["10.0.0.4", "255.0.0.4"],
               "SecondaryWinsServer": ["10.0.0.5", "255.0.0.5"]})")
        << loopbackOff
            + firstEnd("first", runs,
                       "<no address>\n"
                       "Gateway 1: 10.0.0.7, 255.0.0.7\n"
                       "Gateway 2: 10.0.0.8, 255.0.0.8\n"
                       "Gateway 3: 10.0.0.9, 255.0.0.9\n"
                       "DHCP enabled:  1\n"
                       "DHCP server: 10.0.0.2, 255.0.0.2\n"
                       "Lease obtained: Sun Jan  4 00:00:00 1970\n"
                       "Lease expires:  0x80000000\n"
                       "Have WINS: 1\n"
                       "Primary WINS Server: 10.0.0.4, 255.0.0.4\n"
                       "Secondary WINS Server: 10.0.0.5, 255.0.0.5\n")
            + secondEnd(runs, QString(noAddress) + plainDetails).replace("vk1", "second");
    QTest::newRow("an adapter without a description: the name of the interface, then the details")
        << cable() << QStringList() << adapters(adapter(10, ""))
        << loopbackOff + firstEnd("vk0", isDown, QString(noAddress) + plainDetails) + secondEnd(isDown, noAddress);
    QTest::newRow("a description is decoded as UTF-8")
        << cable() << QStringList()
        << QByteArray("{\"ansiCodePage\": 65001, " + adapters(adapter(10, "\xc3\xa9")).mid(1))
        << loopbackOff + firstEnd(QChar(0xe9), isDown, QString(noAddress) + plainDetails) + secondEnd(isDown, noAddress);
    QTest::newRow("a description that is not UTF-8 shows U+FFFD")
        << cable() << QStringList() << adapters(adapter(10, "\xc3\xa9"))
        << loopbackOff + firstEnd(QChar(0xfffd), isDown, QString(noAddress) + plainDetails) + secondEnd(isDown, noAddress);
    QTest::newRow("placeholders in a description are not replaced")
        << cable() << QStringList() << adapters(adapter(10, "%1 %2"))
        << loopbackOff + firstEnd("%1 %2", isDown, QString(noAddress) + plainDetails) + secondEnd(isDown, noAddress);
}

void NetworkInterfacesTest::text()
{
    QFETCH(QStringList, commands);
    QFETCH(QStringList, running);
    QFETCH(QByteArray, system);
    QFETCH(QString, expected);
    for (const QString &command : qAsConst(commands))
        QCOMPARE(ip(command), QString());
    QTRY_COMPARE(runningInterfaces(), running);
    const DescribedWindows windows("", system);
    COMPARE_TEXT(qtNetworkInterfaces(), heading + expected);
}

void NetworkInterfacesTest::interfaceWithoutHardwareAddress()
{
    QCOMPARE(ip("tuntap add dev vk9 mode tun"), QString());
    const DescribedWindows windows("", "{}");
    COMPARE_TEXT(qtNetworkInterfaces(),
                 heading + loopbackOff + end(QStringLiteral("vk9"), QString(), QStringLiteral("Down, Not running"), noAddress));
}

void NetworkInterfacesTest::status_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("expected");
    using Interface = QNetworkInterface;
    QTest::newRow("no flag") << 0 << "Status: Down, Not running\n";
    QTest::newRow("0x1: up") << 1 << "Status: Up, Not running\n";
    QTest::newRow("0x2: running") << 2 << "Status: Down, Running\n";
    QTest::newRow("0x3: both") << 3 << "Status: Up, Running\n";
    QTest::newRow("0x8: loopback") << 8 << "Status: Down, Not running\n";
    QTest::newRow("all other flags")
        << int(Interface::CanBroadcast | Interface::IsPointToPoint | Interface::CanMulticast)
        << "Status: Down, Not running\n";
    QTest::newRow("all flags") << 0x3f << "Status: Up, Running\n";
}

void NetworkInterfacesTest::status()
{
    QFETCH(int, flags);
    QFETCH(QString, expected);
    pretendedFlags = QNetworkInterface::InterfaceFlags(flags);
    const DescribedWindows windows("", "{}");
    COMPARE_TEXT(qtNetworkInterfaces(),
                 heading + line + "lo\n" + (flags & 8 ? "Loopback interface\n" : "")
                     + "Hardware address: 00:00:00:00:00:00\n" + expected + caption + noAddress);
}

void NetworkInterfacesTest::noInterface()
{
    const DescribedWindows windows("", adapters(adapter(1, "one")));
    QTest::ignoreMessage(QtSystemMsg, QRegularExpression("NETLINK")); // the message of Qt
    const NoMoreFiles noSocket;
    COMPARE_TEXT(qtNetworkInterfaces(), heading);
    QCOMPARE(simulated::callCount(), std::size_t(0));
}

void NetworkInterfacesTest::calls()
{
    const DescribedWindows windows(
        "", adapters(R"({"Index": 2}, {"Index": 1, "DhcpEnabled": 1, "LeaseObtained": 1, "LeaseExpires": 2})"));
    qtNetworkInterfaces();
    QStringList calls;
    for (const simulated::Call &call : simulated::journal())
        calls += QStringLiteral("%1 %2%3").arg(QLatin1String(call.name)).arg(call.sizeIn).arg(call.value);
    const QStringList lookUp {"HeapAlloc 704", "GetAdaptersInfo 704", "HeapFree 0", "HeapAlloc 1408", "GetAdaptersInfo 1408"};
    const QStringList leases {"_localtime32_s 01", "asctime_s 64", "_localtime32_s 02", "asctime_s 64"};
    const QStringList release {"HeapFree 0"};
    QCOMPARE(calls, lookUp + release + lookUp + leases + release);
}

void NetworkInterfacesTest::listIsReadTwicePerInterface()
{
    const QStringList commands = cable();
    for (const QString &command : commands)
        QCOMPARE(ip(command), QString());
    const DescribedWindows windows("", adapters(adapter(10, "one")));
    qtNetworkInterfaces();
    QStringList sizes;
    for (const simulated::Call &call : simulated::journal()) {
        if (call.name == "GetAdaptersInfo")
            sizes += QString::number(call.sizeIn);
    }
    QStringList expected;
    for (int i = 0; i < 3 * 2 * 2; ++i) // three interfaces, two lookups each, two calls each
        expected += QStringLiteral("704");
    QCOMPARE(sizes, expected);
}

void NetworkInterfacesTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("details");

    const QByteArray list("GetAdaptersInfo");
    const QByteArray memory("HeapAlloc");
    const QString details(plainDetails);
    QTest::newRow("the first call for the description fails: the result of the second one counts") << list << 0 << "one" << details;
    QTest::newRow("the second call for the description fails: Qt's name and the details") << list << 1 << "lo" << details;
    QTest::newRow("the first call for the details fails: the result of the second one counts") << list << 2 << "one" << details;
    QTest::newRow("the second call for the details fails: only the description") << list << 3 << "one" << QString();
    QTest::newRow("no memory for the description: Qt's name and the details") << memory << 0 << "lo" << details;
    QTest::newRow("no memory for the details: only the description") << memory << 1 << "one" << QString();
    QTest::newRow("GetAdaptersInfo() always fails: only Qt's data") << list << -1 << "lo" << QString();
    QTest::newRow("every allocation fails: only Qt's data") << memory << -1 << "lo" << QString();
}

void NetworkInterfacesTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(QString, name);
    QFETCH(QString, details);
    QCOMPARE(ip(loopbackUp), QString());
    const DescribedWindows windows("", adapters(adapter(1, "one")));
    const auto fault = number < 0 ? simulated::Fault::everyCall(call, 1)
                                  : simulated::Fault::nthCall(call, std::size_t(number), 1);
    COMPARE_TEXT(qtNetworkInterfaces(), heading + line + name + "\n" + loopbackOn + details);
    QVERIFY(fault.hits() >= 1);
}

// Runs before QtTest starts a thread.
NetworkInterfacesTest::NetworkInterfacesTest()
{
    becomeRoot();
}

#else

namespace {

QString ipv4Line(const sockaddr_in &address, int prefix)
{
    const quint32 ip = qFromBigEndian<quint32>(address.sin_addr.s_addr);
    const quint32 hostBits = quint32((quint64(1) << (32 - prefix)) - 1);
    return QHostAddress(ip).toString() + " , " + QHostAddress(~hostBits).toString() + " , "
        + QHostAddress(ip | hostBits).toString() + "\n";
}

/// The scope ID that Qt appends to a link-local address.
QString scope(ULONG index)
{
    NET_LUID luid = {};
    wchar_t name[IF_MAX_STRING_SIZE + 1] = {};
    ConvertInterfaceIndexToLuid(index, &luid);
    ConvertInterfaceLuidToNameW(&luid, name, IF_MAX_STRING_SIZE + 1);
    return "%" + QString::fromWCharArray(name);
}

QString ipv6Line(const sockaddr_in6 &address, int prefix)
{
    Q_IPV6ADDR mask = {};
    for (int i = 0; i < prefix; ++i)
        mask[i / 8] |= 0x80 >> i % 8;
    return QHostAddress(address.sin6_addr.s6_addr).toString()
        + (address.sin6_scope_id ? scope(address.sin6_scope_id) : QString()) + " , " + QHostAddress(mask).toString() + " , \n";
}

QString addressLine(const IP_ADAPTER_UNICAST_ADDRESS &address)
{
    const sockaddr *ip = address.Address.lpSockaddr;
    return ip->sa_family == AF_INET ? ipv4Line(*reinterpret_cast<const sockaddr_in *>(ip), address.OnLinkPrefixLength)
                                    : ipv6Line(*reinterpret_cast<const sockaddr_in6 *>(ip), address.OnLinkPrefixLength);
}

QString addressLines(const IP_ADAPTER_ADDRESSES &adapter)
{
    QString text;
    for (const auto *address = adapter.FirstUnicastAddress; address; address = address->Next)
        text += addressLine(*address);
    return text.isEmpty() ? QStringLiteral("<no address>\n") : text;
}

QString hardwareAddress(const IP_ADAPTER_ADDRESSES &adapter)
{
    const QByteArray bytes(reinterpret_cast<const char *>(adapter.PhysicalAddress), int(adapter.PhysicalAddressLength));
    return QString::fromLatin1(bytes.toHex(':').toUpper());
}

/// The records of GetAdaptersInfo() in a buffer that is large enough.
std::vector<char> adapterRecords()
{
    std::vector<char> memory(1 << 16);
    ULONG size = ULONG(memory.size());
    if (GetAdaptersInfo(reinterpret_cast<IP_ADAPTER_INFO *>(memory.data()), &size) != ERROR_SUCCESS)
        memory.clear();
    return memory;
}

QString listLines(const QString &label, const IP_ADDR_STRING *first)
{
    QString text;
    int number = 0;
    for (const IP_ADDR_STRING *entry = first; entry; entry = entry->Next) {
        text += label + (first->Next ? " " + QString::number(++number) : QString()) + ": " + entry->IpAddress.String
            + ", " + entry->IpMask.String + "\n";
    }
    return text;
}

QString details(const IP_ADAPTER_INFO &adapter)
{
    QString text = listLines("Gateway", &adapter.GatewayList);
    text += "DHCP enabled:  " + QString::number(adapter.DhcpEnabled) + "\n";
    if (adapter.DhcpEnabled) {
        text += listLines("DHCP server", &adapter.DhcpServer);
        text += "Lease obtained: " + formatLeaseTime(adapter.LeaseObtained);
        text += "Lease expires:  " + formatLeaseTime(adapter.LeaseExpires);
    }
    text += "Have WINS: " + QString::number(adapter.HaveWins) + "\n";
    if (adapter.HaveWins) {
        text += listLines("Primary WINS Server", &adapter.PrimaryWinsServer);
        text += listLines("Secondary WINS Server", &adapter.SecondaryWinsServer);
    }
    return text;
}

QString block(const IP_ADAPTER_ADDRESSES &adapter, const IP_ADAPTER_INFO *records)
{
    const DWORD index = adapter.Ipv6IfIndex ? adapter.Ipv6IfIndex : adapter.IfIndex;
    while (records && records->Index != index)
        records = records->Next;
    const QString description = records ? QString::fromUtf8(records->Description) : QString();
    QString text = line + (description.isEmpty() ? QString::fromWCharArray(adapter.FriendlyName) : description) + "\n";
    if (adapter.IfType == IF_TYPE_SOFTWARE_LOOPBACK)
        text += "Loopback interface\n";
    text += "Hardware address: " + hardwareAddress(adapter) + "\n";
    text += adapter.OperStatus == IfOperStatusUp ? "Status: Up, Running\n" : "Status: Down, Not running\n";
    text += caption + addressLines(adapter);
    return text + (records ? details(*records) : QString());
}

} // namespace

void NetworkInterfacesTest::interfacesOfThisMachine()
{
    std::vector<char> memory(1 << 16);
    ULONG size = ULONG(memory.size());
    auto *adapters = reinterpret_cast<IP_ADAPTER_ADDRESSES *>(memory.data());
    QCOMPARE(GetAdaptersAddresses(AF_UNSPEC, 0, nullptr, adapters, &size), ULONG(ERROR_SUCCESS));
    const std::vector<char> records = adapterRecords();
    QVERIFY(!records.empty());
    QString expected = heading;
    for (const IP_ADAPTER_ADDRESSES *adapter = adapters; adapter; adapter = adapter->Next)
        expected += block(*adapter, reinterpret_cast<const IP_ADAPTER_INFO *>(records.data()));
    COMPARE_TEXT(qtNetworkInterfaces(), expected);
}

#endif

TEST_WITH_CORE_APPLICATION(NetworkInterfacesTest);

#include "tst_qt_network_interfaces.moc"
