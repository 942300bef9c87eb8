// Products in the registry of Windows Installer, as both application sections read them.
#pragma once

#include "win/registry_key.h"
#include "win/registry_reads.h"

#include <functional>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// What the functions below read below \a path.
RegistryReads productReads(HKEY root, const QString &path);

/// Appends the lines of an open product key to \a text.
void installerProductValues(HKEY productKey, QString &text);

/// Calls \a visit for every product key below \a path that has a "ProductName", in the
/// order of the enumeration.
void forEachProduct(HKEY root, const QString &path,
                    const std::function<void(HKEY productKey, const TextBuffer &productName)> &visit);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
