// The part of MSVC's C++ run time that every DLL contains: its start and end, operator new and
// delete, and the stack probe. The rest is in VCRUNTIME140.dll and the Universal C Runtime.
#include <new.h>
#include <stdlib.h>
#include <vcruntime_typeinfo.h>

extern "C" {

using Function = void(__cdecl *)();
using FunctionWithResult = int(__cdecl *)();

struct ExitTable // _onexit_table_t
{
    Function *first;
    Function *last;
    Function *end;
};

// Universal C Runtime
__declspec(dllimport) int __cdecl _initialize_onexit_table(ExitTable *table);
__declspec(dllimport) int __cdecl _register_onexit_function(ExitTable *table, FunctionWithResult function);
__declspec(dllimport) int __cdecl _execute_onexit_table(ExitTable *table);
__declspec(dllimport) void __cdecl _initterm(const Function *begin, const Function *end);
__declspec(dllimport) int __cdecl _initterm_e(const FunctionWithResult *begin, const FunctionWithResult *end);

// The compiler refers to it in objects that use floating point.
int _fltused = 0x9875;
}

// The linker sorts these sections by the letters after '$'. The compiler puts the initialisers
// of globals between the first and the last.
#pragma section(".CRT$XIA", long, read)
#pragma section(".CRT$XIZ", long, read)
#pragma section(".CRT$XCA", long, read)
#pragma section(".CRT$XCZ", long, read)

extern "C" {
extern const FunctionWithResult firstCInitialiser;
extern const FunctionWithResult endOfCInitialisers;
extern const Function firstInitialiser;
extern const Function endOfInitialisers;
__declspec(allocate(".CRT$XIA")) const FunctionWithResult firstCInitialiser = nullptr;
__declspec(allocate(".CRT$XIZ")) const FunctionWithResult endOfCInitialisers = nullptr;
__declspec(allocate(".CRT$XCA")) const Function firstInitialiser = nullptr;
__declspec(allocate(".CRT$XCZ")) const Function endOfInitialisers = nullptr;
}

// What to call when this DLL is unloaded, or when the process ends.
static ExitTable exitTable;

// The compiler registers the destructors of globals with it.
extern "C" int __cdecl atexit(Function function)
{
    return _register_onexit_function(&exitTable, reinterpret_cast<FunctionWithResult>(function));
}

extern "C" int __stdcall _DllMainCRTStartup(void *, unsigned long reason, void *)
{
    enum : unsigned long { ProcessDetach = 0,
                           ProcessAttach = 1 };
    if (reason == ProcessAttach) {
        if (_initialize_onexit_table(&exitTable) != 0 || _initterm_e(&firstCInitialiser, &endOfCInitialisers) != 0)
            return 0;
        _initterm(&firstInitialiser, &endOfInitialisers);
    } else if (reason == ProcessDetach) {
        _execute_onexit_table(&exitTable);
    }
    return 1;
}

void *operator new(size_t size)
{
    if (void *memory = malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}
void *operator new[](size_t size)
{
    return operator new(size);
}
void operator delete(void *memory) noexcept
{
    free(memory);
}
void operator delete[](void *memory) noexcept
{
    free(memory);
}
void operator delete(void *memory, size_t) noexcept
{
    free(memory);
}
void operator delete[](void *memory, size_t) noexcept
{
    free(memory);
}

// type_info's table of virtual functions, to which the type information of each thrown class
// refers. Its only function is the destructor, which nothing calls.
static void *destroyNothing(void *self, unsigned)
{
    return self;
}
extern "C" void *const typeInfoTable[1] asm("??_7type_info@@6B@");
extern "C" void *const typeInfoTable[1] = {reinterpret_cast<void *>(&destroyNothing)};

// Functions with more than a page of local variables call __chkstk with their size in rax. It
// touches each page in turn, because Windows extends the stack by one page at a time. It keeps
// all registers but r10 and r11.
asm(R"(
    .intel_syntax noprefix
    .text
    .globl __chkstk
    .def __chkstk; .scl 2; .type 32; .endef
__chkstk:
    lea r10, [rsp + 8]
    mov r11, rax
1:  cmp r11, 0x1000
    jb 2f
    sub r10, 0x1000
    test dword ptr [r10], r10d
    sub r11, 0x1000
    jmp 1b
2:  sub r10, r11
    test dword ptr [r10], r10d
    ret
    .att_syntax
)");
