#pragma once

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// \a bytes as GByte, MByte, KByte or Byte: in the largest unit of which it has at least one.
/// The only decimal digit is truncated, not rounded: 1610612735 is "1.4 GByte".
QString formatByteSize(quint64 bytes);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
