// The Windows headers without the macros that map the name of a call to its A or W form:
// members of a machine description have these names.
#pragma once

#include <winsock2.h>

#include <windows.h>

#include <iphlpapi.h>
#include <psapi.h>
#include <shlobj.h>

#undef EnumProcessModules
#undef ExpandEnvironmentStrings
#undef GetComputerNameEx
#undef GetDiskFreeSpaceEx
#undef GetDriveType
#undef GetSystemWindowsDirectory
#undef GetSystemWow64Directory
#undef GetUserName
#undef GetVersionEx
#undef GetVolumeInformation
#undef SHGetSpecialFolderPath
