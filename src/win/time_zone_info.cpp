#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

// Minutes, signed: negative east of Greenwich.
constexpr Value biases[] = {
    {"ActiveTimeBias", "ActiveTimeBias: %1 min (offset to UTC)"},
    {"Bias", "Bias:           %1 min (offset to UTC)"},
    {"DaylightBias", "DaylightBias:   %1 min (additional offset if daylight saving is active)"},
    {"StandardBias", "StandardBias:   %1 min (additional offset if no daylight saving is active)"},
};

constexpr Value names[] = {
    {"DaylightName", "DaylightName:   %1"},
    {"StandardName", "StandardName:   %1"},
};

QString keyPath()
{
    return QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\TimeZoneInformation");
}

} // namespace

RegistryReads timeZoneReads()
{
    return {{HKEY_LOCAL_MACHINE, keyPath(), valueNames(biases) + valueNames(names)}};
}

QString timeZoneInfoFromRegistry()
{
    QString text;
    appendLine(text, QStringLiteral("Time Zone information from Registry"));
    const RegistryKey key = openKey(HKEY_LOCAL_MACHINE, keyPath());
    if (!key)
        return text;
    NumberBuffer number;
    appendSignedLines(text, key.get(), biases, number);
    TextBuffer buffer;
    appendTextLines(text, key.get(), names, buffer);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
