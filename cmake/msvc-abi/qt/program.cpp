// The start of a program in MSVC's ABI. Its globals start and end as those of a DLL do.
#include <stdlib.h>

extern "C" int __stdcall _DllMainCRTStartup(void *, unsigned long reason, void *);

// Universal C Runtime
extern "C" __declspec(dllimport) int __cdecl _configure_narrow_argv(int mode);
extern "C" __declspec(dllimport) int __cdecl _initialize_narrow_environment();

int main(int argc, char **argv);

static void endProgram()
{
    _DllMainCRTStartup(nullptr, 0, nullptr);
}

// Standard C++ has no call of main().
#pragma clang diagnostic ignored "-Wmain"

extern "C" int startProgram()
{
    _configure_narrow_argv(1); // the arguments as they are, without the names that wildcards match
    _initialize_narrow_environment();
    if (!_DllMainCRTStartup(nullptr, 1, nullptr))
        return 255;
    const int result = main(*__p___argc(), *__p___argv());
    endProgram();
    exit(result);
}
