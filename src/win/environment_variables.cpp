#include "report/text.h"
#include "win/heap_buffer.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

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

constexpr DWORD bufferSize = 32768; // in units, the longest that Windows expands to

// A failure names the template by its index: the report's format.
QString expandedLine(int index, wchar_t *buffer)
{
    const DWORD count = ExpandEnvironmentStringsW(templates[index], buffer, bufferSize);
    if (count > bufferSize)
        return QStringLiteral("Expand env var %1, buffer too small, would need %2").arg(index).arg(count) + newline;
    if (count == 0)
        return QStringLiteral("Expand env var %1 failed!").arg(index) + newline;
    return wideUnits(buffer, buffer[count - 1] == 0 ? count - 1 : count) + newline;
}

} // namespace

QString someEnvironmentVariables()
{
    const HeapBuffer buffer(bufferSize * sizeof(wchar_t));
    if (!buffer) // not even the heading
        return QString();
    QString text = QStringLiteral("Some environment variables:") + newline;
    for (int i = 0; i < 5; ++i)
        text += expandedLine(i, buffer.as<wchar_t>());
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
