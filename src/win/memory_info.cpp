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
    QString text = QStringLiteral("Memory Information:") + newline;
    MEMORYSTATUSEX status = {};
    status.dwLength = sizeof status;
    if (!GlobalMemoryStatusEx(&status))
        return text;
    text += QStringLiteral("MemoryLoad:            %1%").arg(status.dwMemoryLoad) + newline;
    for (const MemoryField &field : fields) {
        const quint64 bytes = status.*field.field;
        text += QString::fromLatin1(field.format).arg(bytes).arg(formatByteSize(bytes)) + newline;
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
