#include "report/text.h"
#include "win/format_byte_size.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

/// By the number that GetDriveType gives; the blanks at the end are the format's.
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
    return type < sizeof driveTypeNames / sizeof *driveTypeNames ? QString::fromLatin1(driveTypeNames[type]) : QString();
}

// The file system comes before the label, although the call delivers it last.
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

QString driveLine(int index)
{
    wchar_t root[4] = {};
    wsprintfW(root, L"%c:\\", L'A' + index);
    QString text = wideText(root, 4) + QStringLiteral(" ");
    text += driveTypeName(GetDriveTypeW(root));
    text += volumeText(root);
    text += spaceText(root);
    return text + newline;
}

QString driveLines(DWORD drives)
{
    QString text;
    for (int index = 0; drives; ++index, drives >>= 1) {
        if (drives & 1)
            text += driveLine(index);
    }
    return text;
}

} // namespace

QString diskInformation()
{
    SetErrorMode(SEM_FAILCRITICALERRORS); // an empty drive must not ask for a disk
    QString text = QStringLiteral("Disk information: ") + newline;
    const DWORD drives = GetLogicalDrives();
    if (drives == 0) // the line is not ended: the report's format
        text += QStringLiteral("Failed GetLogicalDrives(), error = %1").arg(GetLastError());
    else
        text += driveLines(drives);
    SetErrorMode(0); // the default, not what it was: the report's calls are fixed
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
