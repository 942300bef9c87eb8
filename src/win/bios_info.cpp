#include "report/text.h"
#include "win/multi_string.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

/// The strings of a multi-string below each other behind a label of 23 characters.
QString listLines(HKEY key, const char *valueName, const char *label, TextBuffer &buffer)
{
    if (!buffer.query(key, valueName))
        return QString();
    const QString valueColumn(23, QLatin1Char(' '));
    const QStringList strings = registryMultiStringToList(buffer.data(), buffer.size());
    return QString::fromLatin1(label) + strings.join(newline + valueColumn) + newline;
}

} // namespace

QString biosInfoFromRegistry()
{
    QString text = QStringLiteral("BIOS information from Registry") + newline;
    const RegistryKey key(HKEY_LOCAL_MACHINE, QStringLiteral("Hardware\\Description\\System"));
    if (!key)
        return text;
    TextBuffer buffer; // one for all values, see its note on what shows
    text += listLines(key.get(), "SystemBiosVersion", "SystemBiosVersion:     ", buffer);
    appendTextLine(text, key.get(), {"SystemBIOSDate", "SystemBIOSDate:        %1"}, buffer);
    text += listLines(key.get(), "VideoBiosVersion", "VideoBiosVersion:      ", buffer);
    appendTextLine(text, key.get(), {"VideoBIOSDate", "VideoBIOSDate:         %1"}, buffer);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
