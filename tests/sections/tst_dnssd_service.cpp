// The checks of both DNS-SD client libraries: results, texts and calls. On Windows they
// meet the libraries of tests/dnssd_libraries.

#include "described_windows.h"
#include "section_calls.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"
#include "win/dnssd_service.h"
#include "win/windows_sections.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QMap>
#include <windows.h>

using namespace velkor::SystemInfo::WinSysInfo;

class DnssdServiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void checks_data();
    void checks();
    void statusOfBoth_data();
    void statusOfBoth();
    void formatting_data();
    void formatting();
#ifdef SIMULATED_WINDOWS
    void versions_data();
    void versions();
    void nullLibrary();
    void calls_data();
    void calls();
    void failingCalls_data();
    void failingCalls();
#endif
};

namespace {

constexpr int serviceNotRunning = -65563;

#ifdef SIMULATED_WINDOWS

/// The libraries in a state, for as long as it lives.
class Libraries
{
public:
    explicit Libraries(const QString &state) : m_windows("", "{\"libraries\": {" + descriptions().value(state) + "}}") { }

    QString leftLoaded() const { return handleProblems(); }

private:
    static QMap<QString, QByteArray> descriptions()
    {
        const QByteArray standard(R"("dnssd.dll": {"DNSServiceGetProperty": {"error": 0, "DaemonVersion": 3210000}})");
        const QByteArray velkor(R"("vkdnssd.dll": {"DNSServiceGetProperty": {"error": 0, "DaemonVersion": 1300005}})");
        const auto both = [](const QByteArray &library) { return "\"dnssd.dll\": " + library + ", \"vkdnssd.dll\": "
                                                              + library; };
        return {{"running", standard + ", " + velkor},
                {"version_0", both(R"({"DNSServiceGetProperty": {"error": 0, "DaemonVersion": 0}})")},
                {"stopped", both(R"({"DNSServiceGetProperty": {"error": -65563, "DaemonVersion": 3210000}})")},
                {"failing", both(R"({"DNSServiceGetProperty": {"error": -65537, "DaemonVersion": 3210000}})")},
                {"without_function", both("{}")},
                {"standard_alone", standard},
                {"velkor_alone", velkor},
                {"missing", ""}};
    }

    const DescribedWindows m_windows;
};

#else

class Libraries
{
public:
    explicit Libraries(const QString &state)
    {
        const QString folder = QDir::toNativeSeparators(QCoreApplication::applicationDirPath() + "/dnssd_libraries/"
                                                        + state);
        if (state != "missing" && !QDir(folder).exists())
            qFatal("no folder %s", qPrintable(folder));
        SetDllDirectoryW(state == "missing" ? nullptr : reinterpret_cast<const wchar_t *>(folder.utf16()));
    }
    ~Libraries() { SetDllDirectoryW(nullptr); }

    QString leftLoaded() const
    {
        const bool standard = GetModuleHandleW(L"dnssd.dll");
        const bool velkor = GetModuleHandleW(L"vkdnssd.dll");
        return QString(standard ? "dnssd.dll" : "") + (velkor ? "vkdnssd.dll" : "");
    }
};

#endif

} // namespace

void DnssdServiceTest::checks_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("standard"); // else the maker's own library
    QTest::addColumn<bool>("installed");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("version");
    const auto row = [](const char *what, const char *state, bool standard, bool installed, int error,
                        const char *version) {
        QTest::newRow(what) << QString(state) << standard << installed << error << QString(version);
    };
    const char *const untouched = "as it was";
    row("standard: running", "running", true, true, 0, "321.0.0");
    row("velkor: running", "running", false, true, 0, "130.0.5");
    row("standard: version 0", "version_0", true, true, 0, "0.0.0");
    row("velkor: version 0", "version_0", false, true, 0, "0.0.0");
    row("standard: daemon stopped", "stopped", true, true, serviceNotRunning, untouched);
    row("velkor: daemon stopped", "stopped", false, true, serviceNotRunning, untouched);
    row("standard: another error", "failing", true, true, -65537, untouched);
    row("velkor: another error", "failing", false, true, -65537, untouched);
    row("standard: a library without the function", "without_function", true, true, 0, untouched);
    row("velkor: a library without the function", "without_function", false, true, 0, untouched);
    row("standard: neither library", "missing", true, false, 0, untouched);
    row("velkor: neither library", "missing", false, false, 0, untouched);
    row("standard: only the other library", "velkor_alone", true, false, 0, untouched);
    row("velkor: only the other library", "standard_alone", false, false, 0, untouched);
}

void DnssdServiceTest::checks()
{
    QFETCH(QString, state);
    QFETCH(bool, standard);
    QFETCH(bool, installed);
    QFETCH(int, error);
    QFETCH(QString, version);
    const Libraries libraries(state);
    const auto check = standard ? checkStandardBonjour : checkVelkorBonjour;
    for (int time = 0; time < 2; ++time) {
        int seenError = 4711;
        QString seenVersion("as it was");
        QCOMPARE(check(seenError, seenVersion), installed);
        QCOMPARE(seenError, error);
        QCOMPARE(seenVersion, version);
        QCOMPARE(libraries.leftLoaded(), QString());
    }
    int seenError = 4711;
    QString seenVersion("as it was");
    QCOMPARE(checkDnssdLibrary(standard ? L"dnssd.dll" : L"vkdnssd.dll", seenError, seenVersion), installed);
    QCOMPARE(seenError, error);
    QCOMPARE(seenVersion, version);
}

void DnssdServiceTest::statusOfBoth_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("standard");
    QTest::addColumn<QString>("velkor");
    const auto row = [](const char *what, const char *state, const char *standard, const char *velkor) {
        QTest::newRow(what) << QString(state) << QString(standard) << QString(velkor);
    };
    row("running", "running", "Standard Bonjour: installed.\nDNS-SD version: 321.0.0\n",
        "velkor DNS-SD: installed.\nDNS-SD version: 130.0.5\n");
    row("version 0", "version_0", "Standard Bonjour: installed.\nDNS-SD version: 0.0.0\n",
        "velkor DNS-SD: installed.\nDNS-SD version: 0.0.0\n");
    row("daemon stopped: two blanks behind the colon", "stopped",
        "Standard Bonjour: installed.\n"
        "DNS-SD version:  failed to get version, error = -65563 (kDNSServiceErr_ServiceNotRunning)\n",
        "velkor DNS-SD: installed.\n"
        "DNS-SD version:  failed to get version, error = -65563 (kDNSServiceErr_ServiceNotRunning)\n");
    row("another error: a bare number", "failing",
        "Standard Bonjour: installed.\nDNS-SD version:  failed to get version, error = -65537\n",
        "velkor DNS-SD: installed.\nDNS-SD version:  failed to get version, error = -65537\n");
    row("a library without the function: nothing behind the blank", "without_function",
        "Standard Bonjour: installed.\nDNS-SD version: \n", "velkor DNS-SD: installed.\nDNS-SD version: \n");
    row("neither library", "missing", "Standard Bonjour: not installed.\n", "velkor DNS-SD: not installed.\n");
    row("the standard library alone", "standard_alone", "Standard Bonjour: installed.\nDNS-SD version: 321.0.0\n",
        "velkor DNS-SD: not installed.\n");
    row("the maker's library alone", "velkor_alone", "Standard Bonjour: not installed.\n",
        "velkor DNS-SD: installed.\nDNS-SD version: 130.0.5\n");
}

void DnssdServiceTest::statusOfBoth()
{
    QFETCH(QString, state);
    QFETCH(QString, standard);
    QFETCH(QString, velkor);
    const Libraries libraries(state);
    COMPARE_TEXT(checkStandardBonjourText(), standard);
    COMPARE_TEXT(checkVelkorBonjourText(), velkor);
    QCOMPARE(libraries.leftLoaded(), QString());
}

void DnssdServiceTest::formatting_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<bool>("installed");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *what, const char *label, bool installed, int error, const char *version,
                        const char *expected) {
        QTest::newRow(what) << QString(label) << installed << error << QString(version) << QString(expected);
    };
    row("a version", "L: ", true, 0, "1.2.3", "L: installed.\nDNS-SD version: 1.2.3\n");
    row("no version", "L: ", true, 0, "", "L: installed.\nDNS-SD version: \n");
    row("not installed: neither error nor version", "L: ", false, serviceNotRunning, "1.2.3", "L: not installed.\n");
    row("the named error, without the version", "L: ", true, serviceNotRunning, "1.2.3",
        "L: installed.\nDNS-SD version:  failed to get version, error = -65563 (kDNSServiceErr_ServiceNotRunning)\n");
    row("an error beside it has no name", "L: ", true, serviceNotRunning + 1, "",
        "L: installed.\nDNS-SD version:  failed to get version, error = -65562\n");
    row("its positive number has no name", "L: ", true, -serviceNotRunning, "",
        "L: installed.\nDNS-SD version:  failed to get version, error = 65563\n");
    row("the lowest error", "L: ", true, std::numeric_limits<int>::min(), "",
        "L: installed.\nDNS-SD version:  failed to get version, error = -2147483648\n");
    row("an empty label", "", false, 0, "", "not installed.\n");
    row("placeholders stay", "%1 ", true, 0, "%1", "%1 installed.\nDNS-SD version: %1\n");
    row("a placeholder in the label takes no error", "%1 ", true, -1, "",
        "%1 installed.\nDNS-SD version:  failed to get version, error = -1\n");
}

void DnssdServiceTest::formatting()
{
    QFETCH(QString, label);
    QFETCH(bool, installed);
    QFETCH(int, error);
    QFETCH(QString, version);
    QFETCH(QString, expected);
    COMPARE_TEXT(formatDnssdStatus(label, installed, error, version), expected);
}

#ifdef SIMULATED_WINDOWS

void DnssdServiceTest::versions_data()
{
    QTest::addColumn<uint>("version");
    QTest::addColumn<QString>("text");
    QTest::newRow("the last part at its highest") << 99u << "0.0.99";
    QTest::newRow("the second part at its lowest") << 100u << "0.1.0";
    QTest::newRow("both at their highest") << 9999u << "0.99.99";
    QTest::newRow("the first part at its lowest") << 10000u << "1.0.0";
    QTest::newRow("all parts, without padding") << 10203u << "1.2.3";
    QTest::newRow("321.0.0") << 3210000u << "321.0.0";
    QTest::newRow("130.0.5") << 1300005u << "130.0.5";
    QTest::newRow("beyond 31 bits") << 0x80000000u << "214748.36.48";
    QTest::newRow("the highest") << 0xffffffffu << "429496.72.95";
}

void DnssdServiceTest::versions()
{
    QFETCH(uint, version);
    QFETCH(QString, text);
    const DescribedWindows windows("",
                                   R"({"libraries": {"dnssd.dll": {"DNSServiceGetProperty": {"DaemonVersion": )"
                                       + QByteArray::number(version) + "}}}}");
    int error = 4711;
    QString seen;
    QVERIFY(checkStandardBonjour(error, seen));
    QCOMPARE(seen, text);
    QCOMPARE(error, 0);
}

void DnssdServiceTest::nullLibrary()
{
    const DescribedWindows windows("", R"({"libraries": {"dnssd.dll": null}})");
    COMPARE_TEXT(checkStandardBonjourText(), QStringLiteral("Standard Bonjour: not installed.\n"));
}

void DnssdServiceTest::calls_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("expected");
    QTest::newRow("running") << "running"
                             << "LoadLibraryW vkdnssd.dll\n"
                                "GetProcAddress vkdnssd.dll \"DNSServiceGetProperty\"\n"
                                "DNSServiceGetProperty \"DaemonVersion\" 4\n"
                                "FreeLibrary\n";
    QTest::newRow("without the function") << "without_function"
                                          << "LoadLibraryW vkdnssd.dll\n"
                                             "GetProcAddress vkdnssd.dll \"DNSServiceGetProperty\"\n"
                                             "FreeLibrary\n";
    QTest::newRow("not installed") << "missing"
                                   << "LoadLibraryW vkdnssd.dll\n";
}

void DnssdServiceTest::calls()
{
    QFETCH(QString, state);
    QFETCH(QString, expected);
    const Libraries libraries(state);
    checkVelkorBonjourText();
    COMPARE_TEXT(journalText(), expected);
}

void DnssdServiceTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *what, const char *call, int error, const char *expected) {
        QTest::newRow(what) << QByteArray(call) << error << QString(expected);
    };
    row("the library does not load", "LoadLibraryW", ERROR_ACCESS_DENIED, "Standard Bonjour: not installed.\n");
    row("the function is not found", "GetProcAddress", ERROR_ACCESS_DENIED,
        "Standard Bonjour: installed.\nDNS-SD version: \n");
    row("the query fails", "DNSServiceGetProperty", serviceNotRunning,
        "Standard Bonjour: installed.\n"
        "DNS-SD version:  failed to get version, error = -65563 (kDNSServiceErr_ServiceNotRunning)\n");
    row("the library is not freed: nothing shows", "FreeLibrary", ERROR_ACCESS_DENIED,
        "Standard Bonjour: installed.\nDNS-SD version: 321.0.0\n");
}

void DnssdServiceTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, error);
    QFETCH(QString, expected);
    const Libraries libraries("running");
    const simulated::Fault fault = simulated::Fault::nthCall(call, 0, quint32(error));
    COMPARE_TEXT(checkStandardBonjourText(), expected);
    QCOMPARE(fault.hits(), std::size_t(1));
    QCOMPARE(libraries.leftLoaded(), QString());
}

#endif

TEST_WITH_CORE_APPLICATION(DnssdServiceTest);
#include "tst_dnssd_service.moc"
