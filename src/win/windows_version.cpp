#include "win/windows_version.h"

#include "report/text.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

#include <QtCore/QStringList>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

using GetProductInfoFunction = BOOL(WINAPI *)(DWORD, DWORD, DWORD, DWORD, PDWORD);

/// Windows before 6.0 does not export it, so it is never linked.
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
    DWORD code = 0; // stays so when the call fails
    getProductInfo(major, minor, 0, 0, &code);
    return quint32(code);
}

/// "CurrentVersion", two numbers with a dot between them, as before Windows 10.
bool readVersionText(HKEY key, quint32 &major, quint32 &minor)
{
    TextBuffer buffer;
    if (!buffer.query(key, "CurrentVersion"))
        return false;
    const QStringList parts = buffer.text().split(QLatin1Char('.'));
    if (parts.size() != 2)
        return false;
    bool valid = false;
    major = parts.at(0).toUInt(&valid);
    if (valid)
        minor = parts.at(1).toUInt(); // 0 where it is no number, which is no failure
    return valid;
}

bool readMajorAndMinor(HKEY key, quint32 &major, quint32 &minor)
{
    NumberBuffer number;
    if (number.query(key, "CurrentMajorVersionNumber")) {
        major = number.value();
        NumberBuffer second;
        if (second.query(key, "CurrentMinorVersionNumber")) {
            minor = second.value();
            return true;
        }
    }
    return readVersionText(key, major, minor);
}

bool readBuild(HKEY key, quint32 &build)
{
    TextBuffer buffer;
    if (!buffer.query(key, "CurrentBuildNumber"))
        return false;
    bool valid = false;
    build = buffer.text().toUInt(&valid);
    return valid;
}

bool getVersion(OSVERSIONINFOEXA &version)
{
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExA(reinterpret_cast<LPOSVERSIONINFOA>(&version));
}

void getVersion(OSVERSIONINFOEXW &version)
{
    version.dwOSVersionInfoSize = sizeof version;
    GetVersionExW(reinterpret_cast<LPOSVERSIONINFOW>(&version)); // a failure leaves zeros
}

QString numbersBlock(const OSVERSIONINFOEXA &version, const RegistryVersion &registry, bool registryKnown)
{
    QString text = QStringLiteral("Version (major.minor.build): ") + newline;
    text += QStringLiteral("From GetVersionEx: %1.%2.%3")
                .arg(version.dwMajorVersion)
                .arg(version.dwMinorVersion)
                .arg(version.dwBuildNumber)
        + newline;
    if (!registryKnown)
        return text;
    text += QStringLiteral("From registry:     %1.%2.%3").arg(registry.major).arg(registry.minor).arg(registry.build);
    if (registry.hasUpdateRevision)
        text += QStringLiteral(".%1").arg(registry.updateRevision);
    return text + newline;
}

/// Only these releases have editions that Windows itself names.
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

bool readRegistryVersion(quint32 &major, quint32 &minor, quint32 &build, quint32 &updateRevision,
                         bool &hasUpdateRevision)
{
    hasUpdateRevision = false;
    const RegistryKey key(HKEY_LOCAL_MACHINE, QStringLiteral("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion"),
                          KEY_READ | KEY_WOW64_64KEY);
    if (!key)
        return false;
    const bool known = readMajorAndMinor(key.get(), major, minor) && readBuild(key.get(), build);
    NumberBuffer revision;
    if (revision.query(key.get(), "UBR")) {
        updateRevision = revision.value();
        hasUpdateRevision = true;
    }
    return known;
}

QString windowsVersion(bool detailed)
{
    QString text = QStringLiteral("Windows version: ") + newline;
    SYSTEM_INFO system = {};
    GetSystemInfo(&system);
    OSVERSIONINFOEXA version = {};
    if (!getVersion(version)) {
        if (!detailed)
            return QStringLiteral("Windows");
        return text + QStringLiteral("GetVersionExA(&osver) failed!") + newline;
    }
    OSVERSIONINFOEXW wideVersion = {};
    getVersion(wideVersion);
    RegistryVersion registry;
    const bool registryKnown = readRegistryVersion(registry.major, registry.minor, registry.build,
                                                   registry.updateRevision, registry.hasUpdateRevision);
    const ReleaseFacts facts = releaseFacts(version, wideVersion, system, registry);
    if (!detailed)
        return releaseName(facts);
    return text + numbersBlock(version, registry, registryKnown)
        + QString(19, QLatin1Char(' ')) + releaseName(facts) + newline
        + QStringLiteral("Last service pack installed: ") + facts.servicePack + newline;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
