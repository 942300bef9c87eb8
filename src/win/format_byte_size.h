#pragma once

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// A count of bytes in the largest binary unit that it reaches, with one digit after
/// the point that is cut, never rounded: 1610612735 is "1.4 GByte".
QString formatByteSize(quint64 bytes);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
