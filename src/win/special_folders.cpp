#include "report/text.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

// windows.h must precede shlobj.h
#include <shlobj.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

struct Folder
{
    int id;
    const char *format;
};

constexpr Folder folders[] = {
    {CSIDL_PERSONAL, "CSIDL_PERSONAL    %1"},
    {CSIDL_PROGRAMS, "CSIDL_PROGRAMS    %1"},
    {CSIDL_PROGRAM_FILES, "CSIDL_PROGRAM_FILES    %1"},
    {CSIDL_LOCAL_APPDATA, "CSIDL_LOCAL_APPDATA    %1"},
    {CSIDL_APPDATA, "CSIDL_APPDATA    %1"},
};

} // namespace

QString specialFolders()
{
    QString text;
    appendLine(text, QStringLiteral("Special Folders: "));
    wchar_t path[MAX_PATH] = {}; // Quirk: if a query fails, the previous folder shows again.
    for (const Folder &folder : folders) {
        SHGetSpecialFolderPathW(nullptr, path, folder.id, FALSE);
        appendLine(text, folder.format, wideText(path, MAX_PATH));
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
