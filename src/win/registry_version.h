// The Windows version numbers in the registry.
#pragma once

#include <QtCore/QtGlobal>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// The numbers of readRegistryVersion(). A number that cannot be read is 0.
struct RegistryVersion
{
    quint32 major = 0;
    quint32 minor = 0;
    quint32 build = 0;
    quint32 updateRevision = 0;
    bool hasUpdateRevision = false;
};

/// Reads "CurrentMajorVersionNumber" and the other numbers. Returns false if the version or
/// the build cannot be read; numbers read before that stay stored.
bool readRegistryVersion(quint32 &major, quint32 &minor, quint32 &build, quint32 &updateRevision,
                         bool &hasUpdateRevision);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
