#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtNetwork/QHostInfo>

namespace velkor {
namespace SystemInfo {

QString qtHostInfo()
{
    QString text;
    appendLine(text, QStringLiteral("QHostInfo"));
    appendLine(text, "Local host name:   %1", QHostInfo::localHostName());
    appendLine(text, "Local domain name: %1", QHostInfo::localDomainName());
    return text;
}

} // namespace SystemInfo
} // namespace velkor
