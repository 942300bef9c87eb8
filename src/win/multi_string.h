// The strings of REG_MULTI_SZ data.
#pragma once

#include <QtCore/QStringList>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// The strings of \a buffer in their order, as UTF-8. The first empty string ends the list.
/// No string starts at or after \a byteCount bytes. One that starts before is read up to its
/// null, so \a buffer must have a null at or after \a byteCount.
QStringList registryMultiStringToList(const char *buffer, unsigned int byteCount);

/// The same for UTF-16 data. No string starts at or after \a count units. Quirk: callers
/// pass a count of bytes, so \a buffer must have a null at or after that many units.
QStringList registryWideMultiStringToList(const wchar_t *buffer, unsigned int count);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
