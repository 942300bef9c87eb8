// windowsVersion(), platformName(), releaseName() and readRegistryVersion()

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

/// A machine whose calls and registry return \a facts.
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

/// The text of windowsVersion(true). An empty \a registry means no line of the registry.
QString detailedText(const QString &version, const QString &registry, const QString &release,
                     const QString &servicePack = QString())
{
    return "Windows version: \n"
           "Version (major.minor.build): \n"
           "From GetVersionEx: "
        + version + '\n' + (registry.isEmpty() ? QString() : "From registry:     " + registry + '\n')
        + "                   " + release + "\nLast service pack installed: " + servicePack + '\n';
}

/// Adds a row for windowsVersion(true) and one for platformName().
void addText(const QString &name, const Described &machine, const QString &detailed, const QString &release)
{
    const auto allForms = [] {
        return windowsVersion(true) + windowsVersion(false) + '\n' + velkor::SystemInfo::platformName() + '\n';
    };
    SectionRows(allForms, "").text(name, machine, detailed + release + '\n' + release + '\n');
}

/// Adds a row for the name of the release, and one for a machine with the same facts.
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
    row("4.0, second letter B", 0, " B", "Windows 95 OSR2 ");
    row("4.0, second letter C", 0, " C ", "Windows 95 OSR2 ");
    row("4.0, second letter A", 0, " A", "Windows 95 ");
    row("4.0, second letter D", 0, " D", "Windows 95 ");
    row("4.0, second letter b", 0, " b", "Windows 95 ");
    row("4.0, first letter B", 0, "B", "Windows 95 ");
    row("4.0, third letter B", 0, "  B", "Windows 95 ");
    row("4.10 without a service pack", 10, "", "Windows 98 ");
    row("4.10, first letter A", 10, "A", "Windows 98 SE ");
    row("4.10, first letter A, and more text", 10, "A x", "Windows 98 SE ");
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
    addRow("4.4 server, every bit except enterprise", facts(4, 4, server, allBut(enterprise)), "Windows NT Server ");
    addRow("4.4 without a product type", facts(4, 4, 0, enterprise), "Windows NT ");
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
    add64Bit("5.0 workstation, every bit except both", facts(5, 0, workstation, allBut(dataCenter | enterprise)),
             "2000 Professional ");
    add64Bit("5.0 domain controller, every bit", facts(5, 0, domainController, 0xffff), "2000 ");
    add64Bit("5.0 server, every bit", facts(5, 0, server, 0xffff), "2000 ");
    add64Bit("5.1", facts(5, 1), "XP Professional");
    add64Bit("5.1 personal", facts(5, 1, workstation, personal), "XP Home Edition");
    add64Bit("5.1, every bit except personal", facts(5, 1, workstation, allBut(personal)), "XP Professional");
    add64Bit("5.1 server, personal", facts(5, 1, server, personal), "XP Home Edition");
}

ReleaseFacts serverR2(quint8 productType, quint16 suiteMask = 0)
{
    ReleaseFacts result = facts(5, 2, productType, suiteMask);
    result.isServerR2 = true;
    return result;
}

// The first matching rule applies.
void rowsOfReleasesOf52()
{
    add64Bit("5.2 R2", serverR2(server), "Server 2003 R2 Standard Edition");
    add64Bit("5.2 R2 precedes the storage server", serverR2(server, storageServer), "Server 2003 R2 Standard Edition");
    add64Bit("5.2 R2 precedes the home server", serverR2(server, homeServer), "Server 2003 R2 Standard Edition");
    add64Bit("5.2 R2 precedes the workstation", serverR2(workstation), "Server 2003 R2 ");
    add64Bit("5.2 storage server", facts(5, 2, server, storageServer), "Storage Server 2003 Standard Edition");
    add64Bit("5.2 storage server precedes the workstation", facts(5, 2, workstation, storageServer), "Storage Server 2003 ");
    add64Bit("5.2 storage server and one more bit", facts(5, 2, server, storageServer | enterprise),
             "Windows Server 2003 Enterprise Edition");
    add64Bit("5.2 home server", facts(5, 2, server, homeServer), "Home Server Standard Edition");
    add64Bit("5.2 home server precedes the workstation", facts(5, 2, workstation, homeServer), "Home Server ");
    add64Bit("5.2 home server and one more bit", facts(5, 2, server, homeServer | 1),
             "Windows Server 2003 Standard Edition");
    add64Bit("5.2 storage and home server", facts(5, 2, server, storageServer | homeServer),
             "Windows Server 2003 Standard Edition");
    add64Bit("5.2 workstation", facts(5, 2, workstation), "XP Professional x64 Edition ");
    add64Bit("5.2 workstation has no edition", facts(5, 2, workstation, enterprise | dataCenter),
             "XP Professional x64 Edition ");
    add64Bit("5.2 workstation, storage server and one more bit", facts(5, 2, workstation, storageServer | 1),
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
    row("Itanium, datacenter", itanium, dataCenter, "Datacenter Edition for Itanium-based Systems");
    row("Itanium, enterprise", itanium, enterprise, "Enterprise Edition for Itanium-based Systems");
    row("Itanium, datacenter precedes enterprise", itanium, dataCenter | enterprise,
        "Datacenter Edition for Itanium-based Systems");
    row("Itanium, neither", itanium, 0, "");
    row("Itanium, every other bit", itanium, allBut(dataCenter | enterprise), "");
    row("x64, datacenter", x64, dataCenter, "Datacenter x64 Edition");
    row("x64, enterprise", x64, enterprise, "Enterprise x64 Edition");
    row("x64, datacenter precedes enterprise", x64, dataCenter | enterprise, "Datacenter x64 Edition");
    row("x64, neither", x64, 0, "Standard x64 Edition");
    row("x64, every other bit", x64, allBut(dataCenter | enterprise), "Standard x64 Edition");
    row("x86, compute cluster", x86, computeCluster, "Compute Cluster Edition");
    row("x86, compute cluster precedes all others", x86, 0xffff, "Compute Cluster Edition");
    row("x86, datacenter", x86, dataCenter, "Datacenter Edition");
    row("x86, datacenter precedes enterprise and blade", x86, allBut(computeCluster), "Datacenter Edition");
    row("x86, enterprise", x86, enterprise, "Enterprise Edition");
    row("x86, enterprise precedes blade", x86, enterprise | blade, "Enterprise Edition");
    row("x86, blade", x86, blade, "Web Edition");
    row("x86, none", x86, 0, "Standard Edition");
    row("x86, every other bit", x86, allBut(computeCluster | dataCenter | enterprise | blade), "Standard Edition");
    row("an unknown architecture, blade", PROCESSOR_ARCHITECTURE_ARM64, blade, "Web Edition");
}

// Major 6

ReleaseFacts withEdition(ReleaseFacts facts, quint32 code)
{
    facts.editionCode = code;
    return facts;
}

void rowsOf60And61()
{
    add64Bit("6.0 workstation", withEdition(facts(6, 0, workstation), PRODUCT_ULTIMATE), "Vista Ultimate Edition");
    add64Bit("6.0 server", withEdition(facts(6, 0, server), PRODUCT_STANDARD_SERVER), "Server 2008 Standard Edition");
    add64Bit("6.0 domain controller: no release words", withEdition(facts(6, 0, domainController), PRODUCT_STANDARD_SERVER),
             "Standard Edition");
    add64Bit("6.0 domain controller without an edition", facts(6, 0, domainController), "");
    add64Bit("6.0 workstation without an edition", facts(6, 0, workstation), "Vista ");
    add64Bit("6.1 workstation", withEdition(facts(6, 1, workstation), PRODUCT_ULTIMATE), "7 Ultimate Edition");
    add64Bit("6.1 domain controller", withEdition(facts(6, 1, domainController), PRODUCT_ENTERPRISE_SERVER),
             "Server 2008 R2 Enterprise Edition");
    add64Bit("6.1 server", withEdition(facts(6, 1, server), PRODUCT_DATACENTER_SERVER), "Server 2008 R2 Datacenter Edition");
    add64Bit("6.1 without a product type", facts(6, 1, 0), "Server 2008 R2 ");
    add64Bit("6.1 workstation without an edition", facts(6, 1, workstation), "7 ");
    add64Bit("6.1, edition 0", withEdition(facts(6, 1, workstation), 0), "7 0x0");
    add64Bit("6.1, edition 123", withEdition(facts(6, 1, workstation), 123), "7 0x7b");
    add64Bit("6.1, edition 17", withEdition(facts(6, 1, server), PRODUCT_WEB_SERVER), "Server 2008 R2 Web Server Edition)");
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
    rowOf62("registry 6.3, build above 22000", workstation, 6, 3, 22631, "8.1 ");
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
    add64Bit("registry 10.0 without an edition", noEdition, "10 ");
}

void unknownRows()
{
    for (const quint32 minor : {1u, 3u, 5u, 9u, 11u, 89u, 91u, largest})
        addRow(QString("4.%1 is unknown").arg(minor), facts(4, minor), "Windows unkown minor version for major=4");
    for (const quint32 minor : {3u, 4u, 10u, largest})
        addRow(QString("5.%1 is unknown").arg(minor), facts(5, minor), "Windows unknown minor version for major=5, 64-bit");
    for (const quint32 minor : {3u, 4u, largest})
        addRow(QString("6.%1 is unknown").arg(minor), facts(6, minor), "Windows unknown minor version for major=6");
    for (const quint32 major : {0u, 3u, 7u, 10u, 11u, largest})
        addRow(QString("%1.0 is unknown").arg(major), facts(major, 0), "Windows unknown major version");
    addRow("10.0 is unknown on a server too", facts(10, 0, server, 0xffff), "Windows unknown major version");
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
    row(PRODUCT_WEB_SERVER, "Web Server Edition)");
    row(PRODUCT_CLUSTER_SERVER, "Cluster Server Edition");
    row(PRODUCT_SMALLBUSINESS_SERVER_PREMIUM, "Small Business Server Premium Edition");
    row(PRODUCT_HYPERV, "Hyper-V Server");
    row(PRODUCT_PROFESSIONAL, "Professional Edition");
    row(PRODUCT_PROFESSIONAL_N, "Professional Edition");
    row(PRODUCT_CORE_N, "Home/Core Edition");
    row(PRODUCT_CORE, "Home/Core Edition");
    row(PRODUCT_EDUCATION, "Education Edition");
    row(PRODUCT_EDUCATION_N, "Education Edition");
    // Neighbours of known codes
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

// The initial value of the variables that readRegistryVersion() sets.
constexpr quint32 untouched = 7777;

/// Its result as "MAJOR.MINOR.BUILD.REVISION", with "-" for a variable that it did not write.
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

void addRegistry(const char *name, const QByteArray &values, const QString &expected)
{
    registryRows.text(QString("registry: ") + name, versionKey() + values, expected);
}

void registryNumberRows()
{
    registryRows.text("no key: every variable is unchanged", "", "failed -.-.-.-");
    addRegistry("an empty key", "", "failed -.-.-.-");
    addRegistry("two numbers and a build", numbers(10, 0) + build19045, "10.0.19045.-");
    addRegistry("two numbers precede the text", numbers(10, 0) + version63 + build19045, "10.0.19045.-");
    addRegistry("numbers are unsigned", numbers(largest, largest) + textValue("CurrentBuildNumber", "4294967295"),
                "4294967295.4294967295.4294967295.-");
    addRegistry("only the major number, with the text",
                numberValue("CurrentMajorVersionNumber", 10) + version63 + build19045,
                "6.3.19045.-");
    addRegistry("only the major number, without the text: it stays stored",
                numberValue("CurrentMajorVersionNumber", 10) + build19045, "failed 10.-.-.-");
    addRegistry("only the major number, with an invalid text",
                numberValue("CurrentMajorVersionNumber", 10) + textValue("CurrentVersion", "6") + build19045,
                "failed 10.-.-.-");
    addRegistry("only the minor number, with the text",
                numberValue("CurrentMinorVersionNumber", 7) + version63 + build19045,
                "6.3.19045.-");
    addRegistry("only the minor number, without the text", numberValue("CurrentMinorVersionNumber", 7) + build19045,
                "failed -.-.-.-");
    addRegistry("a major number of eight bytes cannot be read",
                binaryValue("CurrentMajorVersionNumber", QByteArray(8, '\0')) + numberValue("CurrentMinorVersionNumber", 7)
                    + version63 + build19045,
                "6.3.19045.-");
    addRegistry("a minor number of eight bytes cannot be read",
                numberValue("CurrentMajorVersionNumber", 10) + binaryValue("CurrentMinorVersionNumber", QByteArray(8, '\0'))
                    + build19045,
                "failed 10.-.-.-");
    addRegistry("numbers of one and of 0 bytes",
                binaryValue("CurrentMajorVersionNumber", "\x0a") + binaryValue("CurrentMinorVersionNumber", "") + build19045,
                "10.0.19045.-");
    addRegistry("a number of type REG_SZ: its bytes are the number",
                textValue("CurrentMajorVersionNumber", "1") + numberValue("CurrentMinorVersionNumber", 0) + build19045,
                "49.0.19045.-");
}

void registryTextRows()
{
    const auto row = [](const char *name, const char *text, const QString &expected) {
        addRegistry(name, textValue("CurrentVersion", text) + build19045, expected);
    };
    const QString nothing = "failed -.-.-.-";
    row("two parts", "6.1", "6.1.19045.-");
    row("two parts of several digits", "12.345", "12.345.19045.-");
    row("one part", "6", nothing);
    row("no part", "", nothing);
    row("three parts", "6.1.7601", nothing);
    row("an empty third part", "6.1.", nothing);
    row("a comma", "6,1", nothing);
    row("an empty first part: 0 is stored", ".3", "failed 0.-.-.-");
    row("two empty parts: 0 is stored", ".", "failed 0.-.-.-");
    row("a first part that is not a number: 0 is stored", "x.3", "failed 0.-.-.-");
    row("a first part with a letter: 0 is stored", "6b.3", "failed 0.-.-.-");
    row("a negative first part: 0 is stored", "-6.3", "failed 0.-.-.-");
    row("a first part of more than 32 bits: 0 is stored", "4294967296.3", "failed 0.-.-.-");
    row("the largest first part", "4294967295.0", "4294967295.0.19045.-");
    row("an empty second part is 0, without a failure", "6.", "6.0.19045.-");
    row("a second part that is not a number is 0, without a failure", "6.x", "6.0.19045.-");
    row("blanks around the numbers", " 6 . 3 ", "6.3.19045.-");
    addRegistry("no text", build19045, nothing);
    addRegistry("a text that does not fit the buffer", textValue("CurrentVersion", "6.3" + QString(2045, ' ')) + build19045, nothing);
    addRegistry("a text of 2048 bytes without a terminator",
                binaryValue("CurrentVersion", "6.3" + QByteArray(2045, ' ')) + build19045, "6.3.19045.-");
    addRegistry("the text is read into a zeroed buffer", binaryValue("CurrentVersion", "6.3") + build19045,
                "6.3.19045.-");
}

void registryBuildRows()
{
    const auto row = [](const char *name, const QByteArray &value, const QString &expected) {
        addRegistry(name, numbers(10, 0) + value, expected);
    };
    row("no build: the version stays stored", "", "failed 10.0.-.-");
    row("an empty build is 0 and a failure", textValue("CurrentBuildNumber", ""), "failed 10.0.0.-");
    row("a build that is not a number is 0 and a failure", textValue("CurrentBuildNumber", "19045x"), "failed 10.0.0.-");
    row("a hexadecimal build is 0 and a failure", textValue("CurrentBuildNumber", "0x4a65"), "failed 10.0.0.-");
    row("a negative build is 0 and a failure", textValue("CurrentBuildNumber", "-1"), "failed 10.0.0.-");
    row("a build of more than 32 bits is 0 and a failure", textValue("CurrentBuildNumber", "4294967296"), "failed 10.0.0.-");
    row("build 0", textValue("CurrentBuildNumber", "0"), "10.0.0.-");
    row("leading zeros of the build", textValue("CurrentBuildNumber", "0019045"), "10.0.19045.-");
    row("a build of type REG_DWORD: its bytes are the text", numberValue("CurrentBuildNumber", 0x00003031), "10.0.10.-");
    row("the build is read into a zeroed buffer", binaryValue("CurrentBuildNumber", "19"), "10.0.19.-");
    row("a build of 2048 bytes without a terminator", binaryValue("CurrentBuildNumber", QByteArray(2043, ' ') + "19045"),
        "10.0.19045.-");
    row("a build of 2049 bytes cannot be read", binaryValue("CurrentBuildNumber", QByteArray(2044, ' ') + "19045"),
        "failed 10.0.-.-");
    row("CurrentBuild is not read", textValue("CurrentBuild", "19045"), "failed 10.0.-.-");
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
    addRegistry("a revision without a version", numberValue("UBR", 3803), "failed -.-.-.3803, has a revision");
    row("a revision of eight bytes", binaryValue("UBR", QByteArray(8, '\1')), "6.6.6.-");
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

// The text for system62().
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
    row("Windows 10: six lines", windows10Key(), "10.0.19045.3803", windows10);
    row("Windows 10 without an update revision", version10 + build19045, "10.0.19045", windows10);
    row("Windows 11", version10 + textValue("CurrentBuildNumber", "22000") + numberValue("UBR", 1), "10.0.22000.1",
        "Windows 11 Professional Edition, 64-bit");
    row("Windows 8.1 from the text in the registry", versionKey() + version63 + textValue("CurrentBuildNumber", "9600"),
        "6.3.9600", "Windows 8.1 Professional Edition, 64-bit");
    row("without the key: no line, no release", "", "", noRelease);
    row("no build: no line, but the release of the version", version10 + numberValue("UBR", 3803), "",
        windows10);
    row("the build is not a number: no line, and the release of build 0", version10 + textValue("CurrentBuildNumber", "22000x"), "",
        windows10);
    row("only the major number: no line, and the release with the minor number 0",
        versionKey() + numberValue("CurrentMajorVersionNumber", 10), "", windows10);
    row("registry numbers are unsigned",
        versionKey() + numbers(largest, largest) + textValue("CurrentBuildNumber", "4294967295") + numberValue("UBR", largest),
        "4294967295.4294967295.4294967295.4294967295", noRelease);
}

void versionCallRows()
{
    const QString unknown = "Windows unknown major version";
    addText("an empty machine: the failure text", "", failedText(), "Windows");
    addText("GetVersionEx() fails with an error", {windows10Key(), R"({"GetVersionEx": {"error": 5}})"}, failedText(), "Windows");
    addText("a manifest for Windows 10",
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
    row("a service pack outside ASCII shows U+FFFD", R"(Pack \u00e9!)", QString("Pack ") + QChar(0xfffd) + "!");
    row("the longest service pack", QByteArray(127, 'x'), QString(127, 'x'));
}

// The service pack is decoded as UTF-8. The release depends on its characters, not on its bytes.
void otherAlphabetRows()
{
    const auto row = [](const char *name, int codePage, int minor, const QByteArray &servicePack, const char *release,
                        const QString &shown) {
        addText(name,
                {"", R"({"ansiCodePage": )" + QByteArray::number(codePage) + R"(, "GetVersionEx": {"dwMajorVersion": 4, "dwBuildNumber": 1111, "dwMinorVersion": )" + QByteArray::number(minor) + R"(, "szCSDVersion": ")" + servicePack + "\"}}"},
                detailedText("4." + QString::number(minor) + ".1111", "", release, shown), release);
    };
    const QString unknown(QChar(0xfffd));
    const QString umlaut(QChar(0xe4));
    row("4.0, B after a byte that is not UTF-8", 1252, 0, R"(\u00e4B)", "Windows 95 OSR2 ", unknown + "B");
    row("4.0, B after a letter of two bytes", 1252, 0, R"(\u00c3\u00a4B)", "Windows 95 OSR2 ", umlaut + "B");
    row("4.0, C after a letter of two bytes", 65001, 0, R"(\u00e4C)", "Windows 95 OSR2 ", umlaut + "C");
    row("4.0, C after a letter of three bytes", 65001, 0, R"(\u4e00C)", "Windows 95 OSR2 ", QString(QChar(0x4e00)) + "C");
    row("4.0, B is the third byte but not the second letter", 65001, 0, R"(\u00e4xB)", "Windows 95 ", umlaut + "xB");
    row("4.0, a second letter whose low byte is that of B", 65001, 0, R"( \u0142)", "Windows 95 ",
        QString(" ") + QChar(0x0142));
    row("4.0, a second letter whose low byte is that of C", 65001, 0, R"( \u4e43)", "Windows 95 ",
        QString(" ") + QChar(0x4e43));
    row("4.10, A before a byte that is not UTF-8", 1252, 10, R"(A\u00e4)", "Windows 98 SE ", "A" + unknown);
    row("4.10, A after a byte that is not UTF-8", 1252, 10, R"(\u00e4A)", "Windows 98 ", unknown + "A");
    row("4.10, A after a letter of two bytes", 65001, 10, R"(\u00e4A)", "Windows 98 ", umlaut + "A");
    row("4.10, an A with a diacritic", 65001, 10, R"(\u00c4)", "Windows 98 ", QString(QChar(0xc4)));
    row("4.10, a letter whose low byte is that of A", 65001, 10, R"(\u0141)", "Windows 98 ", QString(QChar(0x0141)));
    row("4.10, a byte-order mark of UTF-8 is not part of the text", 65001, 10, R"(\ufeffA)", "Windows 98 SE ", "A");
}

const SectionRows detailedRows([] { return windowsVersion(true); }, "");
const SectionRows shortRows([] { return windowsVersion(false); }, "");

void editionFunctionRows()
{
    const auto row = [](const char *name, const QByteArray &system, const QString &expected) {
        shortRows.text(name, {windows10Key(), system}, expected);
    };
    row("not exported: no edition", system62(""), "Windows 10 , 64-bit");
    row("exported, fails: edition 0", system62(R"("GetProductInfo": {"error": 87})"), "Windows 10 0x0, 64-bit");
    row("exported, 48", system62(), "Windows 10 Professional Edition, 64-bit");
    row("exported, largest code", system62(R"("GetProductInfo": {"dwReturnedProductType": 4294967295})"),
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
    row("numbers", numbers(10, 0) + build19045 + version63,
        {"CurrentMajorVersionNumber 4", "CurrentMinorVersionNumber 4", "CurrentBuildNumber 2048", "UBR 4"});
    row("only the major number", numberValue("CurrentMajorVersionNumber", 10) + version63,
        {"CurrentMajorVersionNumber 4", "CurrentMinorVersionNumber 4", "CurrentVersion 2048", "CurrentBuildNumber 2048",
         "UBR 4"});
    row("text of Windows 8.1: the edition is queried for 6.2", version63,
        {"CurrentMajorVersionNumber 4", "CurrentVersion 2048", "CurrentBuildNumber 2048", "UBR 4"});
    row("an invalid text: the revision is next", textValue("CurrentVersion", "6"),
        {"CurrentMajorVersionNumber 4", "CurrentVersion 2048", "UBR 4"});
    row("neither numbers nor text: the revision is next", "", {"CurrentMajorVersionNumber 4", "CurrentVersion 2048", "UBR 4"});
}

/// Calls if the registry has no version.
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
    addCalls("without a version", {windows10Key(), "{}"}, "");
    addCalls("6.2 without the edition function", {"", system62("")}, open + functionCalls);
    row("6.0 queries the edition", 6, 0, functionCalls + "GetProductInfo \"6.0.0.0\"\n");
    row("6.1 queries the edition", 6, 1, functionCalls + "GetProductInfo \"6.1.0.0\"\n");
    row("6.3 does not query the edition", 6, 3, "");
    row("5.2 queries R2, not the edition", 5, 2, "GetSystemMetrics \"89\"\n");
    row("5.0 queries neither", 5, 0, "");
    row("5.1 queries neither", 5, 1, "");
    row("4.4 queries neither", 4, 4, "");
    row("10.0 queries neither", 10, 0, "");
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
    row("GetVersionEx() fails", "GetVersionExA", 0, failedText());
    row("no product type: the name of a server", "GetVersionExW", 0,
        text62(version, "Windows Server 2016 Professional Edition, 64-bit"));
    row("the key cannot be opened", "RegOpenKeyExA", 0, text62("", "Windows Professional Edition, 64-bit"));
    row("the major number cannot be read: the text is used", "RegQueryValueExA", 0, from63);
    row("the minor number cannot be read: the text is used", "RegQueryValueExA", 1, from63);
    row("the build cannot be read: no line", "RegQueryValueExA", 2, text62("", windows10));
    row("the update revision cannot be read", "RegQueryValueExA", 3, text62("10.0.19045", windows10));
    row("the key cannot be closed: the text is unchanged", "RegCloseKey", 0, text62(version, windows10));
    row("GetModuleHandle() fails", "GetModuleHandleW", 0, noEdition);
    row("GetProcAddress() fails", "GetProcAddress", 0, noEdition);
    row("GetProductInfo() fails", "GetProductInfo", 0, text62(version, "Windows 10 0x0, 64-bit"));
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
    otherAlphabetRows();
    editionFunctionRows();
    registryCallRows();
    releaseCallRows();
    failureRows();
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
