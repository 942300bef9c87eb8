#include "report/text.h"
#include "win/format_byte_size.h"
#include "win/windows_sections.h"

#include <windows.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

struct MemoryField
{
    DWORDLONG MEMORYSTATUSEX::*field;
    const char *format;
};

constexpr MemoryField fields[] = {
    {&MEMORYSTATUSEX::ullTotalPhys, "TotalPhys:             %1 Byte = %2"},
    {&MEMORYSTATUSEX::ullAvailPhys, "AvailPhys:             %1 Byte = %2"},
    {&MEMORYSTATUSEX::ullTotalPageFile, "TotalPageFile:         %1 Byte = %2"},
    {&MEMORYSTATUSEX::ullAvailPageFile, "AvailPageFile:         %1 Byte = %2"},
    {&MEMORYSTATUSEX::ullTotalVirtual, "TotalVirtual:          %1 Byte = %2"},
    {&MEMORYSTATUSEX::ullAvailVirtual, "AvailVirtual:          %1 Byte = %2"},
};

} // namespace

QString memoryInfo()
{
    QString text;
    appendLine(text, QStringLiteral("Memory Information:"));
    MEMORYSTATUSEX status = {};
    status.dwLength = sizeof status;
    if (!GlobalMemoryStatusEx(&status))
        return text;
    appendLine(text, QStringLiteral("MemoryLoad:            %1%").arg(status.dwMemoryLoad));
    for (const MemoryField &field : fields) {
        const quint64 bytes = status.*field.field;
        appendLine(text, QString::fromLatin1(field.format).arg(bytes).arg(formatByteSize(bytes)));
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
