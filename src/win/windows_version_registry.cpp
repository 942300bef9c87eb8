#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr TextValue values[] = {
    {"ProductId", "ProductId:              %1"},
    {"EditionID", "EditionID:              %1"},
    {"ReleaseId", "ReleaseId:              %1"},
    {"DisplayVersion", "DisplayVersion:         %1"},
    {"PathName", "PathName:               %1"},
    {"ProductName", "ProductName:            %1"},
    {"RegisteredOwner", "RegisteredOwner:        %1"},
    {"RegisteredOrganization", "RegisteredOrganization: %1"},
    {"CSDVersion", "CSDVersion:             %1"},
    {"CSDBuildNumber", "CSDBuildNumber:         %1"},
};

} // namespace

QString windowsVersionFromRegistry()
{
    QString text = QStringLiteral("Windows version information from Registry") + newline;
    const RegistryKey key(HKEY_LOCAL_MACHINE, QStringLiteral("Software\\Microsoft\\Windows NT\\CurrentVersion"),
                          KEY_READ | KEY_WOW64_64KEY);
    if (!key)
        return text;
    TextBuffer buffer;
    appendTextLines(text, key.get(), values, buffer);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
