// windowsVersion(), platformName() and what they are decided from.

#include "described_windows.h"
#include "registry_values.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"
#include "win/windows_sections.h"
#include "win/windows_version.h"

#ifdef SIMULATED_WINDOWS
#  include "journal_lines.h"
#  include <windows.h>
#endif

using namespace velkor::SystemInfo::WinSysInfo;

Q_DECLARE_METATYPE(velkor::SystemInfo::WinSysInfo::ReleaseFacts)

class WindowsVersionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void release_data();
    void release();
    void edition_data();
    void edition();
    void registryVersion_data();
    void registryVersion();
#ifdef SIMULATED_WINDOWS
    void releaseOfMachine_data();
    void releaseOfMachine();
    void text_data();
    void text();
    void editionFunction_data();
    void editionFunction();
    void calls_data();
    void calls();
    void failingCalls_data();
    void failingCalls();
#endif
};

namespace {

constexpr quint16 enterprise = 0x0002;
constexpr quint16 dataCenter = 0x0080;
constexpr quint16 personal = 0x0200;
constexpr quint16 blade = 0x0400;
constexpr quint16 storageServer = 0x2000;
constexpr quint16 computeCluster = 0x4000;
constexpr quint16 homeServer = 0x8000;

constexpr quint16 allBut(quint16 bits)
{
    return quint16(0xffff ^ bits);
}

constexpr quint8 workstation = 1;
constexpr quint8 domainController = 2;
constexpr quint8 server = 3;

constexpr quint16 itanium = 6;
constexpr quint16 x64 = 9;

constexpr quint32 largest = 4294967295;

ReleaseFacts facts(quint32 major, quint32 minor, quint8 productType = workstation, quint16 suiteMask = 0)
{
    ReleaseFacts facts;
    facts.major = major;
    facts.minor = minor;
    facts.productType = productType;
    facts.suiteMask = suiteMask;
    return facts;
}

void addRow(const char *name, const ReleaseFacts &facts, const QString &expected)
{
    QTest::newRow(name) << facts << expected;
}

// Major 4

void rowsOf95And98()
{
    const auto row = [](const char *name, quint32 minor, const QString &servicePack, const QString &expected) {
        ReleaseFacts with = facts(4, minor);
        with.servicePack = servicePack;
        addRow(name, with, expected);
    };
    row("4.0 without a service pack", 0, "", "Windows 95 ");
    row("4.0, second letter B", 0, " B", "Windows 95 OSR2 ");
    row("4.0, second letter C", 0, " C ", "Windows 95 OSR2 ");
    row("4.0, second letter A", 0, " A", "Windows 95 ");
    row("4.0, second letter D", 0, " D", "Windows 95 ");
    row("4.0, second letter b", 0, " b", "Windows 95 ");
    row("4.0, first letter B", 0, "B", "Windows 95 ");
    row("4.0, third letter B", 0, "  B", "Windows 95 ");
    row("4.10 without a service pack", 10, "", "Windows 98 ");
    row("4.10, first letter A", 10, "A", "Windows 98 SE ");
    row("4.10, first letter A of more", 10, "A x", "Windows 98 SE ");
    row("4.10, second letter A", 10, " A ", "Windows 98 ");
    row("4.10, first letter B", 10, "B", "Windows 98 ");
    row("4.10, first letter a", 10, "a", "Windows 98 ");
    row("4.90", 90, "AB", "Windows Me ");
}

void rowsOfNt()
{
    addRow("4.4 workstation", facts(4, 4, workstation), "Windows NT Workstation ");
    addRow("4.4 workstation, enterprise", facts(4, 4, workstation, enterprise), "Windows NT Workstation ");
    addRow("4.4 domain controller, enterprise", facts(4, 4, domainController, enterprise), "Windows NT ");
    addRow("4.4 server", facts(4, 4, server), "Windows NT Server ");
    addRow("4.4 server, enterprise", facts(4, 4, server, enterprise), "Windows NT Server Enterprise ");
    addRow("4.4 server, every bit but enterprise", facts(4, 4, server, allBut(enterprise)), "Windows NT Server ");
    addRow("4.4 without a product type", facts(4, 4, 0, enterprise), "Windows NT ");
}

void rowsOfUnknownMajor4()
{
    for (const quint32 minor : {1u, 3u, 5u, 9u, 11u, 89u, 91u, largest})
        QTest::addRow("4.%u is unknown", minor) << facts(4, minor) << QString("Windows unkown minor version for major=4");
}

// Major 5

void rowsOf2000AndXp()
{
    addRow("5.0 workstation", facts(5, 0), "Windows 2000 Professional , 64-bit");
    addRow("5.0 workstation, datacenter", facts(5, 0, workstation, dataCenter),
           "Windows 2000 Professional Data Center , 64-bit");
    addRow("5.0 workstation, enterprise", facts(5, 0, workstation, enterprise),
           "Windows 2000 Professional Advanced , 64-bit");
    addRow("5.0 workstation, both", facts(5, 0, workstation, dataCenter | enterprise),
           "Windows 2000 Professional Data Center Advanced , 64-bit");
    addRow("5.0 workstation, every other bit", facts(5, 0, workstation, allBut(dataCenter | enterprise)),
           "Windows 2000 Professional , 64-bit");
    addRow("5.0 domain controller, every bit", facts(5, 0, domainController, 0xffff), "Windows 2000 , 64-bit");
    addRow("5.0 server, every bit", facts(5, 0, server, 0xffff), "Windows 2000 , 64-bit");
    addRow("5.1", facts(5, 1), "Windows XP Professional, 64-bit");
    addRow("5.1 personal", facts(5, 1, workstation, personal), "Windows XP Home Edition, 64-bit");
    addRow("5.1, every bit but personal", facts(5, 1, workstation, allBut(personal)), "Windows XP Professional, 64-bit");
    addRow("5.1 server, personal", facts(5, 1, server, personal), "Windows XP Home Edition, 64-bit");
}

ReleaseFacts serverR2(quint8 productType, quint16 suiteMask = 0)
{
    ReleaseFacts result = facts(5, 2, productType, suiteMask);
    result.isServerR2 = true;
    return result;
}

// The first rule that holds.
void rowsOfReleasesOf52()
{
    addRow("5.2 R2", serverR2(server), "Windows Server 2003 R2 Standard Edition, 64-bit");
    addRow("5.2 R2 before the storage server", serverR2(server, storageServer),
           "Windows Server 2003 R2 Standard Edition, 64-bit");
    addRow("5.2 R2 before the home server", serverR2(server, homeServer), "Windows Server 2003 R2 Standard Edition, 64-bit");
    addRow("5.2 R2 before the workstation", serverR2(workstation), "Windows Server 2003 R2 , 64-bit");
    addRow("5.2 storage server", facts(5, 2, server, storageServer), "Windows Storage Server 2003 Standard Edition, 64-bit");
    addRow("5.2 storage server before the workstation", facts(5, 2, workstation, storageServer),
           "Windows Storage Server 2003 , 64-bit");
    addRow("5.2 storage server and one more bit", facts(5, 2, server, storageServer | enterprise),
           "Windows Windows Server 2003 Enterprise Edition, 64-bit");
    addRow("5.2 home server", facts(5, 2, server, homeServer), "Windows Home Server Standard Edition, 64-bit");
    addRow("5.2 home server before the workstation", facts(5, 2, workstation, homeServer), "Windows Home Server , 64-bit");
    addRow("5.2 home server and one more bit", facts(5, 2, server, homeServer | 1),
           "Windows Windows Server 2003 Standard Edition, 64-bit");
    addRow("5.2 storage and home server", facts(5, 2, server, storageServer | homeServer),
           "Windows Windows Server 2003 Standard Edition, 64-bit");
    addRow("5.2 workstation", facts(5, 2, workstation), "Windows XP Professional x64 Edition , 64-bit");
    addRow("5.2 workstation has no edition", facts(5, 2, workstation, enterprise | dataCenter),
           "Windows XP Professional x64 Edition , 64-bit");
    addRow("5.2 workstation, storage server and one more bit", facts(5, 2, workstation, storageServer | 1),
           "Windows XP Professional x64 Edition , 64-bit");
    addRow("5.2 domain controller: Windows twice", facts(5, 2, domainController),
           "Windows Windows Server 2003 Standard Edition, 64-bit");
    addRow("5.2 server: Windows twice", facts(5, 2, server), "Windows Windows Server 2003 Standard Edition, 64-bit");
}

void rowsOfEditionsOf52()
{
    const auto row = [](const char *name, quint16 architecture, quint16 suiteMask, const QString &edition) {
        ReleaseFacts with = facts(5, 2, server, suiteMask);
        with.architecture = architecture;
        addRow(name, with, "Windows Windows Server 2003 " + edition + ", 64-bit");
    };
    row("Itanium, datacenter", itanium, dataCenter, "Datacenter Edition for Itanium-based Systems");
    row("Itanium, enterprise", itanium, enterprise, "Enterprise Edition for Itanium-based Systems");
    row("Itanium, datacenter before enterprise", itanium, dataCenter | enterprise,
        "Datacenter Edition for Itanium-based Systems");
    row("Itanium, neither", itanium, 0, "");
    row("Itanium, every other bit", itanium, allBut(dataCenter | enterprise), "");
    row("x64, datacenter", x64, dataCenter, "Datacenter x64 Edition");
    row("x64, enterprise", x64, enterprise, "Enterprise x64 Edition");
    row("x64, datacenter before enterprise", x64, dataCenter | enterprise, "Datacenter x64 Edition");
    row("x64, neither", x64, 0, "Standard x64 Edition");
    row("x64, every other bit", x64, allBut(dataCenter | enterprise), "Standard x64 Edition");
    row("x86, compute cluster", 0, computeCluster, "Compute Cluster Edition");
    row("x86, compute cluster before all others", 0, 0xffff, "Compute Cluster Edition");
    row("x86, datacenter", 0, dataCenter, "Datacenter Edition");
    row("x86, datacenter before enterprise and blade", 0, allBut(computeCluster), "Datacenter Edition");
    row("x86, enterprise", 0, enterprise, "Enterprise Edition");
    row("x86, enterprise before blade", 0, enterprise | blade, "Enterprise Edition");
    row("x86, blade", 0, blade, "Web Edition");
    row("x86, none", 0, 0, "Standard Edition");
    row("x86, every other bit", 0, allBut(computeCluster | dataCenter | enterprise | blade), "Standard Edition");
    row("an unknown architecture, blade", 12, blade, "Web Edition");
}

void rowsOfUnknownMajor5()
{
    for (const quint32 minor : {3u, 4u, 10u, largest}) {
        QTest::addRow("5.%u is unknown", minor)
            << facts(5, minor) << QString("Windows unknown minor version for major=5, 64-bit");
    }
}

// Major 6

ReleaseFacts withEdition(ReleaseFacts facts, quint32 code)
{
    facts.editionCode = code;
    return facts;
}

void rowsOf60And61()
{
    addRow("6.0 workstation", withEdition(facts(6, 0, workstation), 1), "Windows Vista Ultimate Edition, 64-bit");
    addRow("6.0 server", withEdition(facts(6, 0, server), 7), "Windows Server 2008 Standard Edition, 64-bit");
    addRow("6.0 domain controller: no release words", withEdition(facts(6, 0, domainController), 7),
           "Windows Standard Edition, 64-bit");
    addRow("6.0 domain controller without an edition", facts(6, 0, domainController), "Windows , 64-bit");
    addRow("6.0 workstation without an edition", facts(6, 0, workstation), "Windows Vista , 64-bit");
    addRow("6.1 workstation", withEdition(facts(6, 1, workstation), 1), "Windows 7 Ultimate Edition, 64-bit");
    addRow("6.1 domain controller", withEdition(facts(6, 1, domainController), 10),
           "Windows Server 2008 R2 Enterprise Edition, 64-bit");
    addRow("6.1 server", withEdition(facts(6, 1, server), 8), "Windows Server 2008 R2 Datacenter Edition, 64-bit");
    addRow("6.1 without a product type", facts(6, 1, 0), "Windows Server 2008 R2 , 64-bit");
    addRow("6.1 workstation without an edition", facts(6, 1, workstation), "Windows 7 , 64-bit");
    addRow("6.1, edition 0", withEdition(facts(6, 1, workstation), 0), "Windows 7 0x0, 64-bit");
    addRow("6.1, edition 123", withEdition(facts(6, 1, workstation), 123), "Windows 7 0x7b, 64-bit");
    addRow("6.1, edition 17", withEdition(facts(6, 1, server), 17), "Windows Server 2008 R2 Web Server Edition), 64-bit");
    ReleaseFacts registryIsNewer = withEdition(facts(6, 1, workstation), 48);
    registryIsNewer.registry.major = 10;
    addRow("6.1, the registry does not matter", registryIsNewer, "Windows 7 Professional Edition, 64-bit");
}

void rowOf62(const char *name, quint8 productType, quint32 major, quint32 minor, quint32 build, const QString &release)
{
    ReleaseFacts with = withEdition(facts(6, 2, productType), 48);
    with.registry.major = major;
    with.registry.minor = minor;
    with.registry.build = build;
    addRow(name, with, "Windows " + release + "Professional Edition, 64-bit");
}

void rowsOf62()
{
    rowOf62("registry 6.2, client", workstation, 6, 2, 9200, "8 ");
    rowOf62("registry 6.2, domain controller", domainController, 6, 2, 9200, "Server 2012 ");
    rowOf62("registry 6.2, server", server, 6, 2, 9200, "Server 2012 ");
    rowOf62("registry 6.3, client", workstation, 6, 3, 9600, "8.1 ");
    rowOf62("registry 6.3, domain controller", domainController, 6, 3, 9600, "Server 2012 R2 ");
    rowOf62("registry 6.3, server", server, 6, 3, 9600, "Server 2012 R2 ");
    rowOf62("registry 6.3, build beyond 22000", workstation, 6, 3, 22631, "8.1 ");
    rowOf62("registry 10.0, no build", workstation, 10, 0, 0, "10 ");
    rowOf62("registry 10.0, build 10240", workstation, 10, 0, 10240, "10 ");
    rowOf62("registry 10.0, build 21999 is the last 10", workstation, 10, 0, 21999, "10 ");
    rowOf62("registry 10.0, build 22000 is the first 11", workstation, 10, 0, 22000, "11 ");
    rowOf62("registry 10.0, build 22631", workstation, 10, 0, 22631, "11 ");
    rowOf62("registry 10.0, the build is unsigned", workstation, 10, 0, largest, "11 ");
    rowOf62("registry 10.0, domain controller", domainController, 10, 0, 14393, "Server 2016 ");
    rowOf62("registry 10.0, server", server, 10, 0, 14393, "Server 2016 ");
    rowOf62("registry 10.0, server, build 21999", server, 10, 0, 21999, "Server 2016 ");
    rowOf62("registry 10.0, server, build 22000", server, 10, 0, 22000, "Server 2016 ");
    rowOf62("registry 10.0, without a product type", 0, 10, 0, 22000, "Server 2016 ");
    rowOf62("nothing in the registry, client", workstation, 0, 0, 0, "");
    rowOf62("nothing in the registry, server", server, 0, 0, 0, "");
    rowOf62("registry 6.1", workstation, 6, 1, 7601, "");
    rowOf62("registry 6.4", workstation, 6, 4, 9841, "");
    rowOf62("registry 10.1", workstation, 10, 1, 22000, "");
    rowOf62("registry 10.1, server", server, 10, 1, 22000, "");
    rowOf62("registry 11.0", workstation, 11, 0, 22000, "");
    rowOf62("registry 5.2", workstation, 5, 2, 3790, "");
    ReleaseFacts noEdition = facts(6, 2);
    noEdition.registry.major = 10;
    addRow("registry 10.0 without an edition", noEdition, "Windows 10 , 64-bit");
}

void rowsOfUnknownMajor6()
{
    for (const quint32 minor : {3u, 4u, largest})
        QTest::addRow("6.%u is unknown", minor) << facts(6, minor) << QString("Windows unknown minor version for major=6");
}

void rowsOfUnknownMajors()
{
    for (const quint32 major : {0u, 3u, 7u, 10u, 11u, largest})
        QTest::addRow("%u.0 is unknown", major) << facts(major, 0) << QString("Windows unknown major version");
    addRow("10.0 is unknown on a server too", facts(10, 0, server, 0xffff), "Windows unknown major version");
}

void addReleases()
{
    QTest::addColumn<ReleaseFacts>("facts");
    QTest::addColumn<QString>("expected");
    rowsOf95And98();
    rowsOfNt();
    rowsOfUnknownMajor4();
    rowsOf2000AndXp();
    rowsOfReleasesOf52();
    rowsOfEditionsOf52();
    rowsOfUnknownMajor5();
    rowsOf60And61();
    rowsOf62();
    rowsOfUnknownMajor6();
    rowsOfUnknownMajors();
}

// What readRegistryVersion() finds in its variables when nothing is stored there.
constexpr quint32 untouched = 7777;

QByteArray versionKey()
{
    return machineKey("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion");
}

struct Expected
{
    bool known;
    quint32 major;
    quint32 minor;
    quint32 build;
};

void addRegistry(const char *name, const QByteArray &values, const Expected &expected)
{
    QTest::newRow(name) << versionKey() + values << expected.known << expected.major << expected.minor << expected.build
                        << untouched << false;
}

void addRevision(const char *name, const QByteArray &values, bool known, quint32 revision, bool hasRevision)
{
    const quint32 number = known ? 6 : untouched;
    const QByteArray version = known ? textValue("CurrentVersion", "6.6") + textValue("CurrentBuildNumber", "6") : "";
    QTest::newRow(name) << versionKey() + version + values << known << number << number << number << revision << hasRevision;
}

QByteArray numbers(quint32 major, quint32 minor)
{
    return numberValue("CurrentMajorVersionNumber", major) + numberValue("CurrentMinorVersionNumber", minor);
}

const QByteArray build19045 = textValue("CurrentBuildNumber", "19045");
const QByteArray version63 = textValue("CurrentVersion", "6.3");

void rowsOfVersionNumbers()
{
    addRegistry("two numbers and a build", numbers(10, 0) + build19045, {true, 10, 0, 19045});
    addRegistry("two numbers win over the text", numbers(10, 0) + version63 + build19045, {true, 10, 0, 19045});
    addRegistry("numbers are unsigned", numbers(largest, largest) + textValue("CurrentBuildNumber", "4294967295"),
                {true, largest, largest, largest});
    addRegistry("the major number alone, with the text",
                numberValue("CurrentMajorVersionNumber", 10) + version63 + build19045,
                {true, 6, 3, 19045});
    addRegistry("the major number alone, without the text: it stays stored",
                numberValue("CurrentMajorVersionNumber", 10) + build19045, {false, 10, untouched, untouched});
    addRegistry("the major number alone, the text is of no use",
                numberValue("CurrentMajorVersionNumber", 10) + textValue("CurrentVersion", "6") + build19045,
                {false, 10, untouched, untouched});
    addRegistry("the minor number alone, with the text",
                numberValue("CurrentMinorVersionNumber", 7) + version63 + build19045,
                {true, 6, 3, 19045});
    addRegistry("the minor number alone, without the text", numberValue("CurrentMinorVersionNumber", 7) + build19045,
                {false, untouched, untouched, untouched});
    addRegistry("a major number of eight bytes cannot be read",
                binaryValue("CurrentMajorVersionNumber", QByteArray(8, '\0')) + numberValue("CurrentMinorVersionNumber", 7)
                    + version63 + build19045,
                {true, 6, 3, 19045});
    addRegistry("a minor number of eight bytes cannot be read",
                numberValue("CurrentMajorVersionNumber", 10) + binaryValue("CurrentMinorVersionNumber", QByteArray(8, '\0'))
                    + build19045,
                {false, 10, untouched, untouched});
    addRegistry("numbers of one and of zero bytes",
                binaryValue("CurrentMajorVersionNumber", "\x0a") + binaryValue("CurrentMinorVersionNumber", "") + build19045,
                {true, 10, 0, 19045});
    addRegistry("a number stored as text: its bytes",
                textValue("CurrentMajorVersionNumber", "1") + numberValue("CurrentMinorVersionNumber", 0) + build19045,
                {true, 49, 0, 19045});
}

void rowsOfVersionTexts()
{
    const auto row = [](const char *name, const char *text, const Expected &expected) {
        addRegistry(name, textValue("CurrentVersion", text) + build19045, expected);
    };
    const Expected nothing = {false, untouched, untouched, untouched};
    row("two parts", "6.1", {true, 6, 1, 19045});
    row("two parts of several digits", "12.345", {true, 12, 345, 19045});
    row("one part", "6", nothing);
    row("no part", "", nothing);
    row("three parts", "6.1.7601", nothing);
    row("an empty third part", "6.1.", nothing);
    row("a comma", "6,1", nothing);
    row("an empty first part: 0 is stored", ".3", {false, 0, untouched, untouched});
    row("two empty parts: 0 is stored", ".", {false, 0, untouched, untouched});
    row("a first part that is no number: 0 is stored", "x.3", {false, 0, untouched, untouched});
    row("a first part with a letter: 0 is stored", "6b.3", {false, 0, untouched, untouched});
    row("a negative first part: 0 is stored", "-6.3", {false, 0, untouched, untouched});
    row("a first part beyond 32 bits: 0 is stored", "4294967296.3", {false, 0, untouched, untouched});
    row("the largest first part", "4294967295.0", {true, largest, 0, 19045});
    row("an empty second part is 0 and no failure", "6.", {true, 6, 0, 19045});
    row("a second part that is no number is 0 and no failure", "6.x", {true, 6, 0, 19045});
    row("blanks around the numbers", " 6 . 3 ", {true, 6, 3, 19045});
    addRegistry("no text", build19045, nothing);
    addRegistry("a text that is too long", textValue("CurrentVersion", "6.3" + QString(2045, ' ')) + build19045, nothing);
    addRegistry("a text of 2048 bytes without terminator",
                binaryValue("CurrentVersion", "6.3" + QByteArray(2045, ' ')) + build19045, {true, 6, 3, 19045});
    addRegistry("the text starts from an empty buffer", binaryValue("CurrentVersion", "6.3") + build19045,
                {true, 6, 3, 19045});
}

void rowsOfBuilds()
{
    const auto row = [](const char *name, const QByteArray &value, bool known, quint32 build) {
        addRegistry(name, numbers(10, 0) + value, {known, 10, 0, build});
    };
    row("no build: the version stays stored", "", false, untouched);
    row("an empty build is 0 and a failure", textValue("CurrentBuildNumber", ""), false, 0);
    row("a build that is no number is 0 and a failure", textValue("CurrentBuildNumber", "19045x"), false, 0);
    row("a hexadecimal build is 0 and a failure", textValue("CurrentBuildNumber", "0x4a65"), false, 0);
    row("a negative build is 0 and a failure", textValue("CurrentBuildNumber", "-1"), false, 0);
    row("a build beyond 32 bits is 0 and a failure", textValue("CurrentBuildNumber", "4294967296"), false, 0);
    row("build 0", textValue("CurrentBuildNumber", "0"), true, 0);
    row("zeros before the build", textValue("CurrentBuildNumber", "0019045"), true, 19045);
    row("a build stored as a number: its bytes", numberValue("CurrentBuildNumber", 0x00003031), true, 10);
    row("the build starts from an empty buffer", binaryValue("CurrentBuildNumber", "19"), true, 19);
    row("a build of 2048 bytes without terminator", binaryValue("CurrentBuildNumber", QByteArray(2043, ' ') + "19045"),
        true, 19045);
    row("a build of 2049 bytes cannot be read", binaryValue("CurrentBuildNumber", QByteArray(2044, ' ') + "19045"),
        false, untouched);
    row("another value that names the build is not read", textValue("CurrentBuild", "19045"), false, untouched);
}

void rowsOfRevisions()
{
    addRevision("no revision", "", true, untouched, false);
    addRevision("a revision", numberValue("UBR", 3803), true, 3803, true);
    addRevision("revision 0", numberValue("UBR", 0), true, 0, true);
    addRevision("the revision is unsigned", numberValue("UBR", largest), true, largest, true);
    addRevision("a revision without a version", numberValue("UBR", 3803), false, 3803, true);
    addRevision("a revision of eight bytes", binaryValue("UBR", QByteArray(8, '\1')), true, untouched, false);
    addRevision("a revision of two bytes", binaryValue("UBR", "\xdb\x0e"), true, 3803, true);
    addRevision("a revision stored as a text: its bytes", textValue("UBR", "1"), true, 49, true);
}

} // namespace

void WindowsVersionTest::release_data()
{
    addReleases();
}

void WindowsVersionTest::release()
{
    QFETCH(ReleaseFacts, facts);
    QFETCH(QString, expected);
    COMPARE_TEXT(releaseName(facts), expected);
}

void WindowsVersionTest::edition_data()
{
    QTest::addColumn<quint32>("code");
    QTest::addColumn<QString>("expected");
    const auto row = [](quint32 code, const char *expected) {
        QTest::addRow("edition %u", code) << code << QString(expected);
    };
    row(1, "Ultimate Edition");
    row(2, "Home Basic Edition");
    row(5, "Home Basic Edition");
    row(3, "Home Premium Edition");
    row(4, "Enterprise Edition");
    row(10, "Enterprise Edition");
    row(6, "Business Edition");
    row(16, "Business Edition");
    row(7, "Standard Edition");
    row(8, "Datacenter Edition");
    row(9, "Small Business Server");
    row(11, "Starter Edition");
    row(12, "Datacenter Edition (core installation)");
    row(13, "Standard Edition (core installation)");
    row(14, "Enterprise Edition (core installation)");
    row(15, "Enterprise Edition for Itanium-based Systems");
    row(17, "Web Server Edition)");
    row(18, "Cluster Server Edition");
    row(25, "Small Business Server Premium Edition");
    row(42, "Hyper-V Server");
    row(48, "Professional Edition");
    row(49, "Professional Edition");
    row(98, "Home/Core Edition");
    row(101, "Home/Core Edition");
    row(121, "Education Edition");
    row(122, "Education Edition");
    row(0, "0x0");
    row(19, "0x13");
    row(24, "0x18");
    row(26, "0x1a");
    row(41, "0x29");
    row(43, "0x2b");
    row(47, "0x2f");
    row(50, "0x32");
    row(97, "0x61");
    row(99, "0x63");
    row(100, "0x64");
    row(102, "0x66");
    row(120, "0x78");
    row(123, "0x7b");
    row(0xabcdef, "0xabcdef");
    row(largest, "0xffffffff");
}

void WindowsVersionTest::edition()
{
    QFETCH(quint32, code);
    QFETCH(QString, expected);
    QCOMPARE(productTypeName(code), expected);
}

void WindowsVersionTest::registryVersion_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<bool>("known");
    QTest::addColumn<quint32>("major");
    QTest::addColumn<quint32>("minor");
    QTest::addColumn<quint32>("build");
    QTest::addColumn<quint32>("revision");
    QTest::addColumn<bool>("hasRevision");
    QTest::newRow("no key: every variable as it was")
        << QByteArray() << false << untouched << untouched << untouched << untouched << false;
    addRegistry("an empty key", "", {false, untouched, untouched, untouched});
    rowsOfVersionNumbers();
    rowsOfVersionTexts();
    rowsOfBuilds();
    rowsOfRevisions();
}

void WindowsVersionTest::registryVersion()
{
    QFETCH(QByteArray, registry);
    const DescribedWindows windows(registry);
    quint32 major = untouched;
    quint32 minor = untouched;
    quint32 build = untouched;
    quint32 revision = untouched;
    bool hasRevision = true;
    QTEST(readRegistryVersion(major, minor, build, revision, hasRevision), "known");
    QTEST(major, "major");
    QTEST(minor, "minor");
    QTEST(build, "build");
    QTEST(revision, "revision");
    QTEST(hasRevision, "hasRevision");
}

#ifdef SIMULATED_WINDOWS

namespace {

/// A machine on which Windows tells just these facts.
machine::Machine machineOf(const ReleaseFacts &facts)
{
    machine::VersionRecord version;
    version.dwMajorVersion = facts.major;
    version.dwMinorVersion = facts.minor;
    version.szCSDVersion = facts.servicePack;
    version.wSuiteMask = facts.suiteMask;
    version.wProductType = facts.productType;

    machine::Machine machine = DescribedWindows::parse(
        versionKey() + numbers(facts.registry.major, facts.registry.minor)
            + textValue("CurrentBuildNumber", QString::number(facts.registry.build)),
        "{}");
    machine.system.GetVersionEx.value = version;
    machine.system.GetSystemInfo.wProcessorArchitecture = facts.architecture;
    machine.system.GetSystemMetrics.insert(SM_SERVERR2, facts.isServerR2);
    if (facts.editionCode)
        machine.system.GetProductInfo.emplace().value = {*facts.editionCode};
    return machine;
}

/// GetVersionEx() as Windows 8 and later answer a program without a manifest.
QByteArray system62(const QByteArray &otherMembers = R"("GetProductInfo": {"dwReturnedProductType": 48})")
{
    return R"({"GetVersionEx": {"dwMajorVersion": 6, "dwMinorVersion": 2, "dwBuildNumber": 9200, "wProductType": 1})"
        + QByteArray(otherMembers.isEmpty() ? "" : ", ") + otherMembers + "}";
}

QByteArray windows10Key()
{
    return versionKey() + numbers(10, 0) + build19045 + version63 + numberValue("UBR", 3803);
}

const QString start = "Windows version: \n";
const QString head = start + "Version (major.minor.build): \nFrom GetVersionEx: 6.2.9200\n";
const QString tail = "Last service pack installed: \n";

QString nameLine(const char *name)
{
    return QString("                   ") + name + "\n";
}

} // namespace

// The same rows through the calls that tell the facts.
void WindowsVersionTest::releaseOfMachine_data()
{
    addReleases();
}

void WindowsVersionTest::releaseOfMachine()
{
    QFETCH(ReleaseFacts, facts);
    QFETCH(QString, expected);
    const DescribedWindows windows(machineOf(facts));
    COMPARE_TEXT(windowsVersion(false), expected);
    COMPARE_TEXT(velkor::SystemInfo::platformName(), expected);
    QVERIFY(windowsVersion(true).contains("\n                   " + expected + "\nLast service pack installed: "));
    QCOMPARE(simulated::openHandles(), QStringList());
}

namespace {

void addText(const char *name, const QByteArray &registry, const QByteArray &system, const QString &detailed,
             const QString &shortForm)
{
    QTest::newRow(name) << registry << system << detailed << shortForm;
}

void rowsOfRegistryLines()
{
    const char windows10[] = "Windows 10 Professional Edition, 64-bit";
    addText("Windows 10: six lines", windows10Key(), system62(),
            head + "From registry:     10.0.19045.3803\n" + nameLine(windows10) + tail, windows10);
    addText("Windows 10 without an update revision", versionKey() + numbers(10, 0) + build19045, system62(),
            head + "From registry:     10.0.19045\n" + nameLine(windows10) + tail, windows10);
    addText("Windows 11", versionKey() + numbers(10, 0) + textValue("CurrentBuildNumber", "22000") + numberValue("UBR", 1),
            system62(),
            head + "From registry:     10.0.22000.1\n" + nameLine("Windows 11 Professional Edition, 64-bit") + tail,
            "Windows 11 Professional Edition, 64-bit");
    addText("Windows 8.1, told by the registry's text",
            versionKey() + version63 + textValue("CurrentBuildNumber", "9600"), system62(),
            head + "From registry:     6.3.9600\n" + nameLine("Windows 8.1 Professional Edition, 64-bit") + tail,
            "Windows 8.1 Professional Edition, 64-bit");
    addText("without the key: no line, no release", "", system62(),
            head + nameLine("Windows Professional Edition, 64-bit") + tail, "Windows Professional Edition, 64-bit");
    addText("the build is missing: no line, the version names the release all the same",
            versionKey() + numbers(10, 0) + numberValue("UBR", 3803), system62(), head + nameLine(windows10) + tail,
            windows10);
    addText("the build is no number: no line, 0 names the release",
            versionKey() + numbers(10, 0) + textValue("CurrentBuildNumber", "22000x"), system62(),
            head + nameLine(windows10) + tail, windows10);
    addText("the major number alone: no line, it names the release with a minor number of 0",
            versionKey() + numberValue("CurrentMajorVersionNumber", 10), system62(), head + nameLine(windows10) + tail,
            windows10);
    addText("registry numbers are unsigned",
            versionKey() + numbers(largest, largest) + textValue("CurrentBuildNumber", "4294967295")
                + numberValue("UBR", largest),
            system62(),
            head + "From registry:     4294967295.4294967295.4294967295.4294967295\n"
                + nameLine("Windows Professional Edition, 64-bit") + tail,
            "Windows Professional Edition, 64-bit");
}

void rowsOfVersionCalls()
{
    addText("an empty machine: the failure text", "", "{}", start + "GetVersionExA(&osver) failed!\n", "Windows");
    addText("the version fails with an error", windows10Key(), R"({"GetVersionEx": {"error": 5}})",
            start + "GetVersionExA(&osver) failed!\n", "Windows");
    addText("a manifest for Windows 10", windows10Key(),
            R"({"GetVersionEx": {"dwMajorVersion": 10, "dwMinorVersion": 0, "dwBuildNumber": 19045, "wProductType": 1}})",
            start + "Version (major.minor.build): \nFrom GetVersionEx: 10.0.19045\nFrom registry:     10.0.19045.3803\n"
                + nameLine("Windows unknown major version") + tail,
            "Windows unknown major version");
    addText("numbers of the call are unsigned", "",
            R"({"GetVersionEx": {"dwMajorVersion": 4294967295, "dwMinorVersion": 4294967294, "dwBuildNumber": 4294967293}})",
            start + "Version (major.minor.build): \nFrom GetVersionEx: 4294967295.4294967294.4294967293\n"
                + nameLine("Windows unknown major version") + tail,
            "Windows unknown major version");
}

void rowsOfServicePacks()
{
    const auto row = [](const char *name, const QByteArray &servicePack, const QString &shown) {
        const QByteArray system = R"({"GetVersionEx": {"dwMajorVersion": 6, "dwMinorVersion": 1, "dwBuildNumber": 7601,)"
                                  R"("wProductType": 1, "szCSDVersion": ")"
            + servicePack + "\"}}";
        addText(name, "", system,
                start + "Version (major.minor.build): \nFrom GetVersionEx: 6.1.7601\n" + nameLine("Windows 7 , 64-bit")
                    + "Last service pack installed: " + shown + "\n",
                "Windows 7 , 64-bit");
    };
    row("a service pack", "Service Pack 1", "Service Pack 1");
    row("placeholders in the service pack stay", "%1 %2 %99 %L1", "%1 %2 %99 %L1");
    row("the service pack ends at its first null", R"(Service\u0000 Pack)", "Service");
    row("a service pack beyond ASCII shows U+FFFD", R"(Pack \u00e9!)", QString("Pack ") + QChar(0xfffd) + "!");
    row("the longest service pack", QByteArray(127, 'x'), QString(127, 'x'));
}

// The service pack is read as UTF-8; its characters, not its bytes, name the release.
void rowsOf95And98InOtherAlphabets()
{
    const auto row = [](const char *name, int codePage, int minor, const QByteArray &servicePack, const char *release,
                        const QString &shown) {
        const QByteArray system = R"({"ansiCodePage": )" + QByteArray::number(codePage)
            + R"(, "GetVersionEx": {"dwMajorVersion": 4, "dwBuildNumber": 1111, "dwMinorVersion": )"
            + QByteArray::number(minor) + R"(, "szCSDVersion": ")" + servicePack + "\"}}";
        addText(name, "", system,
                start + "Version (major.minor.build): \nFrom GetVersionEx: 4." + QString::number(minor) + ".1111\n"
                    + nameLine(release) + "Last service pack installed: " + shown + "\n",
                release);
    };
    const QString unknown(QChar(0xfffd));
    const QString umlaut(QChar(0xe4));
    row("4.0, B behind a byte that is no UTF-8", 1252, 0, R"(\u00e4B)", "Windows 95 OSR2 ", unknown + "B");
    row("4.0, B behind two bytes that are one letter", 1252, 0, R"(\u00c3\u00a4B)", "Windows 95 OSR2 ", umlaut + "B");
    row("4.0, C behind a letter of UTF-8", 65001, 0, R"(\u00e4C)", "Windows 95 OSR2 ", umlaut + "C");
    row("4.0, C behind a letter of three bytes", 65001, 0, R"(\u4e00C)", "Windows 95 OSR2 ", QString(QChar(0x4e00)) + "C");
    row("4.0, B as the third byte but one letter later", 65001, 0, R"(\u00e4xB)", "Windows 95 ", umlaut + "xB");
    row("4.0, a second letter whose number ends in that of B", 65001, 0, R"( \u0142)", "Windows 95 ",
        QString(" ") + QChar(0x0142));
    row("4.0, a second letter whose number ends in that of C", 65001, 0, R"( \u4e43)", "Windows 95 ",
        QString(" ") + QChar(0x4e43));
    row("4.10, A before a byte that is no UTF-8", 1252, 10, R"(A\u00e4)", "Windows 98 SE ", "A" + unknown);
    row("4.10, A behind a byte that is no UTF-8", 1252, 10, R"(\u00e4A)", "Windows 98 ", unknown + "A");
    row("4.10, A behind a letter of UTF-8", 65001, 10, R"(\u00e4A)", "Windows 98 ", umlaut + "A");
    row("4.10, an A with a mark", 65001, 10, R"(\u00c4)", "Windows 98 ", QString(QChar(0xc4)));
    row("4.10, a letter whose number ends in that of A", 65001, 10, R"(\u0141)", "Windows 98 ", QString(QChar(0x0141)));
    row("4.10, a byte-order mark of UTF-8 is not part of the text", 65001, 10, R"(\ufeffA)", "Windows 98 SE ", "A");
}

} // namespace

void WindowsVersionTest::text_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("detailed");
    QTest::addColumn<QString>("shortForm");
    rowsOfRegistryLines();
    rowsOfVersionCalls();
    rowsOfServicePacks();
    rowsOf95And98InOtherAlphabets();
}

void WindowsVersionTest::text()
{
    QFETCH(QByteArray, registry);
    QFETCH(QByteArray, system);
    QFETCH(QString, detailed);
    QFETCH(QString, shortForm);
    const DescribedWindows windows(registry, system);
    COMPARE_TEXT(windowsVersion(true), detailed);
    COMPARE_TEXT(windowsVersion(false), shortForm);
    COMPARE_TEXT(velkor::SystemInfo::platformName(), shortForm);
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void WindowsVersionTest::editionFunction_data()
{
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("expected");
    QTest::newRow("not exported: no edition") << system62("") << QString("Windows 10 , 64-bit");
    QTest::newRow("exported, fails: edition 0")
        << system62(R"("GetProductInfo": {"error": 87})") << QString("Windows 10 0x0, 64-bit");
    QTest::newRow("exported, 48") << system62() << QString("Windows 10 Professional Edition, 64-bit");
    QTest::newRow("exported, largest code") << system62(R"("GetProductInfo": {"dwReturnedProductType": 4294967295})")
                                            << QString("Windows 10 0xffffffff, 64-bit");
}

void WindowsVersionTest::editionFunction()
{
    QFETCH(QByteArray, system);
    QFETCH(QString, expected);
    const DescribedWindows windows(windows10Key(), system);
    COMPARE_TEXT(windowsVersion(false), expected);
}

namespace {

const QStringList versionCalls = {"GetSystemInfo", "GetVersionExA 156", "GetVersionExW 284"};
const QString openLine = "RegOpenKeyExA HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion 0x20119";
/// \a arguments are the version of Windows and of the service pack that the edition is asked for.
QStringList editionCalls(const char *arguments)
{
    return {"GetModuleHandleW kernel32.dll", "GetProcAddress GetProductInfo", QString("GetProductInfo ") + arguments};
}

QByteArray systemOf(const ReleaseFacts &facts)
{
    return "{\"GetVersionEx\": {\"dwMajorVersion\": " + QByteArray::number(facts.major)
        + ", \"dwMinorVersion\": " + QByteArray::number(facts.minor)
        + "}, \"GetProductInfo\": {\"dwReturnedProductType\": 1}}";
}

QStringList queries(const QStringList &valuesWithSizes)
{
    QStringList lines(openLine);
    for (const QString &value : valuesWithSizes)
        lines += "RegQueryValueExA " + value;
    return lines + QStringList("RegCloseKey");
}

void rowsOfRegistryCalls()
{
    const auto row = [](const char *name, const QByteArray &values, const QStringList &valuesWithSizes) {
        QTest::newRow(name) << versionKey() + values << system62()
                            << versionCalls + queries(valuesWithSizes) + editionCalls("6.2.0.0");
    };
    row("numbers", numbers(10, 0) + build19045 + version63,
        {"CurrentMajorVersionNumber 4", "CurrentMinorVersionNumber 4", "CurrentBuildNumber 2048", "UBR 4"});
    row("the major number alone", numberValue("CurrentMajorVersionNumber", 10) + version63,
        {"CurrentMajorVersionNumber 4", "CurrentMinorVersionNumber 4", "CurrentVersion 2048", "CurrentBuildNumber 2048",
         "UBR 4"});
    row("text, of Windows 8.1: the edition is asked for as 6.2 all the same", version63, {"CurrentMajorVersionNumber 4", "CurrentVersion 2048", "CurrentBuildNumber 2048", "UBR 4"});
    row("a text of no use: the revision next", textValue("CurrentVersion", "6"),
        {"CurrentMajorVersionNumber 4", "CurrentVersion 2048", "UBR 4"});
    row("neither: the revision next", "", {"CurrentMajorVersionNumber 4", "CurrentVersion 2048", "UBR 4"});
}

} // namespace

void WindowsVersionTest::calls_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QStringList>("expected");
    rowsOfRegistryCalls();
    const auto row = [](const char *name, const ReleaseFacts &facts, const QStringList &more) {
        QTest::newRow(name) << QByteArray() << systemOf(facts) << versionCalls + QStringList(openLine) + more;
    };
    QTest::newRow("without a version") << windows10Key() << QByteArray("{}") << QStringList(versionCalls.mid(0, 2));
    QTest::newRow("6.2 without the edition function")
        << QByteArray() << system62("")
        << versionCalls + QStringList(openLine) + editionCalls("").mid(0, 2);
    row("6.0 asks for the edition", facts(6, 0), editionCalls("6.0.0.0"));
    row("6.1 asks for the edition", facts(6, 1), editionCalls("6.1.0.0"));
    row("6.3 does not", facts(6, 3), {});
    row("5.2 asks for R2, not for the edition", facts(5, 2), {"GetSystemMetrics 89"});
    row("5.0 asks for neither", facts(5, 0), {});
    row("5.1 asks for neither", facts(5, 1), {});
    row("4.4 asks for neither", facts(4, 4), {});
    row("10.0 asks for neither", facts(10, 0), {});
}

void WindowsVersionTest::calls()
{
    QFETCH(QByteArray, registry);
    QFETCH(QByteArray, system);
    QFETCH(QStringList, expected);
    for (const bool detailed : {true, false}) {
        const DescribedWindows windows(registry, system);
        windowsVersion(detailed);
        QCOMPARE(journalLines(), expected);
    }
}

void WindowsVersionTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("detailed");
    const auto row = [](const char *name, const char *call, int number, const QString &text) {
        QTest::newRow(name) << QByteArray(call) << number << text;
    };
    const QString registryLine = "From registry:     10.0.19045.3803\n";
    const QString windows10 = nameLine("Windows 10 Professional Edition, 64-bit");
    const QString windows81 = nameLine("Windows 8.1 Professional Edition, 64-bit");
    row("the version", "GetVersionExA", 0, start + "GetVersionExA(&osver) failed!\n");
    row("the product type: none is a server's", "GetVersionExW", 0,
        head + registryLine + nameLine("Windows Server 2016 Professional Edition, 64-bit") + tail);
    row("the key does not open", "RegOpenKeyExA", 0, head + nameLine("Windows Professional Edition, 64-bit") + tail);
    row("the major number: the text tells", "RegQueryValueExA", 0,
        head + "From registry:     6.3.19045.3803\n" + windows81 + tail);
    row("the minor number: the text tells", "RegQueryValueExA", 1,
        head + "From registry:     6.3.19045.3803\n" + windows81 + tail);
    row("the build: no line", "RegQueryValueExA", 2, head + windows10 + tail);
    row("the update revision", "RegQueryValueExA", 3, head + "From registry:     10.0.19045\n" + windows10 + tail);
    row("the key does not close: nothing shows", "RegCloseKey", 0, head + registryLine + windows10 + tail);
    const QString noEdition = head + registryLine + nameLine("Windows 10 , 64-bit") + tail;
    row("the kernel's module", "GetModuleHandleW", 0, noEdition);
    row("the edition function", "GetProcAddress", 0, noEdition);
    row("the edition", "GetProductInfo", 0, head + registryLine + nameLine("Windows 10 0x0, 64-bit") + tail);
}

void WindowsVersionTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(QString, detailed);
    const DescribedWindows windows(windows10Key(), system62());
    const simulated::Fault fault = simulated::Fault::nthCall(call, std::size_t(number), ERROR_ACCESS_DENIED);
    COMPARE_TEXT(windowsVersion(true), detailed);
    QCOMPARE(fault.hits(), std::size_t(1));
    QCOMPARE(simulated::openHandles(), QStringList());
}

#endif

TEST_WITH_CORE_APPLICATION(WindowsVersionTest);
#include "tst_windows_version.moc"
