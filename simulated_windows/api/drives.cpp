#include "call_scope.h"
#include "text.h"

namespace simulated {
namespace {

machine::DriveRecord drive(const QString &root)
{
    return machineInUse().system.drives.value(machine::upperCased(root));
}

void note(Call &call, const char *name, const void *argument)
{
    if (argument)
        call.given += QString::fromLatin1(name);
}

} // namespace
} // namespace simulated

using namespace simulated;

UINT SetErrorMode(UINT mode)
{
    CallScope scope("SetErrorMode", {{}, QString::number(mode)});
    const UINT previous = errorMode();
    errorMode() = mode;
    return scope.success(previous);
}

DWORD GetLogicalDrives()
{
    CallScope scope("GetLogicalDrives", {});
    const auto &drives = machineInUse().system.GetLogicalDrives;
    if (scope.fault())
        return DWORD(scope.failure(*scope.fault()));
    if (!drives)
        return DWORD(scope.failure(drives.error));
    if (*drives == 0)
        return DWORD(scope.failure(ERROR_SUCCESS));
    return scope.success(*drives);
}

UINT GetDriveTypeW(LPCWSTR root)
{
    CallScope scope("GetDriveTypeW", {fromWide(root), {}});
    if (scope.fault())
        return DRIVE_UNKNOWN;
    return scope.success(drive(scope.call.key).GetDriveType.value.value_or(DRIVE_UNKNOWN));
}

BOOL GetVolumeInformationW(LPCWSTR root, LPWSTR volumeName, DWORD volumeNameSize, LPDWORD serialNumber,
                           LPDWORD maximumComponentLength, LPDWORD flags, LPWSTR fileSystemName,
                           DWORD fileSystemNameSize)
{
    CallScope scope("GetVolumeInformationW", {fromWide(root), QString::number(fileSystemNameSize)});
    note(scope.call, "serialNumber", serialNumber);
    note(scope.call, "maximumComponentLength", maximumComponentLength);
    note(scope.call, "flags", flags);
    scope.call.sizeIn = scope.call.sizeOut = volumeNameSize;
    if (scope.fault())
        return scope.failure(*scope.fault());
    const auto volume = drive(scope.call.key).GetVolumeInformation;
    if (!volume)
        return scope.failure(volume.error);
    if (DWORD(volume->volumeName.size()) >= volumeNameSize || DWORD(volume->fileSystemName.size()) >= fileSystemNameSize)
        return scope.failure(ERROR_MORE_DATA);
    copyWide(volume->volumeName, volumeName);
    copyWide(volume->fileSystemName, fileSystemName);
    return scope.success(TRUE);
}

BOOL GetDiskFreeSpaceExW(LPCWSTR root, PULARGE_INTEGER freeToCaller, PULARGE_INTEGER total, PULARGE_INTEGER totalFree)
{
    CallScope scope("GetDiskFreeSpaceExW", {fromWide(root), {}});
    note(scope.call, "totalFree", totalFree);
    if (scope.fault())
        return scope.failure(*scope.fault());
    const auto space = drive(scope.call.key).GetDiskFreeSpaceEx;
    if (!space)
        return scope.failure(space.error);
    freeToCaller->QuadPart = space->freeBytesAvailableToCaller;
    total->QuadPart = space->totalNumberOfBytes;
    return scope.success(TRUE);
}
