#include "report/text.h"
#include "win/format_byte_size.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

#include <iterator>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

/// Indexed by the result of GetDriveType. Quirk: the names end with blanks.
constexpr const char *driveTypeNames[] = {
    "", // DRIVE_UNKNOWN
    "no root dir mounted  ",
    "removable media      ",
    "fixed drive          ",
    "remote/network drive ",
    "CD/DVD drive         ",
    "RAM disk drive       ",
};

QString driveTypeName(UINT type)
{
    return type < std::size(driveTypeNames) ? QString::fromLatin1(driveTypeNames[type]) : QString();
}

// The file system precedes the label.
QString volumeText(const wchar_t *root)
{
    wchar_t volumeName[MAX_PATH] = {};
    wchar_t fileSystemName[MAX_PATH] = {};
    if (!GetVolumeInformationW(root, volumeName, MAX_PATH, nullptr, nullptr, nullptr, fileSystemName, MAX_PATH))
        return QString();
    return wideText(fileSystemName, MAX_PATH) + QStringLiteral("  ") + wideText(volumeName, MAX_PATH) + QStringLiteral("  ");
}

QString spaceText(const wchar_t *root)
{
    ULARGE_INTEGER freeToCaller = {};
    ULARGE_INTEGER total = {};
    if (!GetDiskFreeSpaceExW(root, &freeToCaller, &total, nullptr))
        return QString();
    return QStringLiteral("Free: %1").arg(formatByteSize(freeToCaller.QuadPart)) + QStringLiteral(" ")
        + QStringLiteral("Total: %1").arg(formatByteSize(total.QuadPart)) + QStringLiteral(" ");
}

void appendDriveLine(QString &text, int index)
{
    wchar_t root[sizeof "A:\\"] = {};
    wsprintfW(root, L"%c:\\", L'A' + index);
    QString line = wideText(root, DWORD(std::size(root))) + QStringLiteral(" ");
    line += driveTypeName(GetDriveTypeW(root));
    line += volumeText(root);
    line += spaceText(root);
    appendLine(text, line);
}

void appendDriveLines(QString &text, DWORD drives)
{
    for (int index = 0; drives; ++index, drives >>= 1) {
        if (drives & 1)
            appendDriveLine(text, index);
    }
}

} // namespace

QString diskInformation()
{
    SetErrorMode(SEM_FAILCRITICALERRORS); // no dialog box that asks for a disk
    QString text;
    appendLine(text, QStringLiteral("Disk information: "));
    const DWORD drives = GetLogicalDrives();
    if (drives == 0)
        append(text, QStringLiteral("Failed GetLogicalDrives(), error = %1").arg(GetLastError())); // Quirk: no line end
    else
        appendDriveLines(text, drives);
    SetErrorMode(0); // Quirk: sets the default mode, not the previous one.
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
