#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtNetwork/QHostInfo>

namespace velkor {
namespace SystemInfo {

QString qtHostInfo()
{
    return QStringLiteral("QHostInfo") + newline
        + QStringLiteral("Local host name:   %1").arg(QHostInfo::localHostName()) + newline
        + QStringLiteral("Local domain name: %1").arg(QHostInfo::localDomainName()) + newline;
}

} // namespace SystemInfo
} // namespace velkor
