// DHCP lease times as text.
#pragma once

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// \a time, in seconds since 1970, as the local date and time with a line end. If the
/// run-time library cannot convert it, the number in hexadecimal.
QString formatLeaseTime(qint64 time);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
