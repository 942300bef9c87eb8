// Names Windows releases by their version facts; queries nothing.
#pragma once

#include "win/registry_version.h"

#include <QtCore/QString>
#include <optional>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// Everything that the name of a release depends on.
struct ReleaseFacts
{
    quint32 major = 0; // of GetVersionExA
    quint32 minor = 0;
    QString servicePack;      // szCSDVersion of GetVersionExA
    quint16 suiteMask = 0;    // VER_SUITE_*, of GetVersionExW
    quint8 productType = 0;   // VER_NT_*, of GetVersionExW
    quint16 architecture = 0; // PROCESSOR_ARCHITECTURE_*, of GetSystemInfo
    bool isServerR2 = false;  // GetSystemMetrics(SM_SERVERR2)
    RegistryVersion registry;
    std::optional<quint32> editionCode; // PRODUCT_*, of GetProductInfo; none if it is not exported
};

/// Such as "Windows 10 Professional Edition, 64-bit".
QString releaseName(const ReleaseFacts &facts);

/// The name of a PRODUCT_* code; an unknown code in hexadecimal.
QString productTypeName(quint32 editionCode);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
