#include "child_protection.h"

#include <csignal>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace {

constexpr UINT noDialogBoxes = SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX;

/// The section of the drives ends with SetErrorMode(0), which would allow Windows Error Reporting to show its dialog box.
LONG WINAPI endAtException(EXCEPTION_POINTERS *exception)
{
    TerminateProcess(GetCurrentProcess(), exception->ExceptionRecord->ExceptionCode);
    return EXCEPTION_EXECUTE_HANDLER;
}

/// The run-time library would show a dialog box.
void endAtAbort(int)
{
    constexpr UINT exitCodeOfAbort = 3;
    TerminateProcess(GetCurrentProcess(), exitCodeOfAbort);
}

/// Nothing is ever written to the standard input of a child; reading ends when the parent ends. The parent's job object
/// does the same, but Windows 7 does not accept it if the parent is in a job already.
DWORD WINAPI endWithParent(void *parentPipe)
{
    char byte = 0;
    DWORD size = 0;
    while (ReadFile(parentPipe, &byte, 1, &size, nullptr) && size > 0) { }
    TerminateProcess(GetCurrentProcess(), ERROR_BROKEN_PIPE);
    return 0;
}

/// Queries of a pipe wait while another thread reads it, and run-time libraries query standard input. So they
/// get the null device.
void watchParent()
{
    const HANDLE parentPipe = GetStdHandle(STD_INPUT_HANDLE);
    if (GetFileType(parentPipe) != FILE_TYPE_PIPE)
        return;
    HANDLE own = nullptr;
    if (!DuplicateHandle(GetCurrentProcess(), parentPipe, GetCurrentProcess(), &own, 0, FALSE, DUPLICATE_SAME_ACCESS))
        return;
    const int null = _open("NUL", _O_RDONLY);
    _dup2(null, 0);
    SetStdHandle(STD_INPUT_HANDLE, reinterpret_cast<HANDLE>(_get_osfhandle(0)));
    if (const HANDLE thread = CreateThread(nullptr, 0, endWithParent, own, 0, nullptr))
        CloseHandle(thread);
}

} // namespace

int protectChild()
{
    SetErrorMode(noDialogBoxes);
    SetThreadErrorMode(noDialogBoxes, nullptr); // SetErrorMode(0) does not reset it
    std::signal(SIGABRT, endAtAbort);
    SetUnhandledExceptionFilter(endAtException);
    SetDllDirectoryW(L"");
    watchParent();
    const int pipe = _dup(1);
    _setmode(pipe, _O_BINARY);
    _dup2(2, 1);
    SetStdHandle(STD_OUTPUT_HANDLE, reinterpret_cast<HANDLE>(_get_osfhandle(1)));
    return pipe;
}

void endProcess(int exitCode)
{
    TerminateProcess(GetCurrentProcess(), UINT(exitCode));
    for (;;) // TerminateProcess() does not return
        Sleep(INFINITE);
}

QString programFile()
{
    wchar_t path[32768] = {};
    const DWORD length = GetModuleFileNameW(nullptr, path, 32768);
    return QString::fromWCharArray(path, int(length));
}
