#include "report/text.h"
#include "win/directory_buffer.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

// Quirk: "System directory" is the label of the Windows directory. A Wow64 directory that
// does not fit the buffer leaves the Windows directory in it, and that shows.
QString windowsSystemDirectories()
{
    QString text;
    appendLine(text, QStringLiteral("Windows system directories"));
    DirectoryBuffer buffer;
    if (const UINT length = buffer.read(GetSystemWindowsDirectoryW)) {
        if (buffer.isTooSmall())
            appendLine(text, QStringLiteral("buffer for sysDir too small, need %1").arg(length));
        appendLine(text, "System directory:      %1", buffer.text());
    }
    if (const UINT length = buffer.read(GetSystemWow64DirectoryW)) {
        if (buffer.isTooSmall())
            appendLine(text, QStringLiteral("buffer for wow64Dir too small, need %1").arg(length));
        appendLine(text, "System Wow64 directory:  %1", buffer.text());
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
