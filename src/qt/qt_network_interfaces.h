// The network interfaces section.
#pragma once

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {

/// Section "Network Interfaces Info". Needs no application object.
QString qtNetworkInterfaces();

} // namespace SystemInfo
} // namespace velkor
