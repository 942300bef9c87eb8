#include "report/text.h"
#include "win/windows_sections.h"

#include <windows.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

QString architectureName(WORD architecture)
{
    switch (architecture) {
    case 0:
        return QStringLiteral("x86 (32/64bit)");
    case 6:
        return QStringLiteral("IA64 (64bit)");
    case 9:
        return QStringLiteral("x64 (64bit)");
    default:
        return QStringLiteral("unknown");
    }
}

QString processorTypeName(DWORD type)
{
    switch (type) {
    case 386:
        return QStringLiteral("386");
    case 486:
        return QStringLiteral("486");
    case 586:
        return QStringLiteral("Pentium");
    case 2200:
        return QStringLiteral("IA64");
    case 8664:
        return QStringLiteral("AMD64");
    default:
        return QStringLiteral("unknown");
    }
}

// Processors beyond the low 32 bits are never listed: a fixed limit of the report.
QString activeProcessors(DWORD_PTR mask)
{
    QString text = QStringLiteral("Active processors:          ");
    bool first = true;
    for (int bit = 0; bit < 32; ++bit) {
        if (!(mask >> bit & 1))
            continue;
        if (!first)
            text += QString(28, QLatin1Char(' '));
        text += QStringLiteral("Processor #%1").arg(bit) + newline;
        first = false;
    }
    return first ? text + newline : text;
}

QString address(const char *format, const void *value)
{
    return QString::fromLatin1(format).arg(quint64(reinterpret_cast<quintptr>(value)), 16, 16, QLatin1Char('0')) + newline;
}

} // namespace

QString processorInfo()
{
    QString text = QStringLiteral("%1 ").arg(QStringLiteral("Processor information:")) + newline;
    SYSTEM_INFO info = {};
    GetSystemInfo(&info);
    const uint revision = info.wProcessorRevision;
    const uint granularity = info.dwAllocationGranularity;
    text += QStringLiteral("Processor architecture:       ") + architectureName(info.wProcessorArchitecture) + newline;
    text += QStringLiteral("%1       %2").arg(QStringLiteral("Number of processors:")).arg(info.dwNumberOfProcessors) + newline;
    text += activeProcessors(info.dwActiveProcessorMask);
    text += QStringLiteral("Processor type:             ") + processorTypeName(info.dwProcessorType) + newline;
    text += QStringLiteral("%1         %2 = 0x%3")
                .arg(QStringLiteral("Processor revision:"))
                .arg(revision)
                .arg(revision, 4, 16, QLatin1Char('0'))
        + newline;
    text += QStringLiteral("Processor level:            %1").arg(uint(info.wProcessorLevel)) + newline;
    text += QStringLiteral("Page size:                  %1").arg(info.dwPageSize) + newline;
    text += address("Minimum Application Address 0x%1", info.lpMinimumApplicationAddress);
    text += address("Maximum Application Address 0x%1", info.lpMaximumApplicationAddress);
    text += QStringLiteral("Allocation Granularity:     %1 = 0x%2")
                .arg(granularity)
                .arg(granularity, 8, 16, QLatin1Char('0'))
        + newline;
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
