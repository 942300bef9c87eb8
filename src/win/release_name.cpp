#include "win/windows_version.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

enum Suite : quint16 {
    Enterprise = 0x0002,
    DataCenter = 0x0080,
    Personal = 0x0200,
    Blade = 0x0400,
    StorageServer = 0x2000,
    ComputeCluster = 0x4000,
    HomeServer = 0x8000
};

enum ProductType : quint8 {
    Workstation = 1,
    DomainController = 2,
    Server = 3,
};
enum Architecture : quint16 {
    Itanium = 6,
    X64 = 9,
};

constexpr quint32 firstBuildOfWindows11 = 22000;

QString wordSizeSuffix()
{
    return QStringLiteral(", 64-bit");
}

QChar unitAt(const QString &text, int index)
{
    return index < text.size() ? text.at(index) : QChar();
}

// "NT" has minor number 4, "95" looks at the second character of the service pack
// and "98" at the first. All three, and "unkown", are the report's format.
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
        if (facts.productType == Workstation)
            name += QStringLiteral("Workstation ");
        if (facts.productType == Server) {
            name += QStringLiteral("Server ");
            if (facts.suiteMask & Enterprise)
                name += QStringLiteral("Enterprise ");
        }
        return name;
    }
    default:
        return QStringLiteral("unkown minor version for major=4");
    }
}

// Server editions of a workstation: the report's format.
QString nameOf2000(const ReleaseFacts &facts)
{
    QString name = QStringLiteral("2000 ");
    if (facts.productType == Workstation) {
        name += QStringLiteral("Professional ");
        if (facts.suiteMask & DataCenter)
            name += QStringLiteral("Data Center ");
        if (facts.suiteMask & Enterprise)
            name += QStringLiteral("Advanced ");
    }
    return name;
}

QString nameOfXp(const ReleaseFacts &facts)
{
    return QStringLiteral("XP ")
        + (facts.suiteMask & Personal ? QStringLiteral("Home Edition") : QStringLiteral("Professional"));
}

// The last name repeats "Windows"; the report's format.
QString releaseOf2003(const ReleaseFacts &facts)
{
    if (facts.isServerR2)
        return QStringLiteral("Server 2003 R2 ");
    if (facts.suiteMask == StorageServer)
        return QStringLiteral("Storage Server 2003 ");
    if (facts.suiteMask == HomeServer)
        return QStringLiteral("Home Server ");
    if (facts.productType == Workstation)
        return QStringLiteral("XP Professional x64 Edition ");
    return QStringLiteral("Windows Server 2003 ");
}

QString editionOf2003(const ReleaseFacts &facts)
{
    switch (facts.architecture) {
    case Itanium:
        if (facts.suiteMask & DataCenter)
            return QStringLiteral("Datacenter Edition for Itanium-based Systems");
        if (facts.suiteMask & Enterprise)
            return QStringLiteral("Enterprise Edition for Itanium-based Systems");
        return QString();
    case X64:
        if (facts.suiteMask & DataCenter)
            return QStringLiteral("Datacenter x64 Edition");
        if (facts.suiteMask & Enterprise)
            return QStringLiteral("Enterprise x64 Edition");
        return QStringLiteral("Standard x64 Edition");
    default:
        if (facts.suiteMask & ComputeCluster)
            return QStringLiteral("Compute Cluster Edition");
        if (facts.suiteMask & DataCenter)
            return QStringLiteral("Datacenter Edition");
        if (facts.suiteMask & Enterprise)
            return QStringLiteral("Enterprise Edition");
        if (facts.suiteMask & Blade)
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
        return releaseOf2003(facts) + (facts.productType == Workstation ? QString() : editionOf2003(facts))
            + wordSizeSuffix();
    default:
        return QStringLiteral("unknown minor version for major=5") + wordSizeSuffix();
    }
}

QString releaseOfVista(const ReleaseFacts &facts)
{
    if (facts.productType == Workstation)
        return QStringLiteral("Vista ");
    return facts.productType == Server ? QStringLiteral("Server 2008 ") : QString();
}

// From 6.2 on GetVersionEx tells no more than that to a program that does not say
// which Windows it knows; the registry does.
QString releaseByRegistry(const ReleaseFacts &facts)
{
    const bool isClient = facts.productType == Workstation;
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
        name = facts.productType == Workstation ? QStringLiteral("7 ") : QStringLiteral("Server 2008 R2 ");
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

// The stray parenthesis of 17 is the report's format.
constexpr Edition editions[] = {
    {1, "Ultimate Edition"},
    {2, "Home Basic Edition"},
    {3, "Home Premium Edition"},
    {4, "Enterprise Edition"},
    {5, "Home Basic Edition"},
    {6, "Business Edition"},
    {7, "Standard Edition"},
    {8, "Datacenter Edition"},
    {9, "Small Business Server"},
    {10, "Enterprise Edition"},
    {11, "Starter Edition"},
    {12, "Datacenter Edition (core installation)"},
    {13, "Standard Edition (core installation)"},
    {14, "Enterprise Edition (core installation)"},
    {15, "Enterprise Edition for Itanium-based Systems"},
    {16, "Business Edition"},
    {17, "Web Server Edition)"},
    {18, "Cluster Server Edition"},
    {25, "Small Business Server Premium Edition"},
    {42, "Hyper-V Server"},
    {48, "Professional Edition"},
    {49, "Professional Edition"},
    {98, "Home/Core Edition"},
    {101, "Home/Core Edition"},
    {121, "Education Edition"},
    {122, "Education Edition"},
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
