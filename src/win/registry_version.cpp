#include "win/registry_version.h"

#include "win/registry_key.h"
#include "win/windows_sections.h"

#include <QtCore/QStringList>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr const char *majorValue = "CurrentMajorVersionNumber";
constexpr const char *minorValue = "CurrentMinorVersionNumber";
constexpr const char *versionValue = "CurrentVersion";
constexpr const char *buildValue = "CurrentBuildNumber";
constexpr const char *revisionValue = "UBR";

QString keyPath()
{
    return QStringLiteral("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion");
}

/// Reads "CurrentVersion", such as "6.3". Before Windows 10 there are no number values.
bool readVersionText(HKEY key, quint32 &major, quint32 &minor)
{
    TextBuffer buffer;
    if (!buffer.query(key, versionValue))
        return false;
    const QStringList parts = buffer.text().split(QLatin1Char('.'));
    if (parts.size() != 2)
        return false;
    bool valid = false;
    major = parts.at(0).toUInt(&valid);
    if (valid)
        minor = parts.at(1).toUInt(); // 0 if it is not a number, which is not a failure
    return valid;
}

bool readMajorAndMinor(HKEY key, quint32 &major, quint32 &minor)
{
    NumberBuffer number;
    if (number.query(key, majorValue)) {
        major = number.value();
        NumberBuffer second;
        if (second.query(key, minorValue)) {
            minor = second.value();
            return true;
        }
    }
    return readVersionText(key, major, minor);
}

bool readBuild(HKEY key, quint32 &build)
{
    TextBuffer buffer;
    if (!buffer.query(key, buildValue))
        return false;
    bool valid = false;
    build = buffer.text().toUInt(&valid);
    return valid;
}

} // namespace

RegistryReads registryVersionReads()
{
    QStringList names;
    for (const char *name : {majorValue, minorValue, versionValue, buildValue, revisionValue})
        names += QString::fromLatin1(name);
    return {{HKEY_LOCAL_MACHINE, keyPath(), names}};
}

bool readRegistryVersion(quint32 &major, quint32 &minor, quint32 &build, quint32 &updateRevision,
                         bool &hasUpdateRevision)
{
    hasUpdateRevision = false;
    const RegistryKey key = openKey(HKEY_LOCAL_MACHINE, keyPath(), KEY_READ | KEY_WOW64_64KEY);
    if (!key)
        return false;
    const bool known = readMajorAndMinor(key.get(), major, minor) && readBuild(key.get(), build);
    NumberBuffer revision;
    if (revision.query(key.get(), revisionValue)) {
        updateRevision = revision.value();
        hasUpdateRevision = true;
    }
    return known;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
