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

// Quirk: the labels do not line up, and two have no colon.
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
    constexpr DWORD bufferSize = 16; // in units. Quirk: a longer name has no line.
    QString text;
    appendLine(text, QStringLiteral("Computer name"));
    for (const NameFormat &name : nameFormats) {
        wchar_t buffer[bufferSize] = {};
        DWORD size = bufferSize;
        if (GetComputerNameExW(name.format, buffer, &size))
            appendLine(text, name.line, wideUnits(buffer, std::min(size, bufferSize)));
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
