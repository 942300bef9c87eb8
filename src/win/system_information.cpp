#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr Value textValues[] = {
    {"BIOSReleaseDate", "BIOSReleaseDate:     %1"},
    {"BIOSVersion", "BIOSVersion:         %1"},
    {"SystemManufacturer", "SystemManufacturer:  %1"},
    {"SystemProductName", "SystemProductName:   %1"},
};

// Quirk: the line ends with a blank.
constexpr Value numberValues[] = {
    {"InformationSource", "InformationSource:   %1 "},
};

QString keyPath()
{
    return QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\SystemInformation");
}

} // namespace

RegistryReads systemInformationReads()
{
    return {{HKEY_LOCAL_MACHINE, keyPath(), valueNames(textValues) + valueNames(numberValues)}};
}

QString systemInformationFromRegistry()
{
    QString text;
    appendLine(text, QStringLiteral("SystemInformation from Registry"));
    const RegistryKey key = openKey(HKEY_LOCAL_MACHINE, keyPath());
    if (!key)
        return text;
    TextBuffer buffer;
    appendTextLines(text, key.get(), textValues, buffer);
    NumberBuffer number;
    appendSignedLines(text, key.get(), numberValues, number);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
