// Modules of the process, and libraries that are loaded at run time.

#include "answering_windows.h"
#include "rows.h"

#include <psapi.h>

namespace {

// A library that is not loaded before, and a function that it exports.
#ifdef SIMULATED_WINDOWS
const WCHAR libraryName[] = L"dnssd.dll";
const char functionName[] = "DNSServiceGetProperty";
#else
const WCHAR libraryName[] = L"cabinet.dll";
const char functionName[] = "FDICreate";
#endif

const HMODULE noModule = reinterpret_cast<HMODULE>(quintptr(0x1230000));

QVector<HMODULE> modules()
{
    QVector<HMODULE> result(1024, nullptr);
    DWORD needed = 0;
    if (!EnumProcessModules(GetCurrentProcess(), result.data(), DWORD(result.size() * sizeof(HMODULE)), &needed))
        return {};
    result.resize(int(needed / sizeof(HMODULE)));
    return result;
}

TextAnswer nameInto(HMODULE module, DWORD capacity)
{
    return textAnswer(capacity, [&](WCHAR *buffer, DWORD *size) {
        return GetModuleFileNameExW(GetCurrentProcess(), module, buffer, *size);
    });
}

void modulesOfTheProcess()
{
    const AnsweringWindows windows;
    QVector<HMODULE> all = modules();
    QVERIFY(all.size() > 2);
    QVERIFY(!all.contains(nullptr));
    std::sort(all.begin(), all.end());
    QVERIFY2(std::adjacent_find(all.begin(), all.end()) == all.end(), "each module is listed once");
}

void fewerEntriesThanModules()
{
    const auto row = [](const QString &name, DWORD bytes, int written) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            const QVector<HMODULE> all = modules();
            PoisonedBuffer buffer(bytes);
            auto *some = reinterpret_cast<HMODULE *>(buffer.bytes());
            DWORD needed = poison;
            QVERIFY(EnumProcessModules(GetCurrentProcess(), some, bytes, &needed));
            QCOMPARE(needed, DWORD(all.size() * int(sizeof(HMODULE)))); // for all of them
            for (int i = 0; i < written; ++i)
                QCOMPARE(some[i], all.at(i));
            QVERIFY(buffer.isUntouchedFrom(8 * written));
        });
    };
    row("an array for two modules", DWORD(16), 2);
    row("an array for two and a half modules", DWORD(20), 2);
    row("an array of 0 bytes", DWORD(0), 0);
}

void moduleName()
{
    const AnsweringWindows windows;
    const HMODULE first = modules().value(0); // the program
    const TextAnswer large = nameInto(first, 1024);
    QVERIFY(large.text.endsWith(QLatin1String(".exe"), Qt::CaseInsensitive));
    QCOMPARE(large.result, DWORD(large.text.size())); // without its terminator
    QVERIFY(large.withinBounds);
    const TextAnswer exact = nameInto(first, large.result + 1);
    QCOMPARE(exact.text, large.text);
    QCOMPARE(exact.result, large.result);
}

void moduleNameIsTruncated()
{
    const AnsweringWindows windows;
    const HMODULE first = modules().value(0);
    const QString name = nameInto(first, 1024).text;
    const DWORD length = DWORD(name.size());
    for (const DWORD capacity : {length, length - 1, DWORD(1)}) {
        const TextAnswer answer = nameInto(first, capacity);
        QCOMPARE(answer.text, name.left(int(capacity) - 1));
        QCOMPARE(answer.result, capacity);
        QVERIFY(answer.withinBounds);
    }
}

void unknownModuleHasNoName()
{
    const AnsweringWindows windows;
    const TextAnswer answer = nameInto(noModule, 64);
    QCOMPARE(answer.result, DWORD(0));
    QVERIFY(answer.untouched);
}

// A null handle does not refer to the calling process.
void nullProcessHandle()
{
    const AnsweringWindows windows;
    const HMODULE first = modules().value(0);
    QVERIFY(first);
    HMODULE module = nullptr;
    DWORD needed = 0;
    SetLastError(poison);
    QVERIFY(!EnumProcessModules(nullptr, &module, sizeof module, &needed));
    QCOMPARE(GetLastError(), DWORD(ERROR_INVALID_HANDLE));
    WCHAR name[64] = {};
    SetLastError(poison);
    QCOMPARE(GetModuleFileNameExW(nullptr, first, name, 64), DWORD(0));
    QCOMPARE(GetLastError(), DWORD(ERROR_INVALID_HANDLE));
}

void kernelIsLoadedAlready()
{
    const auto row = [](const QString &title, const QString &name) {
        addTestRow(title, [=] {
            const AnsweringWindows windows;
            const HMODULE kernel = GetModuleHandleW(wide(name));
            QVERIFY(kernel);
            QVERIFY(GetProcAddress(kernel, "GetProductInfo"));
            SetLastError(poison);
            QVERIFY(!GetProcAddress(kernel, "getproductinfo")); // names of functions are case-sensitive
            QCOMPARE(GetLastError(), DWORD(ERROR_PROC_NOT_FOUND));
        });
    };
    row("lower case", "kernel32.dll");
    row("upper case", "KERNEL32.DLL");
}

void unknownModuleIsNotLoaded()
{
    const AnsweringWindows windows;
    SetLastError(poison);
    QVERIFY(!GetModuleHandleW(L"vkSystemInfo-none.dll"));
    QCOMPARE(GetLastError(), DWORD(ERROR_MOD_NOT_FOUND));
}

void libraryAndFunction()
{
    const AnsweringWindows windows;
    const HMODULE library = LoadLibraryW(libraryName);
    QVERIFY(library);
    QVERIFY(GetProcAddress(library, functionName));
    SetLastError(poison);
    QVERIFY(!GetProcAddress(library, "vkSystemInfoNone"));
    QCOMPARE(GetLastError(), DWORD(ERROR_PROC_NOT_FOUND));

    QVERIFY(LoadLibraryW(libraryName));
    QVERIFY(FreeLibrary(library));
    const HMODULE again = LoadLibraryW(libraryName); // the library stays loaded after one FreeLibrary()
    QVERIFY(GetProcAddress(again, functionName));
    QVERIFY(FreeLibrary(again));
}

void unknownLibrary()
{
    const AnsweringWindows windows;
    SetLastError(poison);
    QVERIFY(!LoadLibraryW(L"vkSystemInfo-none.dll"));
    QCOMPARE(GetLastError(), DWORD(ERROR_MOD_NOT_FOUND));
}

void freedTwice()
{
    const AnsweringWindows windows;
    SetLastError(poison);
    QVERIFY(!FreeLibrary(noModule));
    QVERIFY(GetLastError() != poison);
    QVERIFY(!FreeLibrary(nullptr));
}

void addTests()
{
    addTestRow("modulesOfTheProcess", modulesOfTheProcess);
    addTestRows("fewerEntriesThanModules", fewerEntriesThanModules);
    addTestRow("moduleName", moduleName);
    addTestRow("moduleNameIsTruncated", moduleNameIsTruncated);
    addTestRow("unknownModuleHasNoName", unknownModuleHasNoName);
    addTestRow("nullProcessHandle", nullProcessHandle);
    addTestRows("kernelIsLoadedAlready", kernelIsLoadedAlready);
    addTestRow("unknownModuleIsNotLoaded", unknownModuleIsNotLoaded);
    addTestRow("libraryAndFunction", libraryAndFunction);
    addTestRow("unknownLibrary", unknownLibrary);
    addTestRow("freedTwice", freedTwice);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
