// The part of shlobj.h that this project uses, for systems other than Windows.
#pragma once

#include <windows.h>

constexpr int CSIDL_PROGRAMS = 0x0002;
constexpr int CSIDL_PERSONAL = 0x0005;
constexpr int CSIDL_APPDATA = 0x001a;
constexpr int CSIDL_LOCAL_APPDATA = 0x001c;
constexpr int CSIDL_PROGRAM_FILES = 0x0026;

extern "C" {
BOOL SHGetSpecialFolderPathW(HWND owner, LPWSTR path, int folder, BOOL create);
}
