// A host in MSVC's ABI over the stand-ins for Qt: loads the library, calls it and unloads it.
#include <cstdio>
#include <new>
#include <windows.h>

#include "vkSystemInfo.h"

using namespace velkor::SystemInfo;

static const int globalStrings = 2; // of the library
static int failures = 0;

static void check(bool passed, const char *what)
{
    fputs(passed ? "ok      " : "FAILED  ", stdout);
    puts(what);
    fflush(stdout);
    if (!passed)
        ++failures;
}

// The function NAME of the DLL, with the type of FUNCTION.
template <typename Function>
static Function *find(const char *dll, const char *name)
{
    const HMODULE module = GetModuleHandleA(dll);
    const FARPROC address = module ? GetProcAddress(module, name) : nullptr;
    check(address != nullptr, name);
    if (!address)
        ExitProcess(1);
    return reinterpret_cast<Function *>(reinterpret_cast<void *>(address));
}

static bool isSeparator(const QString &text)
{
    if (text.size() != 73)
        return false;
    const QChar *characters = text.constData();
    for (int i = 0; i < 72; ++i) {
        if (characters[i].unicode() != '-')
            return false;
    }
    return characters[72].unicode() == '\n';
}

extern "C" int __stdcall hostMain()
{
    // A crash ends the process without a dialog, which would wait for the user.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    const HMODULE library = LoadLibraryW(L"vkSystemInfo.dll");
    check(library != nullptr, "the library is loaded");
    if (!library)
        ExitProcess(1);

    const auto liveStringCount = find<int()>("Qt5Core.dll", "liveStringCount");
    const auto throwInAppend = find<void(bool)>("Qt5Core.dll", "throwInAppend");
    // The line feed of src/report/text.h, and the version in the OpenGL record.
    check(liveStringCount() == globalStrings, "the initialisers of the library's global strings ran");
    if (failures != 0) // the library would crash
        ExitProcess(1);

    const auto version = find<decltype(libVersion)>("vkSystemInfo.dll", "?libVersion@SystemInfo@velkor@@YAXAEAH00@Z");
    int patch = -1;
    int minor = -1;
    int major = -1;
    version(patch, minor, major);
    check(major == VKSYSTEMINFO_VERSION_MAJOR && minor == VKSYSTEMINFO_VERSION_MINOR
              && patch == VKSYSTEMINFO_VERSION_PATCH,
          "libVersion gives the project's version");

    const auto makeSeparator = find<decltype(separator)>("vkSystemInfo.dll", "?separator@SystemInfo@velkor@@YA?AVQString@@XZ");
    {
        const QString text = makeSeparator();
        check(isSeparator(text), "separator gives 72 hyphens and a line feed");
        check(liveStringCount() == globalStrings + 1, "separator leaves its result and no other string");
    }
    check(liveStringCount() == globalStrings, "the result is destroyed");

    throwInAppend(true);
    bool caught = false;
    try {
        const QString text = makeSeparator();
    } catch (const std::bad_alloc &) {
        caught = true;
    }
    check(caught, "std::bad_alloc passes from Qt through the library to the host");
    check(liveStringCount() == globalStrings, "the library's frames destroyed their strings");
    throwInAppend(false);
    check(isSeparator(makeSeparator()), "separator works after the exception");

    check(FreeLibrary(library) != FALSE, "the library is freed");
    check(!GetModuleHandleW(L"vkSystemInfo.dll"), "the library is unloaded");
    check(liveStringCount() == 0, "the library's global strings are destroyed");
    ExitProcess(failures == 0 ? 0 : 1);
}
