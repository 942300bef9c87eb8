#include "report/text.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

#include <algorithm>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

QString userName()
{
    constexpr DWORD bufferSize = 256; // in units; with a longer name the call fails
    wchar_t buffer[bufferSize] = {};
    DWORD count = bufferSize;
    if (!GetUserNameW(buffer, &count))
        return QString();
    count = std::min(count, bufferSize);
    if (count > 0 && buffer[count - 1] == 0)
        --count; // the count includes the terminator
    QString text;
    appendLine(text, "User name:                    %1", wideUnits(buffer, count));
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
