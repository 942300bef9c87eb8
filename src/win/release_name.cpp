#include "win/release_name.h"

#include <windows.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr quint32 firstBuildOfWindows11 = 22000;

QString wordSizeSuffix()
{
    return QStringLiteral(", 64-bit");
}

QChar unitAt(const QString &text, int index)
{
    return index < text.size() ? text.at(index) : QChar();
}

// Quirk: Windows NT 4 is named at minor version 4 (NT 4 itself returns 0), "95" checks the
// second character of the service pack and "98" the first, and "unkown" is misspelt.
QString nameOfMajor4(const ReleaseFacts &facts)
{
    switch (facts.minor) {
    case 0: {
        const QChar letter = unitAt(facts.servicePack, 1);
        const bool isOsr2 = letter == QLatin1Char('B') || letter == QLatin1Char('C');
        return QStringLiteral("95 ") + (isOsr2 ? QStringLiteral("OSR2 ") : QString());
    }
    case 10: {
        const bool isSecondEdition = unitAt(facts.servicePack, 0) == QLatin1Char('A');
        return QStringLiteral("98 ") + (isSecondEdition ? QStringLiteral("SE ") : QString());
    }
    case 90:
        return QStringLiteral("Me ");
    case 4: {
        QString name = QStringLiteral("NT ");
        if (facts.productType == VER_NT_WORKSTATION)
            name += QStringLiteral("Workstation ");
        if (facts.productType == VER_NT_SERVER) {
            name += QStringLiteral("Server ");
            if (facts.suiteMask & VER_SUITE_ENTERPRISE)
                name += QStringLiteral("Enterprise ");
        }
        return name;
    }
    default:
        return QStringLiteral("unkown minor version for major=4");
    }
}

// Quirk: a workstation gets the names of server editions.
QString nameOf2000(const ReleaseFacts &facts)
{
    QString name = QStringLiteral("2000 ");
    if (facts.productType == VER_NT_WORKSTATION) {
        name += QStringLiteral("Professional ");
        if (facts.suiteMask & VER_SUITE_DATACENTER)
            name += QStringLiteral("Data Center ");
        if (facts.suiteMask & VER_SUITE_ENTERPRISE)
            name += QStringLiteral("Advanced ");
    }
    return name;
}

QString nameOfXp(const ReleaseFacts &facts)
{
    return QStringLiteral("XP ")
        + (facts.suiteMask & VER_SUITE_PERSONAL ? QStringLiteral("Home Edition") : QStringLiteral("Professional"));
}

// Quirk: the last name repeats "Windows".
QString releaseOf2003(const ReleaseFacts &facts)
{
    if (facts.isServerR2)
        return QStringLiteral("Server 2003 R2 ");
    if (facts.suiteMask == VER_SUITE_STORAGE_SERVER)
        return QStringLiteral("Storage Server 2003 ");
    if (facts.suiteMask == VER_SUITE_WH_SERVER)
        return QStringLiteral("Home Server ");
    if (facts.productType == VER_NT_WORKSTATION)
        return QStringLiteral("XP Professional x64 Edition ");
    return QStringLiteral("Windows Server 2003 ");
}

QString editionOf2003(const ReleaseFacts &facts)
{
    switch (facts.architecture) {
    case PROCESSOR_ARCHITECTURE_IA64:
        if (facts.suiteMask & VER_SUITE_DATACENTER)
            return QStringLiteral("Datacenter Edition for Itanium-based Systems");
        if (facts.suiteMask & VER_SUITE_ENTERPRISE)
            return QStringLiteral("Enterprise Edition for Itanium-based Systems");
        return QString();
    case PROCESSOR_ARCHITECTURE_AMD64:
        if (facts.suiteMask & VER_SUITE_DATACENTER)
            return QStringLiteral("Datacenter x64 Edition");
        if (facts.suiteMask & VER_SUITE_ENTERPRISE)
            return QStringLiteral("Enterprise x64 Edition");
        return QStringLiteral("Standard x64 Edition");
    default:
        if (facts.suiteMask & VER_SUITE_COMPUTE_SERVER)
            return QStringLiteral("Compute Cluster Edition");
        if (facts.suiteMask & VER_SUITE_DATACENTER)
            return QStringLiteral("Datacenter Edition");
        if (facts.suiteMask & VER_SUITE_ENTERPRISE)
            return QStringLiteral("Enterprise Edition");
        if (facts.suiteMask & VER_SUITE_BLADE)
            return QStringLiteral("Web Edition");
        return QStringLiteral("Standard Edition");
    }
}

QString nameOfMajor5(const ReleaseFacts &facts)
{
    switch (facts.minor) {
    case 0:
        return nameOf2000(facts) + wordSizeSuffix();
    case 1:
        return nameOfXp(facts) + wordSizeSuffix();
    case 2:
        return releaseOf2003(facts) + (facts.productType == VER_NT_WORKSTATION ? QString() : editionOf2003(facts))
            + wordSizeSuffix();
    default:
        return QStringLiteral("unknown minor version for major=5") + wordSizeSuffix();
    }
}

QString releaseOfVista(const ReleaseFacts &facts)
{
    if (facts.productType == VER_NT_WORKSTATION)
        return QStringLiteral("Vista ");
    return facts.productType == VER_NT_SERVER ? QStringLiteral("Server 2008 ") : QString();
}

// Without a manifest GetVersionEx stops at 6.2; the registry has the real version.
QString releaseByRegistry(const ReleaseFacts &facts)
{
    const bool isClient = facts.productType == VER_NT_WORKSTATION;
    const RegistryVersion &version = facts.registry;
    if (version.major == 6 && version.minor == 2)
        return isClient ? QStringLiteral("8 ") : QStringLiteral("Server 2012 ");
    if (version.major == 6 && version.minor == 3)
        return isClient ? QStringLiteral("8.1 ") : QStringLiteral("Server 2012 R2 ");
    if (version.major == 10 && version.minor == 0) {
        if (!isClient)
            return QStringLiteral("Server 2016 ");
        return version.build < firstBuildOfWindows11 ? QStringLiteral("10 ") : QStringLiteral("11 ");
    }
    return QString();
}

QString nameOfMajor6(const ReleaseFacts &facts)
{
    QString name;
    switch (facts.minor) {
    case 0:
        name = releaseOfVista(facts);
        break;
    case 1:
        name = facts.productType == VER_NT_WORKSTATION ? QStringLiteral("7 ") : QStringLiteral("Server 2008 R2 ");
        break;
    case 2:
        name = releaseByRegistry(facts);
        break;
    default:
        return QStringLiteral("unknown minor version for major=6");
    }
    if (facts.editionCode)
        name += productTypeName(*facts.editionCode);
    return name + wordSizeSuffix();
}

struct Edition
{
    quint32 code;
    const char *name;
};

// Quirk: the name of PRODUCT_WEB_SERVER has a stray parenthesis.
constexpr Edition editions[] = {
    {PRODUCT_ULTIMATE, "Ultimate Edition"},
    {PRODUCT_HOME_BASIC, "Home Basic Edition"},
    {PRODUCT_HOME_PREMIUM, "Home Premium Edition"},
    {PRODUCT_ENTERPRISE, "Enterprise Edition"},
    {PRODUCT_HOME_BASIC_N, "Home Basic Edition"},
    {PRODUCT_BUSINESS, "Business Edition"},
    {PRODUCT_STANDARD_SERVER, "Standard Edition"},
    {PRODUCT_DATACENTER_SERVER, "Datacenter Edition"},
    {PRODUCT_SMALLBUSINESS_SERVER, "Small Business Server"},
    {PRODUCT_ENTERPRISE_SERVER, "Enterprise Edition"},
    {PRODUCT_STARTER, "Starter Edition"},
    {PRODUCT_DATACENTER_SERVER_CORE, "Datacenter Edition (core installation)"},
    {PRODUCT_STANDARD_SERVER_CORE, "Standard Edition (core installation)"},
    {PRODUCT_ENTERPRISE_SERVER_CORE, "Enterprise Edition (core installation)"},
    {PRODUCT_ENTERPRISE_SERVER_IA64, "Enterprise Edition for Itanium-based Systems"},
    {PRODUCT_BUSINESS_N, "Business Edition"},
    {PRODUCT_WEB_SERVER, "Web Server Edition)"},
    {PRODUCT_CLUSTER_SERVER, "Cluster Server Edition"},
    {PRODUCT_SMALLBUSINESS_SERVER_PREMIUM, "Small Business Server Premium Edition"},
    {PRODUCT_HYPERV, "Hyper-V Server"},
    {PRODUCT_PROFESSIONAL, "Professional Edition"},
    {PRODUCT_PROFESSIONAL_N, "Professional Edition"},
    {PRODUCT_CORE_N, "Home/Core Edition"},
    {PRODUCT_CORE, "Home/Core Edition"},
    {PRODUCT_EDUCATION, "Education Edition"},
    {PRODUCT_EDUCATION_N, "Education Edition"},
};

} // namespace

QString releaseName(const ReleaseFacts &facts)
{
    const QString start = QStringLiteral("Windows ");
    switch (facts.major) {
    case 4:
        return start + nameOfMajor4(facts);
    case 5:
        return start + nameOfMajor5(facts);
    case 6:
        return start + nameOfMajor6(facts);
    default:
        return start + QStringLiteral("unknown major version");
    }
}

QString productTypeName(quint32 editionCode)
{
    for (const Edition &edition : editions) {
        if (edition.code == editionCode)
            return QString::fromLatin1(edition.name);
    }
    return QStringLiteral("0x%1").arg(editionCode, 0, 16);
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
