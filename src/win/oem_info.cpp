#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr TextValue values[] = {
    {"Manufacturer", "Manufacturer:     %1"},
    {"Model", "Model:     %1"},
};

} // namespace

QString oemInfoFromRegistry()
{
    constexpr DWORD firstMajorWithOemKey = 6;
    QString text = QStringLiteral("OEM Information from Registry") + newline;
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof version;
    if (!GetVersionExA(&version))
        return text + QStringLiteral("GetVersionExA(&osver) failed!") + newline;
    if (version.dwMajorVersion < firstMajorWithOemKey)
        return text;
    RegistryKey owner(HKEY_LOCAL_MACHINE, QStringLiteral("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation"),
                      KEY_READ | KEY_WOW64_64KEY);
    if (!owner)
        return text;
    // This one key stays open, by design: the calls of a report are as fixed as its text.
    const HKEY key = owner.release();
    TextBuffer buffer;
    appendTextLines(text, key, values, buffer);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
