// The names of Windows releases, decided from numbers alone.
#pragma once

#include <QtCore/QString>
#include <optional>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// The version numbers that the registry holds. Those that could not be read are 0.
struct RegistryVersion
{
    quint32 major = 0;
    quint32 minor = 0;
    quint32 build = 0;
    quint32 updateRevision = 0;
    bool hasUpdateRevision = false;
};

/// Everything that the name of a release depends on.
struct ReleaseFacts
{
    quint32 major = 0; // from GetVersionExA
    quint32 minor = 0;
    QString servicePack;   // szCSDVersion of the same call
    quint16 suiteMask = 0; // from GetVersionExW
    quint8 productType = 0;
    quint16 architecture = 0; // from GetSystemInfo
    bool isServerR2 = false;  // GetSystemMetrics(SM_SERVERR2)
    RegistryVersion registry;
    std::optional<quint32> editionCode; // from GetProductInfo; not given where that is not exported
};

/// Such as "Windows 10 Professional Edition, 64-bit".
QString releaseName(const ReleaseFacts &facts);

/// The name of a GetProductInfo code; hexadecimal when it is not known.
QString productTypeName(quint32 editionCode);

/// Reads "CurrentMajorVersionNumber" and so on. False when the build or the version
/// cannot be read; what was read before that stays stored.
bool readRegistryVersion(quint32 &major, quint32 &minor, quint32 &build, quint32 &updateRevision,
                         bool &hasUpdateRevision);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
