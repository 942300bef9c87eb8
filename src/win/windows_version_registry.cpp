#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr Value values[] = {
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

QString keyPath()
{
    return QStringLiteral("Software\\Microsoft\\Windows NT\\CurrentVersion");
}

} // namespace

RegistryReads windowsVersionReads()
{
    return {{HKEY_LOCAL_MACHINE, keyPath(), valueNames(values)}};
}

QString windowsVersionFromRegistry()
{
    QString text;
    appendLine(text, QStringLiteral("Windows version information from Registry"));
    const RegistryKey key = openKey(HKEY_LOCAL_MACHINE, keyPath(), KEY_READ | KEY_WOW64_64KEY);
    if (!key)
        return text;
    TextBuffer buffer;
    appendTextLines(text, key.get(), values, buffer);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
