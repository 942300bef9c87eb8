// The part of psapi.h that this project uses, for systems other than Windows.
#pragma once

#include <windows.h>

extern "C" {
BOOL EnumProcessModules(HANDLE process, HMODULE *modules, DWORD bytes, LPDWORD bytesNeeded);
DWORD GetModuleFileNameExW(HANDLE process, HMODULE module, LPWSTR name, DWORD size);
}
