// What Windows lists about a network adapter.
#pragma once

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// The adapter's name for people; empty if no adapter has the interface index \a index.
QString adapterDescription(quint32 index);

/// The lines about gateways, DHCP, leases and WINS of the adapter of the interface index
/// \a index; empty if there is none.
QString adapterDetails(quint32 index);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
