#include "report/text.h"
#include "win/windows_sections.h"

#include <windows.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

QString registryQuota()
{
    QString text = QStringLiteral("Registry quota:") + newline;
    DWORD allowed = 0;
    DWORD used = 0;
    if (GetSystemRegistryQuota(&allowed, &used)) {
        text += QStringLiteral("Used [bytes]:           %1").arg(used) + newline;
        text += QStringLiteral("Allowed [bytes]:        %1").arg(allowed) + newline;
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
