// The part of windows.h that this project uses, for systems other than Windows.
//
// The sizes of types, layouts of structures and values of constants are those of 64-bit
// Windows. Only calls that simulated_windows/api/ defines are declared here: a section that
// uses another call does not compile.
#pragma once

// These headers use names that no_wide_c_library.h poisons.
#include <QtCore/QString>
#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <string>
#include <string_view>

static_assert(sizeof(wchar_t) == 2, "build with -fshort-wchar: WCHAR has two bytes on Windows");

#define WINAPI
#define CALLBACK
#define TRUE 1
#define FALSE 0
#define MAX_PATH 260

using BOOL = int;
using BOOLEAN = unsigned char;
using BYTE = unsigned char;
using WORD = unsigned short;
using UINT = unsigned int;
using LONG = int; // 32 bits on Windows
using ULONG = unsigned int;
using DWORD = unsigned int;
using ULONGLONG = unsigned long long;
using DWORDLONG = unsigned long long;
using ULONG_PTR = unsigned long long;
using DWORD_PTR = ULONG_PTR;
using SIZE_T = ULONG_PTR;
using CHAR = char;
using WCHAR = wchar_t;
using LSTATUS = LONG;
using REGSAM = DWORD;
using LPVOID = void *;
using LPBYTE = BYTE *;
using LPDWORD = DWORD *;
using PDWORD = DWORD *;
using LPSTR = char *;
using LPCSTR = const char *;
using LPWSTR = wchar_t *;
using LPCWSTR = const wchar_t *;
using HANDLE = void *;
using FARPROC = long long (*)();

struct HKEY__;
struct HINSTANCE__;
struct HWND__;
using HKEY = HKEY__ *;
using PHKEY = HKEY *;
using HINSTANCE = HINSTANCE__ *;
using HMODULE = HINSTANCE;
using HWND = HWND__ *;

union ULARGE_INTEGER
{
    ULONGLONG QuadPart;
};
using PULARGE_INTEGER = ULARGE_INTEGER *;

struct FILETIME
{
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
using PFILETIME = FILETIME *;

// Errors
constexpr LONG ERROR_SUCCESS = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_BUFFER_OVERFLOW = 111;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
constexpr DWORD ERROR_PROC_NOT_FOUND = 127;
constexpr DWORD ERROR_BAD_PATHNAME = 161;
constexpr DWORD ERROR_NO_DATA = 232;
constexpr DWORD ERROR_MORE_DATA = 234;
constexpr DWORD ERROR_NO_MORE_ITEMS = 259;

extern "C" {
DWORD GetLastError();
void SetLastError(DWORD error);
}

// Heap
extern "C" {
HANDLE GetProcessHeap();
LPVOID HeapAlloc(HANDLE heap, DWORD flags, SIZE_T bytes);
BOOL HeapFree(HANDLE heap, DWORD flags, LPVOID memory);
}

// Registry
constexpr DWORD KEY_READ = 0x20019;
constexpr DWORD KEY_WOW64_64KEY = 0x0100;
constexpr DWORD REG_NONE = 0;
constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_EXPAND_SZ = 2;
constexpr DWORD REG_BINARY = 3;
constexpr DWORD REG_DWORD = 4;
constexpr DWORD REG_MULTI_SZ = 7;
constexpr DWORD REG_QWORD = 11;

#define HKEY_CLASSES_ROOT (reinterpret_cast<HKEY>(static_cast<std::intptr_t>(static_cast<LONG>(0x80000000u))))
#define HKEY_CURRENT_USER (reinterpret_cast<HKEY>(static_cast<std::intptr_t>(static_cast<LONG>(0x80000001u))))
#define HKEY_LOCAL_MACHINE (reinterpret_cast<HKEY>(static_cast<std::intptr_t>(static_cast<LONG>(0x80000002u))))
#define HKEY_USERS (reinterpret_cast<HKEY>(static_cast<std::intptr_t>(static_cast<LONG>(0x80000003u))))

extern "C" {
LSTATUS RegOpenKeyExA(HKEY key, LPCSTR subKey, DWORD options, REGSAM access, PHKEY result);
LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access, PHKEY result);
LSTATUS RegCloseKey(HKEY key);
LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size);
LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size);
LSTATUS RegEnumKeyExA(HKEY key, DWORD index, LPSTR name, LPDWORD nameSize, LPDWORD reserved, LPSTR keyClass,
                      LPDWORD classSize, PFILETIME lastWrite);
LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD reserved, LPWSTR keyClass,
                      LPDWORD classSize, PFILETIME lastWrite);
LSTATUS RegEnumKeyA(HKEY key, DWORD index, LPSTR name, DWORD nameSize);
LSTATUS RegEnumKeyW(HKEY key, DWORD index, LPWSTR name, DWORD nameSize);
LSTATUS RegEnumValueA(HKEY key, DWORD index, LPSTR name, LPDWORD nameSize, LPDWORD reserved, LPDWORD type,
                      LPBYTE data, LPDWORD size);
LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD reserved, LPDWORD type,
                      LPBYTE data, LPDWORD size);
BOOL GetSystemRegistryQuota(PDWORD allowed, PDWORD used);
}

// Version and system
constexpr int SM_SERVERR2 = 89;
constexpr DWORD VER_PLATFORM_WIN32_NT = 2;
constexpr BYTE VER_NT_WORKSTATION = 1;
constexpr BYTE VER_NT_DOMAIN_CONTROLLER = 2;
constexpr BYTE VER_NT_SERVER = 3;
constexpr WORD VER_SUITE_ENTERPRISE = 0x0002;
constexpr WORD VER_SUITE_DATACENTER = 0x0080;
constexpr WORD VER_SUITE_PERSONAL = 0x0200;
constexpr WORD VER_SUITE_BLADE = 0x0400;
constexpr WORD VER_SUITE_STORAGE_SERVER = 0x2000;
constexpr WORD VER_SUITE_COMPUTE_SERVER = 0x4000;
constexpr WORD VER_SUITE_WH_SERVER = 0x8000;
constexpr WORD PROCESSOR_ARCHITECTURE_INTEL = 0;
constexpr WORD PROCESSOR_ARCHITECTURE_ARM = 5;
constexpr WORD PROCESSOR_ARCHITECTURE_IA64 = 6;
constexpr WORD PROCESSOR_ARCHITECTURE_AMD64 = 9;
constexpr WORD PROCESSOR_ARCHITECTURE_ARM64 = 12;
constexpr WORD PROCESSOR_ARCHITECTURE_UNKNOWN = 0xffff;
constexpr DWORD PROCESSOR_INTEL_386 = 386;
constexpr DWORD PROCESSOR_INTEL_486 = 486;
constexpr DWORD PROCESSOR_INTEL_PENTIUM = 586;
constexpr DWORD PROCESSOR_INTEL_IA64 = 2200;
constexpr DWORD PROCESSOR_AMD_X8664 = 8664;
constexpr DWORD PRODUCT_ULTIMATE = 0x01;
constexpr DWORD PRODUCT_HOME_BASIC = 0x02;
constexpr DWORD PRODUCT_HOME_PREMIUM = 0x03;
constexpr DWORD PRODUCT_ENTERPRISE = 0x04;
constexpr DWORD PRODUCT_HOME_BASIC_N = 0x05;
constexpr DWORD PRODUCT_BUSINESS = 0x06;
constexpr DWORD PRODUCT_STANDARD_SERVER = 0x07;
constexpr DWORD PRODUCT_DATACENTER_SERVER = 0x08;
constexpr DWORD PRODUCT_SMALLBUSINESS_SERVER = 0x09;
constexpr DWORD PRODUCT_ENTERPRISE_SERVER = 0x0a;
constexpr DWORD PRODUCT_STARTER = 0x0b;
constexpr DWORD PRODUCT_DATACENTER_SERVER_CORE = 0x0c;
constexpr DWORD PRODUCT_STANDARD_SERVER_CORE = 0x0d;
constexpr DWORD PRODUCT_ENTERPRISE_SERVER_CORE = 0x0e;
constexpr DWORD PRODUCT_ENTERPRISE_SERVER_IA64 = 0x0f;
constexpr DWORD PRODUCT_BUSINESS_N = 0x10;
constexpr DWORD PRODUCT_WEB_SERVER = 0x11;
constexpr DWORD PRODUCT_CLUSTER_SERVER = 0x12;
constexpr DWORD PRODUCT_SMALLBUSINESS_SERVER_PREMIUM = 0x19;
constexpr DWORD PRODUCT_HYPERV = 0x2a;
constexpr DWORD PRODUCT_PROFESSIONAL = 0x30;
constexpr DWORD PRODUCT_PROFESSIONAL_N = 0x31;
constexpr DWORD PRODUCT_CORE_N = 0x62;
constexpr DWORD PRODUCT_CORE = 0x65;
constexpr DWORD PRODUCT_EDUCATION = 0x79;
constexpr DWORD PRODUCT_EDUCATION_N = 0x7a;

struct OSVERSIONINFOA
{
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    CHAR szCSDVersion[128];
};
using LPOSVERSIONINFOA = OSVERSIONINFOA *;

struct OSVERSIONINFOEXA
{
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    CHAR szCSDVersion[128];
    WORD wServicePackMajor;
    WORD wServicePackMinor;
    WORD wSuiteMask;
    BYTE wProductType;
    BYTE wReserved;
};

struct OSVERSIONINFOW
{
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
};
using LPOSVERSIONINFOW = OSVERSIONINFOW *;

struct OSVERSIONINFOEXW
{
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
    WORD wServicePackMajor;
    WORD wServicePackMinor;
    WORD wSuiteMask;
    BYTE wProductType;
    BYTE wReserved;
};

struct SYSTEM_INFO
{
    WORD wProcessorArchitecture;
    WORD wReserved;
    DWORD dwPageSize;
    LPVOID lpMinimumApplicationAddress;
    LPVOID lpMaximumApplicationAddress;
    DWORD_PTR dwActiveProcessorMask;
    DWORD dwNumberOfProcessors;
    DWORD dwProcessorType;
    DWORD dwAllocationGranularity;
    WORD wProcessorLevel;
    WORD wProcessorRevision;
};
using LPSYSTEM_INFO = SYSTEM_INFO *;

struct MEMORYSTATUSEX
{
    DWORD dwLength;
    DWORD dwMemoryLoad;
    DWORDLONG ullTotalPhys;
    DWORDLONG ullAvailPhys;
    DWORDLONG ullTotalPageFile;
    DWORDLONG ullAvailPageFile;
    DWORDLONG ullTotalVirtual;
    DWORDLONG ullAvailVirtual;
    DWORDLONG ullAvailExtendedVirtual;
};
using LPMEMORYSTATUSEX = MEMORYSTATUSEX *;

static_assert(sizeof(OSVERSIONINFOA) == 148 && sizeof(OSVERSIONINFOEXA) == 156, "as on Windows");
static_assert(sizeof(OSVERSIONINFOW) == 276 && sizeof(OSVERSIONINFOEXW) == 284, "as on Windows");
static_assert(sizeof(SYSTEM_INFO) == 48 && sizeof(MEMORYSTATUSEX) == 64, "as on Windows");

extern "C" {
BOOL GetVersionExA(LPOSVERSIONINFOA information);
BOOL GetVersionExW(LPOSVERSIONINFOW information);
void GetSystemInfo(LPSYSTEM_INFO information);
int GetSystemMetrics(int index);
BOOL GlobalMemoryStatusEx(LPMEMORYSTATUSEX status);
}

// Names
enum COMPUTER_NAME_FORMAT {
    ComputerNameNetBIOS,
    ComputerNameDnsHostname,
    ComputerNameDnsDomain,
    ComputerNameDnsFullyQualified,
    ComputerNamePhysicalNetBIOS,
    ComputerNamePhysicalDnsHostname,
    ComputerNamePhysicalDnsDomain,
    ComputerNamePhysicalDnsFullyQualified
};

extern "C" {
BOOL GetComputerNameExW(COMPUTER_NAME_FORMAT format, LPWSTR buffer, LPDWORD size);
BOOL GetUserNameW(LPWSTR buffer, LPDWORD size);
}

// Drives, directories and the environment
constexpr UINT SEM_FAILCRITICALERRORS = 1;
constexpr UINT SEM_NOGPFAULTERRORBOX = 2;
constexpr UINT DRIVE_UNKNOWN = 0;
constexpr UINT DRIVE_NO_ROOT_DIR = 1;
constexpr UINT DRIVE_REMOVABLE = 2;
constexpr UINT DRIVE_FIXED = 3;
constexpr UINT DRIVE_REMOTE = 4;
constexpr UINT DRIVE_CDROM = 5;
constexpr UINT DRIVE_RAMDISK = 6;

extern "C" {
UINT SetErrorMode(UINT mode);
DWORD GetLogicalDrives();
UINT GetDriveTypeW(LPCWSTR root);
BOOL GetVolumeInformationW(LPCWSTR root, LPWSTR volumeName, DWORD volumeNameSize, LPDWORD serialNumber,
                           LPDWORD maximumComponentLength, LPDWORD flags, LPWSTR fileSystemName,
                           DWORD fileSystemNameSize);
BOOL GetDiskFreeSpaceExW(LPCWSTR root, PULARGE_INTEGER freeToCaller, PULARGE_INTEGER total,
                         PULARGE_INTEGER totalFree);
UINT GetSystemWindowsDirectoryW(LPWSTR buffer, UINT size);
UINT GetSystemWow64DirectoryW(LPWSTR buffer, UINT size);
DWORD ExpandEnvironmentStringsW(LPCWSTR source, LPWSTR buffer, DWORD size);
int wsprintfW(LPWSTR buffer, LPCWSTR format, ...);
}

// Modules
extern "C" {
HANDLE GetCurrentProcess();
HMODULE GetModuleHandleW(LPCWSTR name);
HMODULE LoadLibraryW(LPCWSTR name);
BOOL FreeLibrary(HMODULE module);
FARPROC GetProcAddress(HMODULE module, LPCSTR name);
}

#include "no_wide_c_library.h"
