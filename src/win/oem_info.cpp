#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr DWORD firstMajorWithOemKey = 6;

// Quirk: the values do not line up.
constexpr Value values[] = {
    {"Manufacturer", "Manufacturer:     %1"},
    {"Model", "Model:     %1"},
};

QString keyPath()
{
    return QStringLiteral("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation");
}

} // namespace

RegistryReads oemReads()
{
    return {{HKEY_LOCAL_MACHINE, keyPath(), valueNames(values)}};
}

QString oemInfoFromRegistry()
{
    QString text;
    appendLine(text, QStringLiteral("OEM Information from Registry"));
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof version;
    if (!GetVersionExA(&version)) {
        appendLine(text, QStringLiteral("GetVersionExA(&osver) failed!"));
        return text;
    }
    if (version.dwMajorVersion < firstMajorWithOemKey)
        return text;
    RegistryKey key = openKey(HKEY_LOCAL_MACHINE, keyPath(), KEY_READ | KEY_WOW64_64KEY);
    if (!key)
        return text;
    TextBuffer buffer;
    // Quirk: this key stays open. The sequence of calls is part of the fixed format.
    appendTextLines(text, key.release(), values, buffer);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
