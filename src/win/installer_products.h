// Products that Windows Installer knows, as both application sections read them.
#pragma once

#include "win/registry_key.h"

#include <functional>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// Appends the lines of an open installer product key to \a text.
void installerProductValues(HKEY productKey, QString &text);

/// Calls \a visit with every product key below \a path that has a "ProductName", and
/// with that name, in the order in which they enumerate.
void forEachProduct(HKEY root, const QString &path,
                    const std::function<void(HKEY productKey, const TextBuffer &productName)> &visit);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
