// The strings of REG_MULTI_SZ data.
#pragma once

#include <QtCore/QStringList>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// The strings of \a buffer in their order, each as UTF-8. The first empty string
/// ends the list. One that starts below \a byteCount is taken whole, so there must
/// be a null at or behind that place.
QStringList registryMultiStringToList(const char *buffer, unsigned int byteCount);

/// The same for UTF-16 data. \a count bounds the place of a string in units, although
/// callers have a count of bytes: \a buffer must have a null at or behind that place.
QStringList registryWideMultiStringToList(const wchar_t *buffer, unsigned int count);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
