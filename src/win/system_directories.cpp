#include "report/text.h"
#include "win/directory_buffer.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

// "System directory" is the label of the Windows directory: the report's format.
QString windowsSystemDirectories()
{
    QString text = QStringLiteral("Windows system directories") + newline;
    DirectoryBuffer buffer;
    if (const UINT length = buffer.read(GetSystemWindowsDirectoryW)) {
        if (buffer.isTooSmall())
            text += QStringLiteral("buffer for sysDir too small, need %1").arg(length) + newline;
        text += QStringLiteral("System directory:      %1").arg(buffer.text()) + newline;
    }
    if (const UINT length = buffer.read(GetSystemWow64DirectoryW)) {
        if (buffer.isTooSmall())
            text += QStringLiteral("buffer for wow64Dir too small, need %1").arg(length) + newline;
        text += QStringLiteral("System Wow64 directory:  %1").arg(buffer.text()) + newline;
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
