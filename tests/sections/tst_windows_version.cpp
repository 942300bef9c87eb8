// windowsVersion(), platformName(), releaseName(), productTypeName() and readRegistryVersion()

#include "section_rows.h"
#include "vkSystemInfo.h"
#include "win/registry_version.h"
#include "win/release_name.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

constexpr quint16 enterprise = VER_SUITE_ENTERPRISE;
constexpr quint16 dataCenter = VER_SUITE_DATACENTER;
constexpr quint16 personal = VER_SUITE_PERSONAL;
constexpr quint16 blade = VER_SUITE_BLADE;
constexpr quint16 storageServer = VER_SUITE_STORAGE_SERVER;
constexpr quint16 computeCluster = VER_SUITE_COMPUTE_SERVER;
constexpr quint16 homeServer = VER_SUITE_WH_SERVER;

constexpr quint16 allBut(quint16 bits)
{
    return quint16(0xffff ^ bits);
}

constexpr quint8 workstation = VER_NT_WORKSTATION;
constexpr quint8 domainController = VER_NT_DOMAIN_CONTROLLER;
constexpr quint8 server = VER_NT_SERVER;

constexpr quint16 x86 = PROCESSOR_ARCHITECTURE_INTEL;
constexpr quint16 itanium = PROCESSOR_ARCHITECTURE_IA64;
constexpr quint16 x64 = PROCESSOR_ARCHITECTURE_AMD64;

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

QByteArray versionKey()
{
    return machineKey("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion");
}

QByteArray numbers(quint32 major, quint32 minor)
{
    return numberValue("CurrentMajorVersionNumber", major) + numberValue("CurrentMinorVersionNumber", minor);
}

/// A machine with the version numbers of \a facts in its calls and its registry.
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

QString failedText()
{
    return "Windows version: \nGetVersionExA(&osver) failed!\n";
}

/// The text of windowsVersion(true). If \a registry is empty, the line "From registry" is missing.
QString detailedText(const QString &version, const QString &registry, const QString &release,
                     const QString &servicePack = QString())
{
    return "Windows version: \n"
           "Version (major.minor.build): \n"
           "From GetVersionEx: "
        + version + '\n' + (registry.isEmpty() ? QString() : "From registry:     " + registry + '\n')
        + "                   " + release + "\nLast service pack installed: " + servicePack + '\n';
}

/// Adds one row with the texts of windowsVersion(true), windowsVersion(false) and platformName().
void addText(const QString &name, const Described &machine, const QString &detailed, const QString &release)
{
    const auto allForms = [] {
        return windowsVersion(true) + windowsVersion(false) + '\n' + velkor::SystemInfo::platformName() + '\n';
    };
    SectionRows(allForms, "").text(name, machine, detailed + release + '\n' + release + '\n');
}

/// Adds a row for releaseName(). With the simulated Windows also adds a row for a machine with the same
/// facts.
void addRow(const QString &name, const ReleaseFacts &facts, const QString &release)
{
    addTestRow(name, [=] { COMPARE_TEXT(releaseName(facts), release); });
    if (!windowsIsSimulated)
        return;
    const auto number = [](quint32 major, quint32 minor, quint32 build) {
        return QString("%1.%2.%3").arg(major).arg(minor).arg(build);
    };
    addText("machine: " + name, machineOf(facts),
            detailedText(number(facts.major, facts.minor, 0),
                         number(facts.registry.major, facts.registry.minor, facts.registry.build), release, facts.servicePack),
            release);
}

void rowsOf95And98()
{
    const auto row = [](const char *name, quint32 minor, const QString &servicePack, const QString &expected) {
        ReleaseFacts with = facts(4, minor);
        with.servicePack = servicePack;
        addRow(name, with, expected);
    };
    row("4.0 without a service pack", 0, "", "Windows 95 ");
    row("4.0, second character of the service pack is B", 0, " B", "Windows 95 OSR2 ");
    row("4.0, second character of the service pack is C", 0, " C ", "Windows 95 OSR2 ");
    row("4.0, second character of the service pack is A", 0, " A", "Windows 95 ");
    row("4.0, second character of the service pack is D", 0, " D", "Windows 95 ");
    row("4.0, second character of the service pack is b", 0, " b", "Windows 95 ");
    row("4.0, first character of the service pack is B", 0, "B", "Windows 95 ");
    row("4.0, third character of the service pack is B", 0, "  B", "Windows 95 ");
    row("4.10 without a service pack", 10, "", "Windows 98 ");
    row("4.10, first character of the service pack is A", 10, "A", "Windows 98 SE ");
    row("4.10, first character of the service pack is A, more characters follow", 10, "A x", "Windows 98 SE ");
    row("4.10, second character of the service pack is A", 10, " A ", "Windows 98 ");
    row("4.10, first character of the service pack is B", 10, "B", "Windows 98 ");
    row("4.10, first character of the service pack is a", 10, "a", "Windows 98 ");
    row("4.90, the service pack is ignored", 90, "AB", "Windows Me ");
}

void rowsOfNt()
{
    addRow("Quirk: 4.4 is named Windows NT: workstation", facts(4, 4, workstation), "Windows NT Workstation ");
    addRow("Quirk: 4.4 is named Windows NT: workstation, enterprise", facts(4, 4, workstation, enterprise),
           "Windows NT Workstation ");
    addRow("Quirk: 4.4 is named Windows NT: domain controller, enterprise", facts(4, 4, domainController, enterprise),
           "Windows NT ");
    addRow("Quirk: 4.4 is named Windows NT: server", facts(4, 4, server), "Windows NT Server ");
    addRow("Quirk: 4.4 is named Windows NT: server, enterprise", facts(4, 4, server, enterprise),
           "Windows NT Server Enterprise ");
    addRow("Quirk: 4.4 is named Windows NT: server, every suite bit except enterprise",
           facts(4, 4, server, allBut(enterprise)), "Windows NT Server ");
    addRow("Quirk: 4.4 is named Windows NT: no product type", facts(4, 4, 0, enterprise), "Windows NT ");
}

void add64Bit(const char *name, const ReleaseFacts &facts, const QString &release)
{
    addRow(name, facts, "Windows " + release + ", 64-bit");
}

void rowsOf2000AndXp()
{
    add64Bit("5.0 workstation", facts(5, 0), "2000 Professional ");
    add64Bit("5.0 workstation, datacenter", facts(5, 0, workstation, dataCenter), "2000 Professional Data Center ");
    add64Bit("5.0 workstation, enterprise", facts(5, 0, workstation, enterprise), "2000 Professional Advanced ");
    add64Bit("5.0 workstation, datacenter and enterprise", facts(5, 0, workstation, dataCenter | enterprise),
             "2000 Professional Data Center Advanced ");
    add64Bit("5.0 workstation, every suite bit except datacenter and enterprise",
             facts(5, 0, workstation, allBut(dataCenter | enterprise)),
             "2000 Professional ");
    add64Bit("5.0 domain controller, every suite bit", facts(5, 0, domainController, 0xffff), "2000 ");
    add64Bit("5.0 server, every suite bit", facts(5, 0, server, 0xffff), "2000 ");
    add64Bit("5.1", facts(5, 1), "XP Professional");
    add64Bit("5.1 personal", facts(5, 1, workstation, personal), "XP Home Edition");
    add64Bit("5.1, every suite bit except personal", facts(5, 1, workstation, allBut(personal)), "XP Professional");
    add64Bit("5.1 server, personal", facts(5, 1, server, personal), "XP Home Edition");
}

ReleaseFacts serverR2(quint8 productType, quint16 suiteMask = 0)
{
    ReleaseFacts result = facts(5, 2, productType, suiteMask);
    result.isServerR2 = true;
    return result;
}

// releaseOf2003() tests R2, storage server, home server and workstation in this order.
void rowsOfReleasesOf52()
{
    add64Bit("5.2 R2", serverR2(server), "Server 2003 R2 Standard Edition");
    add64Bit("5.2 R2 takes precedence over storage server", serverR2(server, storageServer),
             "Server 2003 R2 Standard Edition");
    add64Bit("5.2 R2 takes precedence over home server", serverR2(server, homeServer), "Server 2003 R2 Standard Edition");
    add64Bit("5.2 R2 takes precedence over workstation", serverR2(workstation), "Server 2003 R2 ");
    add64Bit("5.2 storage server", facts(5, 2, server, storageServer), "Storage Server 2003 Standard Edition");
    add64Bit("5.2 storage server takes precedence over workstation", facts(5, 2, workstation, storageServer),
             "Storage Server 2003 ");
    add64Bit("5.2 storage server and another suite bit: not a storage server",
             facts(5, 2, server, storageServer | enterprise),
             "Windows Server 2003 Enterprise Edition");
    add64Bit("5.2 home server", facts(5, 2, server, homeServer), "Home Server Standard Edition");
    add64Bit("5.2 home server takes precedence over workstation", facts(5, 2, workstation, homeServer), "Home Server ");
    add64Bit("5.2 home server and another suite bit: not a home server", facts(5, 2, server, homeServer | 1),
             "Windows Server 2003 Standard Edition");
    add64Bit("5.2, bits of storage server and home server: neither", facts(5, 2, server, storageServer | homeServer),
             "Windows Server 2003 Standard Edition");
    add64Bit("5.2 workstation", facts(5, 2, workstation), "XP Professional x64 Edition ");
    add64Bit("5.2 workstation has no edition", facts(5, 2, workstation, enterprise | dataCenter),
             "XP Professional x64 Edition ");
    add64Bit("5.2 workstation, storage server and another suite bit: not a storage server",
             facts(5, 2, workstation, storageServer | 1),
             "XP Professional x64 Edition ");
    add64Bit("Quirk: 5.2 domain controller: the word Windows twice", facts(5, 2, domainController), "Windows Server 2003 Standard Edition");
    add64Bit("Quirk: 5.2 server: the word Windows twice", facts(5, 2, server), "Windows Server 2003 Standard Edition");
}

void rowsOfEditionsOf52()
{
    const auto row = [](const char *name, quint16 architecture, quint16 suiteMask, const QString &edition) {
        ReleaseFacts with = facts(5, 2, server, suiteMask);
        with.architecture = architecture;
        addRow(name, with, "Windows Windows Server 2003 " + edition + ", 64-bit");
    };
    row("5.2 Itanium, datacenter", itanium, dataCenter, "Datacenter Edition for Itanium-based Systems");
    row("5.2 Itanium, enterprise", itanium, enterprise, "Enterprise Edition for Itanium-based Systems");
    row("5.2 Itanium, datacenter takes precedence over enterprise", itanium, dataCenter | enterprise,
        "Datacenter Edition for Itanium-based Systems");
    row("5.2 Itanium, neither datacenter nor enterprise", itanium, 0, "");
    row("5.2 Itanium, every suite bit except datacenter and enterprise", itanium, allBut(dataCenter | enterprise), "");
    row("5.2 x64, datacenter", x64, dataCenter, "Datacenter x64 Edition");
    row("5.2 x64, enterprise", x64, enterprise, "Enterprise x64 Edition");
    row("5.2 x64, datacenter takes precedence over enterprise", x64, dataCenter | enterprise, "Datacenter x64 Edition");
    row("5.2 x64, neither datacenter nor enterprise", x64, 0, "Standard x64 Edition");
    row("5.2 x64, every suite bit except datacenter and enterprise", x64, allBut(dataCenter | enterprise),
        "Standard x64 Edition");
    row("5.2 x86, compute cluster", x86, computeCluster, "Compute Cluster Edition");
    row("5.2 x86, compute cluster takes precedence over every other suite bit", x86, 0xffff, "Compute Cluster Edition");
    row("5.2 x86, datacenter", x86, dataCenter, "Datacenter Edition");
    row("5.2 x86, datacenter takes precedence over enterprise and blade", x86, allBut(computeCluster), "Datacenter Edition");
    row("5.2 x86, enterprise", x86, enterprise, "Enterprise Edition");
    row("5.2 x86, enterprise takes precedence over blade", x86, enterprise | blade, "Enterprise Edition");
    row("5.2 x86, blade", x86, blade, "Web Edition");
    row("5.2 x86, no suite bit", x86, 0, "Standard Edition");
    row("5.2 x86, every suite bit except compute cluster, datacenter, enterprise and blade", x86,
        allBut(computeCluster | dataCenter | enterprise | blade), "Standard Edition");
    row("5.2 ARM64: same rules as x86", PROCESSOR_ARCHITECTURE_ARM64, blade, "Web Edition");
}

ReleaseFacts withEdition(ReleaseFacts facts, quint32 code)
{
    facts.editionCode = code;
    return facts;
}

void rowsOf60And61()
{
    add64Bit("6.0 workstation", withEdition(facts(6, 0, workstation), PRODUCT_ULTIMATE), "Vista Ultimate Edition");
    add64Bit("6.0 server", withEdition(facts(6, 0, server), PRODUCT_STANDARD_SERVER), "Server 2008 Standard Edition");
    add64Bit("Quirk: 6.0 domain controller: the edition without a release name",
             withEdition(facts(6, 0, domainController), PRODUCT_STANDARD_SERVER),
             "Standard Edition");
    add64Bit("Quirk: 6.0 domain controller without an edition: no release name", facts(6, 0, domainController), "");
    add64Bit("6.0 workstation without an edition", facts(6, 0, workstation), "Vista ");
    add64Bit("6.1 workstation", withEdition(facts(6, 1, workstation), PRODUCT_ULTIMATE), "7 Ultimate Edition");
    add64Bit("6.1 domain controller", withEdition(facts(6, 1, domainController), PRODUCT_ENTERPRISE_SERVER),
             "Server 2008 R2 Enterprise Edition");
    add64Bit("6.1 server", withEdition(facts(6, 1, server), PRODUCT_DATACENTER_SERVER), "Server 2008 R2 Datacenter Edition");
    add64Bit("6.1 without a product type", facts(6, 1, 0), "Server 2008 R2 ");
    add64Bit("6.1 workstation without an edition", facts(6, 1, workstation), "7 ");
    add64Bit("6.1, unknown edition 0: hexadecimal", withEdition(facts(6, 1, workstation), 0), "7 0x0");
    add64Bit("6.1, unknown edition 123: hexadecimal", withEdition(facts(6, 1, workstation), 123), "7 0x7b");
    add64Bit("Quirk: 6.1, PRODUCT_WEB_SERVER: a stray closing parenthesis",
             withEdition(facts(6, 1, server), PRODUCT_WEB_SERVER), "Server 2008 R2 Web Server Edition)");
    ReleaseFacts registryIsNewer = withEdition(facts(6, 1, workstation), PRODUCT_PROFESSIONAL);
    registryIsNewer.registry.major = 10;
    add64Bit("6.1, the registry is ignored", registryIsNewer, "7 Professional Edition");
}

void rowOf62(const char *name, quint8 productType, quint32 major, quint32 minor, quint32 build, const QString &release)
{
    ReleaseFacts with = withEdition(facts(6, 2, productType), PRODUCT_PROFESSIONAL);
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
    rowOf62("registry 6.3, build 22631: Windows 8.1", workstation, 6, 3, 22631, "8.1 ");
    rowOf62("registry 10.0, build 0", workstation, 10, 0, 0, "10 ");
    rowOf62("registry 10.0, build 10240", workstation, 10, 0, 10240, "10 ");
    rowOf62("registry 10.0, build 21999: Windows 10", workstation, 10, 0, 21999, "10 ");
    rowOf62("registry 10.0, build 22000: Windows 11", workstation, 10, 0, 22000, "11 ");
    rowOf62("registry 10.0, build 22631", workstation, 10, 0, 22631, "11 ");
    rowOf62("registry 10.0, the build is unsigned", workstation, 10, 0, largest, "11 ");
    rowOf62("registry 10.0, domain controller", domainController, 10, 0, 14393, "Server 2016 ");
    rowOf62("registry 10.0, server", server, 10, 0, 14393, "Server 2016 ");
    rowOf62("registry 10.0, server, build 21999", server, 10, 0, 21999, "Server 2016 ");
    rowOf62("registry 10.0, server, build 22000", server, 10, 0, 22000, "Server 2016 ");
    rowOf62("registry 10.0, without a product type", 0, 10, 0, 22000, "Server 2016 ");
    rowOf62("registry 0.0, client", workstation, 0, 0, 0, "");
    rowOf62("registry 0.0, server", server, 0, 0, 0, "");
    rowOf62("registry 6.1", workstation, 6, 1, 7601, "");
    rowOf62("registry 6.4", workstation, 6, 4, 9841, "");
    rowOf62("registry 10.1", workstation, 10, 1, 22000, "");
    rowOf62("registry 10.1, server", server, 10, 1, 22000, "");
    rowOf62("registry 11.0", workstation, 11, 0, 22000, "");
    rowOf62("registry 5.2", workstation, 5, 2, 3790, "");
    ReleaseFacts noEdition = facts(6, 2);
    noEdition.registry.major = 10;
    add64Bit("registry 10.0 without an edition", noEdition, "10 ");
}

void unknownRows()
{
    for (const quint32 minor : {1u, 3u, 5u, 9u, 11u, 89u, 91u, largest})
        addRow(QString("GetVersionEx() 4.%1: unknown minor version").arg(minor), facts(4, minor),
               "Windows unkown minor version for major=4");
    for (const quint32 minor : {3u, 4u, 10u, largest})
        addRow(QString("GetVersionEx() 5.%1: unknown minor version").arg(minor), facts(5, minor),
               "Windows unknown minor version for major=5, 64-bit");
    for (const quint32 minor : {3u, 4u, largest})
        addRow(QString("GetVersionEx() 6.%1: unknown minor version").arg(minor), facts(6, minor),
               "Windows unknown minor version for major=6");
    // Quirk: 10.0 is unknown too. The release of Windows 10 is named only if GetVersionEx() returns 6.2.
    for (const quint32 major : {0u, 3u, 7u, 10u, 11u, largest})
        addRow(QString("GetVersionEx() %1.0: unknown major version").arg(major), facts(major, 0),
               "Windows unknown major version");
    addRow("Quirk: GetVersionEx() 10.0 on a server: unknown major version", facts(10, 0, server, 0xffff),
           "Windows unknown major version");
}

void editionRows()
{
    const auto row = [](quint32 code, const char *expected) {
        addTestRow(QString("edition %1").arg(code), [=] { QCOMPARE(productTypeName(code), QString(expected)); });
    };
    row(PRODUCT_ULTIMATE, "Ultimate Edition");
    row(PRODUCT_HOME_BASIC, "Home Basic Edition");
    row(PRODUCT_HOME_BASIC_N, "Home Basic Edition");
    row(PRODUCT_HOME_PREMIUM, "Home Premium Edition");
    row(PRODUCT_ENTERPRISE, "Enterprise Edition");
    row(PRODUCT_ENTERPRISE_SERVER, "Enterprise Edition");
    row(PRODUCT_BUSINESS, "Business Edition");
    row(PRODUCT_BUSINESS_N, "Business Edition");
    row(PRODUCT_STANDARD_SERVER, "Standard Edition");
    row(PRODUCT_DATACENTER_SERVER, "Datacenter Edition");
    row(PRODUCT_SMALLBUSINESS_SERVER, "Small Business Server");
    row(PRODUCT_STARTER, "Starter Edition");
    row(PRODUCT_DATACENTER_SERVER_CORE, "Datacenter Edition (core installation)");
    row(PRODUCT_STANDARD_SERVER_CORE, "Standard Edition (core installation)");
    row(PRODUCT_ENTERPRISE_SERVER_CORE, "Enterprise Edition (core installation)");
    row(PRODUCT_ENTERPRISE_SERVER_IA64, "Enterprise Edition for Itanium-based Systems");
    row(PRODUCT_WEB_SERVER, "Web Server Edition)"); // Quirk: a stray closing parenthesis
    row(PRODUCT_CLUSTER_SERVER, "Cluster Server Edition");
    row(PRODUCT_SMALLBUSINESS_SERVER_PREMIUM, "Small Business Server Premium Edition");
    row(PRODUCT_HYPERV, "Hyper-V Server");
    row(PRODUCT_PROFESSIONAL, "Professional Edition");
    row(PRODUCT_PROFESSIONAL_N, "Professional Edition");
    row(PRODUCT_CORE_N, "Home/Core Edition");
    row(PRODUCT_CORE, "Home/Core Edition");
    row(PRODUCT_EDUCATION, "Education Edition");
    row(PRODUCT_EDUCATION_N, "Education Edition");
    // Unknown codes, most of them adjacent to a known code
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

// The initial value of the variables that are passed to readRegistryVersion().
constexpr quint32 untouched = 7777;

/// The numbers of readRegistryVersion() as "MAJOR.MINOR.BUILD.REVISION". A number that the function does
/// not set is "-". "failed " precedes the numbers if the function returns false. ", has a revision"
/// follows them if the function reports a revision.
QString registryVersion()
{
    quint32 major = untouched;
    quint32 minor = untouched;
    quint32 build = untouched;
    quint32 revision = untouched;
    bool hasRevision = true;
    const bool known = readRegistryVersion(major, minor, build, revision, hasRevision);
    QStringList parts;
    for (const quint32 part : {major, minor, build, revision})
        parts += part == untouched ? "-" : QString::number(part);
    return QString(known ? "" : "failed ") + parts.join('.') + (hasRevision ? ", has a revision" : "");
}

const SectionRows registryRows(registryVersion, "");
const QByteArray build19045 = textValue("CurrentBuildNumber", "19045");
const QByteArray version63 = textValue("CurrentVersion", "6.3");

void addRegistry(const QString &name, const QByteArray &values, const QString &expected)
{
    registryRows.text("registry: " + name, versionKey() + values, expected);
}

void registryNumberRows()
{
    registryRows.text("no key: every number is unchanged", "", "failed -.-.-.-");
    addRegistry("an empty key: every number is unchanged", "", "failed -.-.-.-");
    addRegistry("major, minor and build number", numbers(10, 0) + build19045, "10.0.19045.-");
    addRegistry("the number values take precedence over CurrentVersion", numbers(10, 0) + version63 + build19045,
                "10.0.19045.-");
    addRegistry("numbers are unsigned", numbers(largest, largest) + textValue("CurrentBuildNumber", "4294967295"),
                "4294967295.4294967295.4294967295.-");
    addRegistry("only the major number: CurrentVersion is used",
                numberValue("CurrentMajorVersionNumber", 10) + version63 + build19045,
                "6.3.19045.-");
    addRegistry("only the major number, no CurrentVersion: fails, the major number is stored",
                numberValue("CurrentMajorVersionNumber", 10) + build19045, "failed 10.-.-.-");
    addRegistry("only the major number, an invalid CurrentVersion: fails, the major number is stored",
                numberValue("CurrentMajorVersionNumber", 10) + textValue("CurrentVersion", "6") + build19045,
                "failed 10.-.-.-");
    addRegistry("only the minor number: CurrentVersion is used",
                numberValue("CurrentMinorVersionNumber", 7) + version63 + build19045,
                "6.3.19045.-");
    addRegistry("only the minor number, no CurrentVersion: fails, every number is unchanged",
                numberValue("CurrentMinorVersionNumber", 7) + build19045,
                "failed -.-.-.-");
    addRegistry("a major number of eight bytes cannot be read: CurrentVersion is used",
                binaryValue("CurrentMajorVersionNumber", QByteArray(8, '\0')) + numberValue("CurrentMinorVersionNumber", 7)
                    + version63 + build19045,
                "6.3.19045.-");
    addRegistry("a minor number of eight bytes cannot be read: fails, the major number is stored",
                numberValue("CurrentMajorVersionNumber", 10) + binaryValue("CurrentMinorVersionNumber", QByteArray(8, '\0'))
                    + build19045,
                "failed 10.-.-.-");
    addRegistry("a major number of one byte and a minor number of 0 bytes: the missing bytes are 0",
                binaryValue("CurrentMajorVersionNumber", "\x0a") + binaryValue("CurrentMinorVersionNumber", "") + build19045,
                "10.0.19045.-");
    addRegistry("a major number of type REG_SZ: its bytes are the number",
                textValue("CurrentMajorVersionNumber", "1") + numberValue("CurrentMinorVersionNumber", 0) + build19045,
                "49.0.19045.-");
}

void registryTextRows()
{
    const auto row = [](const char *name, const char *text, const QString &expected) {
        addRegistry(QString("CurrentVersion: ") + name, textValue("CurrentVersion", text) + build19045, expected);
    };
    const QString nothing = "failed -.-.-.-";
    row("two parts", "6.1", "6.1.19045.-");
    row("two parts of several digits", "12.345", "12.345.19045.-");
    row("one part: fails", "6", nothing);
    row("an empty text: fails", "", nothing);
    row("three parts: fails", "6.1.7601", nothing);
    row("an empty third part: fails", "6.1.", nothing);
    row("a comma: fails", "6,1", nothing);
    row("an empty first part: fails and stores 0", ".3", "failed 0.-.-.-");
    row("two empty parts: fails and stores 0", ".", "failed 0.-.-.-");
    row("a first part that is not a number: fails and stores 0", "x.3", "failed 0.-.-.-");
    row("a first part with a letter: fails and stores 0", "6b.3", "failed 0.-.-.-");
    row("a negative first part: fails and stores 0", "-6.3", "failed 0.-.-.-");
    row("a first part of more than 32 bits: fails and stores 0", "4294967296.3", "failed 0.-.-.-");
    row("the largest first part", "4294967295.0", "4294967295.0.19045.-");
    row("an empty second part: succeeds and stores 0", "6.", "6.0.19045.-");
    row("a second part that is not a number: succeeds and stores 0", "6.x", "6.0.19045.-");
    row("spaces around the numbers are ignored", " 6 . 3 ", "6.3.19045.-");
    addRegistry("no CurrentVersion: fails", build19045, nothing);
    addRegistry("CurrentVersion of 2049 bytes: fails",
                textValue("CurrentVersion", "6.3" + QString(2045, ' ')) + build19045, nothing);
    addRegistry("CurrentVersion of 2048 bytes without a terminator",
                binaryValue("CurrentVersion", "6.3" + QByteArray(2045, ' ')) + build19045, "6.3.19045.-");
    addRegistry("CurrentVersion without a terminator", binaryValue("CurrentVersion", "6.3") + build19045,
                "6.3.19045.-");
}

void registryBuildRows()
{
    const auto row = [](const char *name, const QByteArray &value, const QString &expected) {
        addRegistry(name, numbers(10, 0) + value, expected);
    };
    row("no build: fails, major and minor number are stored", "", "failed 10.0.-.-");
    row("an empty build: fails and stores 0", textValue("CurrentBuildNumber", ""), "failed 10.0.0.-");
    row("a build that is not a number: fails and stores 0", textValue("CurrentBuildNumber", "19045x"), "failed 10.0.0.-");
    row("a hexadecimal build: fails and stores 0", textValue("CurrentBuildNumber", "0x4a65"), "failed 10.0.0.-");
    row("a negative build: fails and stores 0", textValue("CurrentBuildNumber", "-1"), "failed 10.0.0.-");
    row("a build of more than 32 bits: fails and stores 0", textValue("CurrentBuildNumber", "4294967296"),
        "failed 10.0.0.-");
    row("build 0", textValue("CurrentBuildNumber", "0"), "10.0.0.-");
    row("leading zeros of the build are ignored", textValue("CurrentBuildNumber", "0019045"), "10.0.19045.-");
    row("CurrentBuildNumber of type REG_DWORD: its bytes are the text", numberValue("CurrentBuildNumber", 0x00003031),
        "10.0.10.-");
    row("CurrentBuildNumber without a terminator", binaryValue("CurrentBuildNumber", "19"), "10.0.19.-");
    row("CurrentBuildNumber of 2048 bytes without a terminator",
        binaryValue("CurrentBuildNumber", QByteArray(2043, ' ') + "19045"),
        "10.0.19045.-");
    row("CurrentBuildNumber of 2049 bytes: fails, major and minor number are stored",
        binaryValue("CurrentBuildNumber", QByteArray(2044, ' ') + "19045"),
        "failed 10.0.-.-");
    row("CurrentBuild is not read: fails, major and minor number are stored", textValue("CurrentBuild", "19045"),
        "failed 10.0.-.-");
}

void registryRevisionRows()
{
    const auto row = [](const char *name, const QByteArray &value, const QString &expected) {
        addRegistry(name, textValue("CurrentVersion", "6.6") + textValue("CurrentBuildNumber", "6") + value, expected);
    };
    row("no revision", "", "6.6.6.-");
    row("a revision", numberValue("UBR", 3803), "6.6.6.3803, has a revision");
    row("revision 0", numberValue("UBR", 0), "6.6.6.0, has a revision");
    row("the revision is unsigned", numberValue("UBR", largest), "6.6.6.4294967295, has a revision");
    addRegistry("a revision without a version: fails, the revision is stored", numberValue("UBR", 3803),
                "failed -.-.-.3803, has a revision");
    row("a revision of eight bytes: no revision", binaryValue("UBR", QByteArray(8, '\1')), "6.6.6.-");
    row("a revision of two bytes", binaryValue("UBR", "\xdb\x0e"), "6.6.6.3803, has a revision");
    row("a revision of type REG_SZ: its bytes are the number", textValue("UBR", "1"), "6.6.6.49, has a revision");
}

/// system.json with the version that GetVersionEx() of Windows 8 and later returns without a manifest.
QByteArray system62(const QByteArray &otherMembers = R"("GetProductInfo": {"dwReturnedProductType": 48})")
{
    return R"({"GetVersionEx": {"dwMajorVersion": 6, "dwMinorVersion": 2, "dwBuildNumber": 9200, "wProductType": 1})"
        + QByteArray(otherMembers.isEmpty() ? "" : ", ") + otherMembers + "}";
}

QByteArray windows10Key()
{
    return versionKey() + numbers(10, 0) + build19045 + version63 + numberValue("UBR", 3803);
}

// The expected text of windowsVersion(true) for system62().
QString text62(const QString &registry, const QString &release)
{
    return detailedText("6.2.9200", registry, release);
}

void registryLineRows()
{
    const auto row = [](const char *name, const QByteArray &registry, const QString &shown, const QString &release) {
        addText(name, {registry, system62()}, text62(shown, release), release);
    };
    const QString windows10 = "Windows 10 Professional Edition, 64-bit";
    const QString noRelease = "Windows Professional Edition, 64-bit";
    const QByteArray version10 = versionKey() + numbers(10, 0);
    row("Windows 10 with an update revision", windows10Key(), "10.0.19045.3803", windows10);
    row("Windows 10 without an update revision", version10 + build19045, "10.0.19045", windows10);
    row("Windows 11", version10 + textValue("CurrentBuildNumber", "22000") + numberValue("UBR", 1), "10.0.22000.1",
        "Windows 11 Professional Edition, 64-bit");
    row("Windows 8.1 from CurrentVersion", versionKey() + version63 + textValue("CurrentBuildNumber", "9600"),
        "6.3.9600", "Windows 8.1 Professional Edition, 64-bit");
    row("no key: no line \"From registry\", no release name", "", "", noRelease);
    row("no build: no line \"From registry\", release Windows 10", version10 + numberValue("UBR", 3803), "",
        windows10);
    row("the build is not a number: no line \"From registry\", release Windows 10",
        version10 + textValue("CurrentBuildNumber", "22000x"), "", windows10);
    row("only the major number: no line \"From registry\", release Windows 10",
        versionKey() + numberValue("CurrentMajorVersionNumber", 10), "", windows10);
    row("registry numbers are unsigned",
        versionKey() + numbers(largest, largest) + textValue("CurrentBuildNumber", "4294967295") + numberValue("UBR", largest),
        "4294967295.4294967295.4294967295.4294967295", noRelease);
}

void versionCallRows()
{
    const QString unknown = "Windows unknown major version";
    addText("GetVersionEx is not described: the failure text", "", failedText(), "Windows");
    addText("GetVersionEx() fails with an error: the failure text",
            {windows10Key(), R"({"GetVersionEx": {"error": 5}})"}, failedText(), "Windows");
    addText("a host whose manifest names Windows 10: unknown major version",
            {windows10Key(),
             R"({"GetVersionEx": {"dwMajorVersion": 10, "dwMinorVersion": 0, "dwBuildNumber": 19045, "wProductType": 1}})"},
            detailedText("10.0.19045", "10.0.19045.3803", unknown), unknown);
    addText("numbers of GetVersionEx() are unsigned",
            {"", R"({"GetVersionEx": {"dwMajorVersion": 4294967295, "dwMinorVersion": 4294967294,
                                      "dwBuildNumber": 4294967293}})"},
            detailedText("4294967295.4294967294.4294967293", "", unknown), unknown);
}

void servicePackRows()
{
    const auto row = [](const char *name, const QByteArray &servicePack, const QString &shown) {
        addText(name,
                {"", R"({"GetVersionEx": {"dwMajorVersion": 6, "dwMinorVersion": 1, "dwBuildNumber": 7601,
                                          "wProductType": 1, "szCSDVersion": ")"
                     + servicePack + "\"}}"},
                detailedText("6.1.7601", "", "Windows 7 , 64-bit", shown), "Windows 7 , 64-bit");
    };
    row("a service pack", "Service Pack 1", "Service Pack 1");
    row("placeholders in the service pack are not replaced", "%1 %2 %99 %L1", "%1 %2 %99 %L1");
    row("the service pack ends at its first null", R"(Service\u0000 Pack)", "Service");
    row("a byte of the service pack that is not UTF-8: U+FFFD", R"(Pack \u00e9!)", QString("Pack ") + QChar(0xfffd) + "!");
    row("the longest service pack", QByteArray(127, 'x'), QString(127, 'x'));
}

// The service pack is decoded as UTF-8. The release depends on its characters, not on its bytes.
void nonAsciiServicePackRows()
{
    const auto row = [](const char *name, int codePage, int minor, const QByteArray &servicePack, const char *release,
                        const QString &shown) {
        addText(name,
                {"", R"({"ansiCodePage": )" + QByteArray::number(codePage) + R"(, "GetVersionEx": {"dwMajorVersion": 4, "dwBuildNumber": 1111, "dwMinorVersion": )" + QByteArray::number(minor) + R"(, "szCSDVersion": ")" + servicePack + "\"}}"},
                detailedText("4." + QString::number(minor) + ".1111", "", release, shown), release);
    };
    const QString unknown(QChar(0xfffd));
    const QString umlaut(QChar(0xe4));
    row("4.0, service pack: invalid UTF-8 byte, then B", 1252, 0, R"(\u00e4B)", "Windows 95 OSR2 ", unknown + "B");
    row("4.0, service pack: two-byte character, then B", 1252, 0, R"(\u00c3\u00a4B)", "Windows 95 OSR2 ", umlaut + "B");
    row("4.0, service pack: two-byte character, then C", 65001, 0, R"(\u00e4C)", "Windows 95 OSR2 ", umlaut + "C");
    row("4.0, service pack: three-byte character, then C", 65001, 0, R"(\u4e00C)", "Windows 95 OSR2 ",
        QString(QChar(0x4e00)) + "C");
    row("4.0, service pack: B is the third character and the fourth byte", 65001, 0, R"(\u00e4xB)", "Windows 95 ",
        umlaut + "xB");
    row("4.0, service pack: second character U+0142, whose low byte is 0x42 ('B')", 65001, 0, R"( \u0142)", "Windows 95 ",
        QString(" ") + QChar(0x0142));
    row("4.0, service pack: second character U+4E43, whose low byte is 0x43 ('C')", 65001, 0, R"( \u4e43)", "Windows 95 ",
        QString(" ") + QChar(0x4e43));
    row("4.10, service pack: A, then an invalid UTF-8 byte", 1252, 10, R"(A\u00e4)", "Windows 98 SE ", "A" + unknown);
    row("4.10, service pack: invalid UTF-8 byte, then A", 1252, 10, R"(\u00e4A)", "Windows 98 ", unknown + "A");
    row("4.10, service pack: two-byte character, then A", 65001, 10, R"(\u00e4A)", "Windows 98 ", umlaut + "A");
    row("4.10, service pack: U+00C4 (A with diaeresis)", 65001, 10, R"(\u00c4)", "Windows 98 ", QString(QChar(0xc4)));
    row("4.10, service pack: first character U+0141, whose low byte is 0x41 ('A')", 65001, 10, R"(\u0141)",
        "Windows 98 ", QString(QChar(0x0141)));
    row("4.10, service pack: UTF-8 byte-order mark, which is removed, then A", 65001, 10, R"(\ufeffA)",
        "Windows 98 SE ", "A");
}

const SectionRows detailedRows([] { return windowsVersion(true); }, "");
const SectionRows shortRows([] { return windowsVersion(false); }, "");

void editionFunctionRows()
{
    const auto row = [](const char *name, const QByteArray &system, const QString &expected) {
        shortRows.text(name, {windows10Key(), system}, expected);
    };
    row("GetProductInfo() is not exported: no edition", system62(""), "Windows 10 , 64-bit");
    row("GetProductInfo() fails: 0x0", system62(R"("GetProductInfo": {"error": 87})"), "Windows 10 0x0, 64-bit");
    row("GetProductInfo() returns 48", system62(), "Windows 10 Professional Edition, 64-bit");
    row("GetProductInfo() returns 4294967295: hexadecimal",
        system62(R"("GetProductInfo": {"dwReturnedProductType": 4294967295})"),
        "Windows 10 0xffffffff, 64-bit");
}

const QString key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
const REGSAM access64 = KEY_READ | KEY_WOW64_64KEY;
const QString versionCalls = "GetSystemInfo\nGetVersionExA 156\n";
const QString functionCalls = "GetModuleHandleW kernel32.dll\nGetProcAddress \"GetProductInfo\"\n";

void addCalls(const QString &name, const Described &machine, const QString &journal)
{
    detailedRows.calls("calls, detailed: " + name, machine, versionCalls + journal);
    shortRows.calls("calls, short: " + name, machine, versionCalls + journal);
}

void registryCallRows()
{
    const auto row = [](const char *name, const QByteArray &values, const QStringList &queries) {
        addCalls(name, {versionKey() + values, system62()},
                 "GetVersionExW 284\n" + keyCalls(key, queries, access64) + functionCalls + "GetProductInfo \"6.2.0.0\"\n");
    };
    row("number values: CurrentVersion is not queried", numbers(10, 0) + build19045 + version63,
        {"CurrentMajorVersionNumber 4", "CurrentMinorVersionNumber 4", "CurrentBuildNumber 2048", "UBR 4"});
    row("only the major number: CurrentVersion is queried", numberValue("CurrentMajorVersionNumber", 10) + version63,
        {"CurrentMajorVersionNumber 4", "CurrentMinorVersionNumber 4", "CurrentVersion 2048", "CurrentBuildNumber 2048",
         "UBR 4"});
    row("CurrentVersion 6.3: GetProductInfo() gets 6.2, the version of GetVersionEx()", version63,
        {"CurrentMajorVersionNumber 4", "CurrentVersion 2048", "CurrentBuildNumber 2048", "UBR 4"});
    row("an invalid CurrentVersion: UBR is queried next", textValue("CurrentVersion", "6"),
        {"CurrentMajorVersionNumber 4", "CurrentVersion 2048", "UBR 4"});
    row("neither number values nor CurrentVersion: UBR is queried next", "",
        {"CurrentMajorVersionNumber 4", "CurrentVersion 2048", "UBR 4"});
}

/// Calls if the registry key does not exist or GetVersionEx() fails.
void releaseCallRows()
{
    const QString open = "GetVersionExW 284\n" + openCall(key, access64);
    const auto row = [&](const char *name, quint32 major, quint32 minor, const QString &more) {
        ReleaseFacts version = facts(major, minor);
        version.editionCode = PRODUCT_ULTIMATE;
        Described machine = machineOf(version);
        machine.machine.registry = Described("").machine.registry;
        addCalls(name, machine, open + more);
    };
    addCalls("GetVersionExA() fails: no further call", {windows10Key(), "{}"}, "");
    addCalls("6.2, GetProductInfo() is not exported", {"", system62("")}, open + functionCalls);
    row("6.0: GetProductInfo() is called", 6, 0, functionCalls + "GetProductInfo \"6.0.0.0\"\n");
    row("6.1: GetProductInfo() is called", 6, 1, functionCalls + "GetProductInfo \"6.1.0.0\"\n");
    row("6.3: GetProductInfo() is not called", 6, 3, "");
    row("5.2: GetSystemMetrics(SM_SERVERR2) is called, GetProductInfo() is not", 5, 2, "GetSystemMetrics \"89\"\n");
    row("5.0: neither GetSystemMetrics() nor GetProductInfo() is called", 5, 0, "");
    row("5.1: neither GetSystemMetrics() nor GetProductInfo() is called", 5, 1, "");
    row("4.4: neither GetSystemMetrics() nor GetProductInfo() is called", 4, 4, "");
    row("10.0: neither GetSystemMetrics() nor GetProductInfo() is called", 10, 0, "");
}

void failureRows()
{
    const auto row = [](const char *name, const char *call, int number, const QString &text) {
        detailedRows.failure(name, {windows10Key(), system62()}, call, number, text);
    };
    const QString version = "10.0.19045.3803";
    const QString windows10 = "Windows 10 Professional Edition, 64-bit";
    const QString from63 = text62("6.3.19045.3803", "Windows 8.1 Professional Edition, 64-bit");
    const QString noEdition = text62(version, "Windows 10 , 64-bit");
    row("GetVersionExA() fails: the failure text", "GetVersionExA", 0, failedText());
    row("GetVersionExW() fails: the server name is used", "GetVersionExW", 0,
        text62(version, "Windows Server 2016 Professional Edition, 64-bit"));
    row("the key cannot be opened: no line \"From registry\", no release name", "RegOpenKeyExA", 0,
        text62("", "Windows Professional Edition, 64-bit"));
    row("CurrentMajorVersionNumber cannot be read: CurrentVersion is used", "RegQueryValueExA", 0, from63);
    row("CurrentMinorVersionNumber cannot be read: CurrentVersion is used", "RegQueryValueExA", 1, from63);
    row("CurrentBuildNumber cannot be read: no line \"From registry\"", "RegQueryValueExA", 2, text62("", windows10));
    row("UBR cannot be read: no update revision", "RegQueryValueExA", 3, text62("10.0.19045", windows10));
    row("the key cannot be closed: the text is unchanged", "RegCloseKey", 0, text62(version, windows10));
    row("GetModuleHandleW() fails: no edition", "GetModuleHandleW", 0, noEdition);
    row("GetProcAddress() fails: no edition", "GetProcAddress", 0, noEdition);
    row("GetProductInfo() fails: 0x0 in the detailed text", "GetProductInfo", 0, text62(version, "Windows 10 0x0, 64-bit"));
}

void addRows()
{
    rowsOf95And98();
    rowsOfNt();
    rowsOf2000AndXp();
    rowsOfReleasesOf52();
    rowsOfEditionsOf52();
    rowsOf60And61();
    rowsOf62();
    unknownRows();
    editionRows();
    registryNumberRows();
    registryTextRows();
    registryBuildRows();
    registryRevisionRows();
    if (!windowsIsSimulated)
        return;
    registryLineRows();
    versionCallRows();
    servicePackRows();
    nonAsciiServicePackRows();
    editionFunctionRows();
    registryCallRows();
    releaseCallRows();
    failureRows();
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
