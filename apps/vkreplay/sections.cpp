#include "sections.h"

#include "vkSystemInfo.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo;
using namespace velkor::SystemInfo::WinSysInfo;

namespace {

QString detailedVersion()
{
    return windowsVersion(true);
}

QString openGLDrivers()
{
    QString text;
    ScanOpenGLInfo(nullptr).GetOpenGLDriverInfo(text);
    return text;
}

struct Section
{
    const char *name;
    QString (*text)();
};

constexpr Section sections[] = {
    {"allWinInfos", allWinInfos},
    {"windowsVersion", detailedVersion},
    {"windowsVersionFromRegistry", windowsVersionFromRegistry},
    {"internetExplorerInfo", internetExplorerInfo},
    {"processorInfo", processorInfo},
    {"processorRegistryInfo", processorRegistryInfo},
    {"memoryInfo", memoryInfo},
    {"computerNames", computerNames},
    {"userName", userName},
    {"oemInfoFromRegistry", oemInfoFromRegistry},
    {"systemInformationFromRegistry", systemInformationFromRegistry},
    {"biosInfoFromRegistry", biosInfoFromRegistry},
    {"videoInfoFromRegistry", videoInfoFromRegistry},
    {"driverInfoFromRegistry", driverInfoFromRegistry},
    {"timeZoneInfoFromRegistry", timeZoneInfoFromRegistry},
    {"installedApplicationsFromRegistry", installedApplicationsFromRegistry},
    {"installedVisualBasicApplications", installedVisualBasicApplications},
    {"winSxSDirectoryEntries", winSxSDirectoryEntries},
    {"someEnvironmentVariables", someEnvironmentVariables},
    {"diskInformation", diskInformation},
    {"registryQuota", registryQuota},
    {"windowsSystemDirectories", windowsSystemDirectories},
    {"specialFolders", specialFolders},
    {"checkStandardBonjour", standardBonjourStatus},
    {"checkVelkorBonjour", velkorBonjourStatus},
    {"refCountSharedDll", sharedDllRefCount},
    {"loadedModules", loadedModulesList},
    {"platformName", platformName},
    {"GetOpenGLDriverInfo", openGLDrivers},
};

struct NamedSection
{
    const char *name;
    QString (*text)(const QString &);
};

constexpr NamedSection namedSections[] = {
    {"diskDevicesFromRegistry", diskDevicesFromRegistry},
    {"portsFromRegistry", portsFromRegistry},
};

const Section *findSection(const QString &name)
{
    for (const Section &section : sections) {
        if (name == QLatin1String(section.name))
            return &section;
    }
    return nullptr;
}

/// The section whose name and a colon \a name starts with; \a argument is what follows.
const NamedSection *findNamedSection(const QString &name, QString &argument)
{
    for (const NamedSection &section : namedSections) {
        const QString start = QLatin1String(section.name) + QStringLiteral(":");
        if (name.startsWith(start)) {
            argument = name.mid(start.size());
            return &section;
        }
    }
    return nullptr;
}

} // namespace

std::optional<QString> sectionText(const QString &name)
{
    if (const Section *section = findSection(name))
        return section->text();
    QString argument;
    if (const NamedSection *section = findNamedSection(name, argument))
        return section->text(argument);
    return std::nullopt;
}

bool isSection(const QString &name)
{
    QString argument;
    return findSection(name) || findNamedSection(name, argument);
}

QStringList sectionNames()
{
    QStringList names;
    for (const Section &section : sections)
        names += QString::fromLatin1(section.name);
    for (const NamedSection &section : namedSections)
        names += QLatin1String(section.name) + QStringLiteral(":NAME");
    return names;
}
