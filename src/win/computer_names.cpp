#include "report/text.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

#include <algorithm>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

struct NameFormat
{
    COMPUTER_NAME_FORMAT format;
    const char *line;
};

// The labels do not line up, and two have no colon: the report's format.
constexpr NameFormat nameFormats[] = {
    {ComputerNameNetBIOS, "NetBios name:                 %1"},
    {ComputerNamePhysicalNetBIOS, "Physical NetBios name:        %1"},
    {ComputerNameDnsDomain, "DNS domain:           %1"},
    {ComputerNamePhysicalDnsDomain, "Physical DNS domain:   %1"},
    {ComputerNameDnsFullyQualified, "DNS fully qualified:          %1"},
    {ComputerNamePhysicalDnsFullyQualified, "Physical DNS fully qualified: %1"},
    {ComputerNameDnsHostname, "hostname                      %1"},
    {ComputerNamePhysicalDnsHostname, "Physical hostname             %1"},
};

} // namespace

QString computerNames()
{
    constexpr DWORD bufferSize = 16; // in units; longer names have no line, a fixed limit of the report
    QString text = QStringLiteral("Computer name") + newline;
    for (const NameFormat &name : nameFormats) {
        wchar_t buffer[bufferSize] = {};
        DWORD size = bufferSize;
        if (GetComputerNameExW(name.format, buffer, &size))
            text += QString::fromLatin1(name.line).arg(wideUnits(buffer, std::min(size, bufferSize))) + newline;
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
