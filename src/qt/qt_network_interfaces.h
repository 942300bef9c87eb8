// The network interfaces section.
#pragma once

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {

/// Section "Network Interfaces Info". Needs no application object.
QString qtNetworkInterfaces();

/// What Windows tells of the adapter of that interface index: gateways, DHCP, leases
/// and WINS. Empty when it knows no such adapter.
QString adapterDetails(quint32 index);

/// A lease time, seconds since 1970, as the local date and time with its line end.
QString formatLeaseTime(qint64 time);

} // namespace SystemInfo
} // namespace velkor
