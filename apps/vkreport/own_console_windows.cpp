#include "own_console.h"

#include <conio.h>
#include <windows.h>

// A shell that started the program uses the same console.
bool hasConsoleOfItsOwn()
{
    DWORD mode = 0;
    DWORD processes[2] = {};
    return GetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), &mode) && GetConsoleProcessList(processes, 2) == 1;
}

void waitForKey()
{
    const HANDLE input = CreateFileW(L"CONIN$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                     OPEN_EXISTING, 0, nullptr);
    if (input == INVALID_HANDLE_VALUE)
        return;
    FlushConsoleInputBuffer(input); // keys that were pressed while the program worked
    CloseHandle(input);
    _getwch();
}
