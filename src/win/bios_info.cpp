#include "report/text.h"
#include "win/multi_string.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

/// The strings of a multi-string, one on each line; the label precedes the first.
void appendListLines(QString &text, HKEY key, const Value &value, TextBuffer &buffer)
{
    if (!buffer.query(key, value.name))
        return;
    const QString column(23, QLatin1Char(' ')); // as wide as the labels
    const QStringList strings = registryMultiStringToList(buffer.data(), buffer.size());
    appendLine(text, value.format, strings.join(newline + column));
}

struct BiosValue : Value
{
    void (*append)(QString &text, HKEY key, const Value &value, TextBuffer &buffer);
};

constexpr BiosValue values[] = {
    {{"SystemBiosVersion", "SystemBiosVersion:     %1"}, appendListLines},
    {{"SystemBIOSDate", "SystemBIOSDate:        %1"}, appendTextLine},
    {{"VideoBiosVersion", "VideoBiosVersion:      %1"}, appendListLines},
    {{"VideoBIOSDate", "VideoBIOSDate:         %1"}, appendTextLine},
};

QString keyPath()
{
    return QStringLiteral("Hardware\\Description\\System");
}

} // namespace

RegistryReads biosReads()
{
    return {{HKEY_LOCAL_MACHINE, keyPath(), valueNames(values)}};
}

QString biosInfoFromRegistry()
{
    QString text;
    appendLine(text, QStringLiteral("BIOS information from Registry"));
    const RegistryKey key = openKey(HKEY_LOCAL_MACHINE, keyPath());
    if (!key)
        return text;
    TextBuffer buffer; // Quirk: all values share it, so leftovers show; see TextBuffer.
    for (const BiosValue &value : values)
        value.append(text, key.get(), value, buffer);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
