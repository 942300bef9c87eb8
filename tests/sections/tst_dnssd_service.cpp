// Both DNS-SD checks: results and texts. On Windows they load the libraries of
// tests/dnssd_libraries.

#include "section_rows.h"
#include "vkSystemInfo.h"
#include "wide_text.h"
#include "win/dnssd_service.h"
#include "win/windows_sections.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QMap>

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

constexpr int serviceNotRunning = -65563;

#ifdef SIMULATED_WINDOWS

Described described(const QString &state)
{
    const QByteArray standard(R"("dnssd.dll": {"DNSServiceGetProperty": {"error": 0, "DaemonVersion": 3210000}})");
    const QByteArray velkor(R"("vkdnssd.dll": {"DNSServiceGetProperty": {"error": 0, "DaemonVersion": 1300005}})");
    const auto both = [](const QByteArray &library) { return "\"dnssd.dll\": " + library + ", \"vkdnssd.dll\": " + library; };
    const QMap<QString, QByteArray> libraries {
        {"running", standard + ", " + velkor},
        {"version_0", both(R"({"DNSServiceGetProperty": {"error": 0, "DaemonVersion": 0}})")},
        {"stopped", both(R"({"DNSServiceGetProperty": {"error": -65563, "DaemonVersion": 3210000}})")},
        {"failing", both(R"({"DNSServiceGetProperty": {"error": -65537, "DaemonVersion": 3210000}})")},
        {"without_function", both("{}")},
        {"standard_alone", standard},
        {"velkor_alone", velkor},
        {"missing", ""}};
    return {"", "{\"libraries\": {" + libraries.value(state) + "}}"};
}

/// The libraries are in a state while the object exists.
class Libraries
{
public:
    explicit Libraries(const QString &state) : m_windows(described(state).machine) { }

    QString leftLoaded() const { return handleProblems(); }

private:
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
        SetDllDirectoryW(state == "missing" ? nullptr : wide(folder));
        ;
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

using Check = bool (*)(int &, QString &);

/// The result, the error code and the version of a check.
QString resultOf(Check check)
{
    int error = 4711;
    QString version("unchanged");
    const bool installed = check(error, version);
    return QString("%1, %2, %3").arg(installed ? "installed" : "not installed").arg(error).arg(version);
}

void checkRows()
{
    const auto row = [](const char *name, const char *state, bool standard, const QString &expected) {
        addTestRow(name, [=] {
            const Libraries libraries(state);
            const Check check = standard ? checkStandardBonjour : checkVelkorBonjour;
            for (int time = 0; time < 2; ++time) {
                QCOMPARE(resultOf(check), expected);
                QCOMPARE(libraries.leftLoaded(), QString());
            }
            const Check library = standard
                ? Check([](int &error, QString &version) { return checkDnssdLibrary(L"dnssd.dll", error, version); })
                : Check([](int &error, QString &version) { return checkDnssdLibrary(L"vkdnssd.dll", error, version); });
            QCOMPARE(resultOf(library), expected);
        });
    };
    row("standard: running", "running", true, "installed, 0, 321.0.0");
    row("velkor: running", "running", false, "installed, 0, 130.0.5");
    row("standard: version 0", "version_0", true, "installed, 0, 0.0.0");
    row("velkor: version 0", "version_0", false, "installed, 0, 0.0.0");
    row("standard: daemon stopped", "stopped", true, "installed, -65563, unchanged");
    row("velkor: daemon stopped", "stopped", false, "installed, -65563, unchanged");
    row("standard: another error", "failing", true, "installed, -65537, unchanged");
    row("velkor: another error", "failing", false, "installed, -65537, unchanged");
    row("standard: a library without the function", "without_function", true, "installed, 0, unchanged");
    row("velkor: a library without the function", "without_function", false, "installed, 0, unchanged");
    row("standard: no library", "missing", true, "not installed, 0, unchanged");
    row("velkor: no library", "missing", false, "not installed, 0, unchanged");
    row("standard: only the other library", "velkor_alone", true, "not installed, 0, unchanged");
    row("velkor: only the other library", "standard_alone", false, "not installed, 0, unchanged");
}

void statusRows()
{
    const auto row = [](const char *name, const char *state, const char *standard, const char *velkor) {
        addTestRow(name, [=] {
            const Libraries libraries(state);
            COMPARE_TEXT(checkStandardBonjourText(), QString("Standard Bonjour: ") + standard);
            COMPARE_TEXT(checkVelkorBonjourText(), QString("velkor DNS-SD: ") + velkor);
            QCOMPARE(libraries.leftLoaded(), QString());
        });
    };
    const char *const stopped = "installed.\n"
                                "DNS-SD version:  failed to get version, error = -65563 (kDNSServiceErr_ServiceNotRunning)\n";
    const char *const failing = "installed.\nDNS-SD version:  failed to get version, error = -65537\n";
    row("running", "running", "installed.\nDNS-SD version: 321.0.0\n", "installed.\nDNS-SD version: 130.0.5\n");
    row("version 0", "version_0", "installed.\nDNS-SD version: 0.0.0\n", "installed.\nDNS-SD version: 0.0.0\n");
    row("daemon stopped: two blanks after the colon", "stopped", stopped, stopped);
    row("another error: its number", "failing", failing, failing);
    row("a library without the function: an empty version", "without_function", "installed.\nDNS-SD version: \n",
        "installed.\nDNS-SD version: \n");
    row("no library", "missing", "not installed.\n", "not installed.\n");
    row("only the standard library", "standard_alone", "installed.\nDNS-SD version: 321.0.0\n", "not installed.\n");
    row("only the velkor library", "velkor_alone", "not installed.\n", "installed.\nDNS-SD version: 130.0.5\n");
}

void formatRows()
{
    const auto row = [](const char *name, const char *label, bool installed, int error, const char *version,
                        const char *expected) {
        addTestRow(name, [=] { COMPARE_TEXT(formatDnssdStatus(label, installed, error, version), QString(expected)); });
    };
    row("a version", "L: ", true, 0, "1.2.3", "L: installed.\nDNS-SD version: 1.2.3\n");
    row("no version", "L: ", true, 0, "", "L: installed.\nDNS-SD version: \n");
    row("not installed: neither error nor version", "L: ", false, serviceNotRunning, "1.2.3", "L: not installed.\n");
    row("the error that has a name: no version", "L: ", true, serviceNotRunning, "1.2.3",
        "L: installed.\nDNS-SD version:  failed to get version, error = -65563 (kDNSServiceErr_ServiceNotRunning)\n");
    row("the next error has no name", "L: ", true, serviceNotRunning + 1, "",
        "L: installed.\nDNS-SD version:  failed to get version, error = -65562\n");
    row("the positive number of that error has no name", "L: ", true, -serviceNotRunning, "",
        "L: installed.\nDNS-SD version:  failed to get version, error = 65563\n");
    row("the lowest error", "L: ", true, std::numeric_limits<int>::min(), "",
        "L: installed.\nDNS-SD version:  failed to get version, error = -2147483648\n");
    row("an empty label", "", false, 0, "", "not installed.\n");
    row("placeholders are not replaced", "%1 ", true, 0, "%1", "%1 installed.\nDNS-SD version: %1\n");
    row("a placeholder in the label is not replaced with the error", "%1 ", true, -1, "",
        "%1 installed.\nDNS-SD version:  failed to get version, error = -1\n");
}

#ifdef SIMULATED_WINDOWS

void versionRows()
{
    const SectionRows rows([] { return resultOf(checkStandardBonjour); }, "installed, 0, ");
    const auto row = [&](const char *name, const QByteArray &version, const QString &text) {
        rows.text(name,
                  {"", R"({"libraries": {"dnssd.dll": {"DNSServiceGetProperty": {"DaemonVersion": )" + version + "}}}}"}, text);
    };
    row("the largest last part", "99", "0.0.99");
    row("the smallest second part above 0", "100", "0.1.0");
    row("the largest second and last part", "9999", "0.99.99");
    row("the smallest first part above 0", "10000", "1.0.0");
    row("all parts, without padding", "10203", "1.2.3");
    row("321.0.0", "3210000", "321.0.0");
    row("130.0.5", "1300005", "130.0.5");
    row("beyond 31 bits", "2147483648", "214748.36.48");
    row("the highest", "4294967295", "429496.72.95");
}

void callRows()
{
    const SectionRows velkor(checkVelkorBonjourText, "velkor DNS-SD: ");
    velkor.calls("calls: running", described("running"),
                 "LoadLibraryW vkdnssd.dll\n"
                 "GetProcAddress vkdnssd.dll \"DNSServiceGetProperty\"\n"
                 "DNSServiceGetProperty \"DaemonVersion\" 4\n"
                 "FreeLibrary\n");
    velkor.calls("calls: without the function", described("without_function"),
                 "LoadLibraryW vkdnssd.dll\n"
                 "GetProcAddress vkdnssd.dll \"DNSServiceGetProperty\"\n"
                 "FreeLibrary\n");
    velkor.calls("calls: not installed", described("missing"), "LoadLibraryW vkdnssd.dll\n");

    const SectionRows standard(checkStandardBonjourText, "Standard Bonjour: ");
    const Described running = described("running");
    standard.text("a null library", {"", R"({"libraries": {"dnssd.dll": null}})"}, "not installed.\n");
    standard.failure("LoadLibrary() fails", running, "LoadLibraryW", 0, "not installed.\n");
    standard.failure("GetProcAddress() fails", running, "GetProcAddress", 0, "installed.\nDNS-SD version: \n");
    standard.failure("the query fails", running, "DNSServiceGetProperty", 0,
                     "installed.\n"
                     "DNS-SD version:  failed to get version, error = -65563 (kDNSServiceErr_ServiceNotRunning)\n",
                     DWORD(serviceNotRunning));
    standard.failure("FreeLibrary() fails: the text is unchanged", running, "FreeLibrary", 0,
                     "installed.\nDNS-SD version: 321.0.0\n");
}

#endif

void addRows()
{
    checkRows();
    statusRows();
    formatRows();
#ifdef SIMULATED_WINDOWS
    versionRows();
    callRows();
#endif
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
