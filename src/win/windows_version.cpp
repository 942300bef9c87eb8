#include "report/text.h"
#include "vkSystemInfo.h"
#include "win/registry_version.h"
#include "win/release_name.h"
#include "win/windows_sections.h"

#include <windows.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

using GetProductInfoFunction = BOOL(WINAPI *)(DWORD, DWORD, DWORD, DWORD, PDWORD);

/// Looked up at run time: Windows before 6.0 does not export it.
GetProductInfoFunction getProductInfoFunction()
{
    const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
    if (!kernel)
        return nullptr;
    return reinterpret_cast<GetProductInfoFunction>(reinterpret_cast<void *>(GetProcAddress(kernel, "GetProductInfo")));
}

std::optional<quint32> editionCode(quint32 major, quint32 minor)
{
    const GetProductInfoFunction getProductInfo = getProductInfoFunction();
    if (!getProductInfo)
        return std::nullopt;
    DWORD code = 0; // unchanged if the call fails
    getProductInfo(major, minor, 0, 0, &code);
    return quint32(code);
}

bool getVersion(OSVERSIONINFOEXA &version)
{
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExA(reinterpret_cast<LPOSVERSIONINFOA>(&version));
}

void getVersion(OSVERSIONINFOEXW &version)
{
    version.dwOSVersionInfoSize = sizeof version;
    GetVersionExW(reinterpret_cast<LPOSVERSIONINFOW>(&version)); // if it fails, the zeros stay
}

void appendVersionNumbers(QString &text, const OSVERSIONINFOEXA &version, const RegistryVersion &registry,
                          bool registryKnown)
{
    appendLine(text, QStringLiteral("Version (major.minor.build): "));
    const QString line = QStringLiteral("From GetVersionEx: %1.%2.%3")
                             .arg(version.dwMajorVersion)
                             .arg(version.dwMinorVersion)
                             .arg(version.dwBuildNumber);
    appendLine(text, line);
    if (!registryKnown)
        return;
    QString registryLine = QStringLiteral("From registry:     %1.%2.%3").arg(registry.major).arg(registry.minor).arg(registry.build);
    if (registry.hasUpdateRevision)
        registryLine += QStringLiteral(".%1").arg(registry.updateRevision);
    appendLine(text, registryLine);
}

/// Quirk: later releases have editions too, and the report does not name them.
bool hasEditionCode(quint32 major, quint32 minor)
{
    return major == 6 && minor <= 2;
}

ReleaseFacts releaseFacts(const OSVERSIONINFOEXA &version, const OSVERSIONINFOEXW &wideVersion,
                          const SYSTEM_INFO &system, const RegistryVersion &registry)
{
    ReleaseFacts facts;
    facts.major = version.dwMajorVersion;
    facts.minor = version.dwMinorVersion;
    facts.servicePack = QString::fromUtf8(version.szCSDVersion);
    facts.suiteMask = wideVersion.wSuiteMask;
    facts.productType = wideVersion.wProductType;
    facts.architecture = system.wProcessorArchitecture;
    facts.registry = registry;
    if (facts.major == 5 && facts.minor == 2)
        facts.isServerR2 = GetSystemMetrics(SM_SERVERR2) != 0;
    if (hasEditionCode(facts.major, facts.minor))
        facts.editionCode = editionCode(facts.major, facts.minor);
    return facts;
}

} // namespace

QString windowsVersion(bool detailed)
{
    QString text;
    appendLine(text, QStringLiteral("Windows version: "));
    SYSTEM_INFO system = {};
    GetSystemInfo(&system);
    OSVERSIONINFOEXA version = {};
    if (!getVersion(version)) {
        if (!detailed)
            return QStringLiteral("Windows");
        appendLine(text, QStringLiteral("GetVersionExA(&osver) failed!"));
        return text;
    }
    OSVERSIONINFOEXW wideVersion = {};
    getVersion(wideVersion);
    RegistryVersion registry;
    const bool registryKnown = readRegistryVersion(registry.major, registry.minor, registry.build,
                                                   registry.updateRevision, registry.hasUpdateRevision);
    const ReleaseFacts facts = releaseFacts(version, wideVersion, system, registry);
    if (!detailed)
        return releaseName(facts);
    appendVersionNumbers(text, version, registry, registryKnown);
    const QString column(19, QLatin1Char(' ')); // below the version numbers
    appendLine(text, column + releaseName(facts));
    appendLine(text, "Last service pack installed: %1", facts.servicePack);
    return text;
}

} // namespace WinSysInfo

QString platformName()
{
    return detached(WinSysInfo::windowsVersion(false));
}

} // namespace SystemInfo
} // namespace velkor
