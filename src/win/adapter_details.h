// What Windows lists about a network adapter.
#pragma once

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// The description of the adapter with the interface index \a index; empty if there is none.
QString adapterDescription(quint32 index);

/// The lines about gateways, DHCP, leases and WINS of the adapter with the interface index
/// \a index; empty if there is none.
QString adapterDetails(quint32 index);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
