#include "report/text.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

// shlobj.h wants windows.h first
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
    QString text = QStringLiteral("Special Folders: ") + newline;
    // One for all: a folder that Windows does not know repeats the one before it. The
    // report's format.
    wchar_t path[MAX_PATH] = {};
    for (const Folder &folder : folders) {
        SHGetSpecialFolderPathW(nullptr, path, folder.id, FALSE);
        text += QString::fromLatin1(folder.format).arg(wideText(path, MAX_PATH)) + newline;
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
