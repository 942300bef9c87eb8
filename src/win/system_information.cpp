#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr TextValue textValues[] = {
    {"BIOSReleaseDate", "BIOSReleaseDate:     %1"},
    {"BIOSVersion", "BIOSVersion:         %1"},
    {"SystemManufacturer", "SystemManufacturer:  %1"},
    {"SystemProductName", "SystemProductName:   %1"},
};

// The blank at the end is the report's format and must stay.
constexpr TextValue informationSource = {"InformationSource", "InformationSource:   %1 "};

} // namespace

QString systemInformationFromRegistry()
{
    QString text = QStringLiteral("SystemInformation from Registry") + newline;
    const RegistryKey key(HKEY_LOCAL_MACHINE, QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\SystemInformation"));
    if (!key)
        return text;
    TextBuffer buffer;
    NumberBuffer number;
    appendTextLines(text, key.get(), textValues, buffer);
    appendSignedLine(text, key.get(), informationSource, number);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
