// The process's modules and libraries that are loaded at run time.

#include "answering_windows.h"
#include "test_main.h"

#include <psapi.h>

class ContractModulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modulesOfTheProcess();
    void lessRoomThanModules_data();
    void lessRoomThanModules();
    void moduleName();
    void moduleNameIsCut();
    void unknownModuleHasNoName();
    void noProcess();
    void kernelIsLoadedAlready_data();
    void kernelIsLoadedAlready();
    void unknownModuleIsNotLoaded();
    void libraryAndFunction();
    void unknownLibrary();
    void freedTwice();
};

namespace {

// A library of each system, not loaded before, and a function that it exports.
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

TextAnswer nameInto(HMODULE module, DWORD room)
{
    return textAnswer(room, [&](WCHAR *buffer, DWORD *size) {
        return GetModuleFileNameExW(GetCurrentProcess(), module, buffer, *size);
    });
}

} // namespace

void ContractModulesTest::modulesOfTheProcess()
{
    const AnsweringWindows windows;
    QVector<HMODULE> all = modules();
    QVERIFY(all.size() > 2);
    QVERIFY(!all.contains(nullptr));
    std::sort(all.begin(), all.end());
    QVERIFY2(std::adjacent_find(all.begin(), all.end()) == all.end(), "each module is listed once");
}

void ContractModulesTest::lessRoomThanModules_data()
{
    QTest::addColumn<DWORD>("bytes");
    QTest::addColumn<int>("written");
    QTest::newRow("room for two") << DWORD(16) << 2;
    QTest::newRow("room for two and a half") << DWORD(20) << 2;
    QTest::newRow("no room") << DWORD(0) << 0;
}

void ContractModulesTest::lessRoomThanModules()
{
    QFETCH(DWORD, bytes);
    QFETCH(int, written);
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
}

void ContractModulesTest::moduleName()
{
    const AnsweringWindows windows;
    const HMODULE first = modules().value(0); // the program
    const TextAnswer roomy = nameInto(first, 1024);
    QVERIFY(roomy.text.endsWith(QLatin1String(".exe"), Qt::CaseInsensitive));
    QCOMPARE(roomy.result, DWORD(roomy.text.size())); // without its terminator
    QVERIFY(roomy.withinRoom);
    const TextAnswer exact = nameInto(first, roomy.result + 1);
    QCOMPARE(exact.text, roomy.text);
    QCOMPARE(exact.result, roomy.result);
}

void ContractModulesTest::moduleNameIsCut()
{
    const AnsweringWindows windows;
    const HMODULE first = modules().value(0);
    const QString name = nameInto(first, 1024).text;
    const DWORD length = DWORD(name.size());
    for (const DWORD room : {length, length - 1, DWORD(1)}) {
        const TextAnswer answer = nameInto(first, room);
        QCOMPARE(answer.text, name.left(int(room) - 1));
        QCOMPARE(answer.result, room);
        QVERIFY(answer.withinRoom);
    }
}

void ContractModulesTest::unknownModuleHasNoName()
{
    const AnsweringWindows windows;
    const TextAnswer answer = nameInto(noModule, 64);
    QCOMPARE(answer.result, DWORD(0));
    QVERIFY(answer.untouched);
}

// Null is no process, not the caller's own.
void ContractModulesTest::noProcess()
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

void ContractModulesTest::kernelIsLoadedAlready_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("lower case") << QStringLiteral("kernel32.dll");
    QTest::newRow("upper case") << QStringLiteral("KERNEL32.DLL");
}

void ContractModulesTest::kernelIsLoadedAlready()
{
    QFETCH(QString, name);
    const AnsweringWindows windows;
    const HMODULE kernel = GetModuleHandleW(wide(name));
    QVERIFY(kernel);
    QVERIFY(GetProcAddress(kernel, "GetProductInfo"));
    SetLastError(poison);
    QVERIFY(!GetProcAddress(kernel, "getproductinfo")); // unlike the module's name
    QCOMPARE(GetLastError(), DWORD(ERROR_PROC_NOT_FOUND));
}

void ContractModulesTest::unknownModuleIsNotLoaded()
{
    const AnsweringWindows windows;
    SetLastError(poison);
    QVERIFY(!GetModuleHandleW(L"vkSystemInfo-none.dll"));
    QCOMPARE(GetLastError(), DWORD(ERROR_MOD_NOT_FOUND));
}

void ContractModulesTest::libraryAndFunction()
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
    const HMODULE again = LoadLibraryW(libraryName); // loaded twice, freed once
    QVERIFY(GetProcAddress(again, functionName));
    QVERIFY(FreeLibrary(again));
}

void ContractModulesTest::unknownLibrary()
{
    const AnsweringWindows windows;
    SetLastError(poison);
    QVERIFY(!LoadLibraryW(L"vkSystemInfo-none.dll"));
    QCOMPARE(GetLastError(), DWORD(ERROR_MOD_NOT_FOUND));
}

void ContractModulesTest::freedTwice()
{
    const AnsweringWindows windows;
    SetLastError(poison);
    QVERIFY(!FreeLibrary(noModule));
    QVERIFY(GetLastError() != poison);
    QVERIFY(!FreeLibrary(nullptr));
}

TEST_WITH_CORE_APPLICATION(ContractModulesTest);
#include "tst_contract_modules.moc"
