// qtHostInfo(): text.

#include "section_process.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

#ifdef Q_OS_WIN
#  include "described_windows.h"
#  include <winsock2.h>
// winsock2.h must precede the others
#  include <iphlpapi.h>
#  include <windows.h>
#else
#  include <unistd.h>
#endif

using namespace velkor::SystemInfo;

class QtHostInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
#ifdef Q_OS_WIN
    void sameAsWindows();
    void domainsInTheRegistry_data();
    void domainsInTheRegistry();
#else
    void domains_data();
    void domains();
    void hosts_data();
    void hosts();
#endif
};

#ifdef Q_OS_WIN

namespace {

bool runsUnderWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

QString computerName(COMPUTER_NAME_FORMAT format)
{
    wchar_t name[256] = {};
    DWORD size = 256;
    return GetComputerNameExW(format, name, &size) ? QString::fromWCharArray(name) : QString("GetComputerNameEx failed");
}

/// The first value that is not empty, in the order of the resolver of Windows.
QString registryDomain()
{
    const wchar_t key[] = L"SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters";
    for (const wchar_t *value : {L"Domain", L"DhcpDomain"}) {
        wchar_t data[256] = {};
        DWORD size = sizeof data;
        if (RegGetValueW(HKEY_LOCAL_MACHINE, key, value, RRF_RT_REG_SZ, nullptr, data, &size) == ERROR_SUCCESS && *data)
            return QString::fromWCharArray(data);
    }
    return QString();
}

QString networkParametersDomain()
{
    ULONG size = 0;
    GetNetworkParams(nullptr, &size);
    QByteArray buffer(int(size), '\0');
    const auto parameters = reinterpret_cast<FIXED_INFO *>(buffer.data());
    return GetNetworkParams(parameters, &size) == ERROR_SUCCESS ? QString::fromLatin1(parameters->DomainName)
                                                                : QString("GetNetworkParams failed");
}

} // namespace

void QtHostInfoTest::sameAsWindows()
{
    const QStringList lines = qtHostInfo().split('\n');
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines.at(0), QString("QHostInfo"));
    const QString label("Local host name:   ");
    QVERIFY2(lines.at(1).startsWith(label), qPrintable(lines.at(1)));
    QString host = lines.at(1).mid(label.size());
    if (runsUnderWine()) // gethostname() returns the host name of Linux there, including its domain
        host = host.section('.', 0, 0);
    QVERIFY(!host.isEmpty());
    QCOMPARE(host, computerName(ComputerNameDnsHostname));
    QCOMPARE(lines.at(2), "Local domain name: " + networkParametersDomain());
    QCOMPARE(lines.at(2), "Local domain name: " + registryDomain());
    QCOMPARE(lines.at(3), QString());
}

void QtHostInfoTest::domainsInTheRegistry_data()
{
    QTest::addColumn<QByteArray>("values");
    QTest::addColumn<QString>("line");
    QTest::newRow("a domain") << QByteArray("\"Domain\"=\"example.test\"\n") << "Local domain name: example.test";
    QTest::newRow("a domain of one label") << QByteArray("\"Domain\"=\"example\"\n") << "Local domain name: example";
    QTest::newRow("an empty domain") << QByteArray("\"Domain\"=\"\"\n") << "Local domain name: ";
    QTest::newRow("no domain") << QByteArray() << "Local domain name: ";
}

// Wine reads the registry in the process itself, Windows in a service.
void QtHostInfoTest::domainsInTheRegistry()
{
    if (!runsUnderWine())
        QSKIP("Windows does not read the domain from the registry of this process");
    QFETCH(QByteArray, values);
    QFETCH(QString, line);
    const DescribedWindows windows("[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters]\n" + values);
    QCOMPARE(qtHostInfo().section('\n', 2, 2), line);
}

#else

namespace {

QString thisHost()
{
    char name[256] = {};
    gethostname(name, sizeof name - 1);
    return QString::fromLocal8Bit(name);
}

} // namespace

// LOCALDOMAIN overrides the settings of the resolver.
void QtHostInfoTest::domains_data()
{
    QTest::addColumn<QString>("domain");
    QTest::addColumn<QString>("line");
    QTest::newRow("a domain") << "example.test"
                              << "Local domain name: example.test\n";
    QTest::newRow("the first domain of several") << "a.test b.test"
                                                 << "Local domain name: a.test\n";
    QTest::newRow("no domain") << ""
                               << "Local domain name: \n";
}

void QtHostInfoTest::domains()
{
    QFETCH(QString, domain);
    QFETCH(QString, line);
    COMPARE_TEXT(qt_environment::sectionText(QStringLiteral("qtHostInfo"), {QStringLiteral("LOCALDOMAIN=") + domain}),
                 QStringLiteral("QHostInfo\n"
                                "Local host name:   ")
                     + thisHost() + QLatin1Char('\n') + line);
}

void QtHostInfoTest::hosts_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a host")
        << "plant-7"
        << "QHostInfo\n"
           "Local host name:   plant-7\n"
           "Local domain name: example.test\n";
    QTest::newRow("placeholders are not replaced")
        << "%1-%2"
        << "QHostInfo\n"
           "Local host name:   %1-%2\n"
           "Local domain name: example.test\n";
}

void QtHostInfoTest::hosts()
{
    QFETCH(QString, host);
    QFETCH(QString, expected);
    const QString text = qt_environment::sectionTextOnHost(host, QStringLiteral("qtHostInfo"),
                                                           {QStringLiteral("LOCALDOMAIN=example.test")});
    if (text.isNull())
        QSKIP("this system does not permit user namespaces with their own host name");
    COMPARE_TEXT(text, expected);
}

#endif

TEST_WITH_CORE_APPLICATION(QtHostInfoTest);
#include "tst_qt_host_info.moc"
