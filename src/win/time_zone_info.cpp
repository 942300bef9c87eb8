#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

// Minutes, signed: negative east of Greenwich.
constexpr TextValue biases[] = {
    {"ActiveTimeBias", "ActiveTimeBias: %1 min (offset to UTC)"},
    {"Bias", "Bias:           %1 min (offset to UTC)"},
    {"DaylightBias", "DaylightBias:   %1 min (additional offset if daylight saving is active)"},
    {"StandardBias", "StandardBias:   %1 min (additional offset if no daylight saving is active)"},
};

constexpr TextValue names[] = {
    {"DaylightName", "DaylightName:   %1"},
    {"StandardName", "StandardName:   %1"},
};

} // namespace

QString timeZoneInfoFromRegistry()
{
    QString text = QStringLiteral("Time Zone information from Registry") + newline;
    const RegistryKey key(HKEY_LOCAL_MACHINE, QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\TimeZoneInformation"));
    if (!key)
        return text;
    NumberBuffer number;
    for (const TextValue &bias : biases)
        appendSignedLine(text, key.get(), bias, number);
    TextBuffer buffer;
    appendTextLines(text, key.get(), names, buffer);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
