#include "report/text.h"
#include "win/windows_sections.h"

#include <windows.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

QString registryQuota()
{
    QString text;
    appendLine(text, QStringLiteral("Registry quota:"));
    DWORD allowed = 0;
    DWORD used = 0;
    if (GetSystemRegistryQuota(&allowed, &used)) {
        appendLine(text, QStringLiteral("Used [bytes]:           %1").arg(used));
        appendLine(text, QStringLiteral("Allowed [bytes]:        %1").arg(allowed));
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
