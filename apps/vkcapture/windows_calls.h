// The Windows headers without the macros that stand for the A or W form of a call: the
// fields of a machine description are named after the calls.
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
