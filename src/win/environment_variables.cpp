#include "report/text.h"
#include "win/heap_buffer.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

#include <iterator>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr const wchar_t *templates[] = {
    L"OS       = %OS%",
    L"PATH     = %PATH%",
    L"HOMEPATH = %HOMEPATH%",
    L"TEMP     = %TEMP%",
    L"PROCESSOR_IDENTIFIER = %PROCESSOR_IDENTIFIER%",
};

constexpr DWORD bufferSize = 32768; // in units; the longest result of ExpandEnvironmentStrings

// Quirk: a failure names the template by its index.
QString expanded(int index, wchar_t *buffer)
{
    const DWORD count = ExpandEnvironmentStringsW(templates[index], buffer, bufferSize);
    if (count > bufferSize)
        return QStringLiteral("Expand env var %1, buffer too small, would need %2").arg(index).arg(count);
    if (count == 0)
        return QStringLiteral("Expand env var %1 failed!").arg(index);
    return wideUnits(buffer, buffer[count - 1] == 0 ? count - 1 : count);
}

} // namespace

QString someEnvironmentVariables()
{
    const HeapBuffer buffer(bufferSize * sizeof(wchar_t));
    if (!buffer) // Quirk: without memory the section lacks its heading too.
        return QString();
    QString text;
    appendLine(text, QStringLiteral("Some environment variables:"));
    for (int i = 0; i < int(std::size(templates)); ++i)
        appendLine(text, expanded(i, buffer.as<wchar_t>()));
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
