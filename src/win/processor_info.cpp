#include "report/text.h"
#include "win/windows_sections.h"

#include <QtCore/QStringList>
#include <windows.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

QString architectureName(WORD architecture)
{
    switch (architecture) {
    case PROCESSOR_ARCHITECTURE_INTEL:
        return QStringLiteral("x86 (32/64bit)");
    case PROCESSOR_ARCHITECTURE_IA64:
        return QStringLiteral("IA64 (64bit)");
    case PROCESSOR_ARCHITECTURE_AMD64:
        return QStringLiteral("x64 (64bit)");
    default:
        return QStringLiteral("unknown");
    }
}

QString processorTypeName(DWORD type)
{
    switch (type) {
    case PROCESSOR_INTEL_386:
        return QStringLiteral("386");
    case PROCESSOR_INTEL_486:
        return QStringLiteral("486");
    case PROCESSOR_INTEL_PENTIUM:
        return QStringLiteral("Pentium");
    case PROCESSOR_INTEL_IA64:
        return QStringLiteral("IA64");
    case PROCESSOR_AMD_X8664:
        return QStringLiteral("AMD64");
    default:
        return QStringLiteral("unknown");
    }
}

// Quirk: further processors are not listed, although the mask has 64 bits.
constexpr int listedProcessors = 32;

void appendActiveProcessors(QString &text, DWORD_PTR mask)
{
    const QString label = QStringLiteral("Active processors:          ");
    const QString column(label.size(), QLatin1Char(' '));
    QStringList names;
    for (int bit = 0; bit < listedProcessors; ++bit) {
        if (mask >> bit & 1)
            names += QStringLiteral("Processor #%1").arg(bit);
    }
    appendLine(text, label + names.join(newline + column));
}

/// Appends \a number in decimal and, with leading zeros, in hexadecimal.
void appendBothBases(QString &text, const char *format, uint number, int hexadecimalDigits)
{
    appendLine(text, QString::fromLatin1(format).arg(number).arg(number, hexadecimalDigits, 16, QLatin1Char('0')));
}

void appendAddress(QString &text, const char *format, const void *address)
{
    const quint64 number = reinterpret_cast<quintptr>(address);
    appendLine(text, QString::fromLatin1(format).arg(number, 16, 16, QLatin1Char('0')));
}

} // namespace

// Quirk: the architecture does not line up with the other values.
QString processorInfo()
{
    QString text;
    appendLine(text, QStringLiteral("Processor information: "));
    SYSTEM_INFO info = {};
    GetSystemInfo(&info);
    appendLine(text, "Processor architecture:       %1", architectureName(info.wProcessorArchitecture));
    appendLine(text, QStringLiteral("Number of processors:       %1").arg(info.dwNumberOfProcessors));
    appendActiveProcessors(text, info.dwActiveProcessorMask);
    appendLine(text, "Processor type:             %1", processorTypeName(info.dwProcessorType));
    appendBothBases(text, "Processor revision:         %1 = 0x%2", info.wProcessorRevision, 4);
    appendLine(text, QStringLiteral("Processor level:            %1").arg(uint(info.wProcessorLevel)));
    appendLine(text, QStringLiteral("Page size:                  %1").arg(info.dwPageSize));
    appendAddress(text, "Minimum Application Address 0x%1", info.lpMinimumApplicationAddress);
    appendAddress(text, "Maximum Application Address 0x%1", info.lpMaximumApplicationAddress);
    appendBothBases(text, "Allocation Granularity:     %1 = 0x%2", info.dwAllocationGranularity, 8);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
