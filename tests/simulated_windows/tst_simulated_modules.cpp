// Modules of the process, and libraries and their functions.

#include "described_windows.h"
#include "poisoned_buffer.h"
#include "rows.h"
#include "simulated_windows.h"
#include "wide_text.h"

#include <QtTest/QtTest>
#include <psapi.h>

namespace {

using GetProperty = qint32(WINAPI *)(const char *, void *, DWORD *);

GetProperty propertyOf(HMODULE library)
{
    return reinterpret_cast<GetProperty>(reinterpret_cast<void *>(GetProcAddress(library, "DNSServiceGetProperty")));
}

/// "result, version, size" of a call; the call stores the last two.
QString answerOf(GetProperty property)
{
    DWORD version = poison;
    DWORD size = sizeof version;
    const qint32 error = property("DaemonVersion", &version, &size);
    return QStringLiteral("%1, %2, %3").arg(error).arg(version).arg(size);
}

/// Libraries 0.dll to 9.dll, whose versions are their numbers.
DescribedWindows tenLibraries()
{
    QByteArrayList members;
    for (int i = 0; i < 10; ++i) {
        const QByteArray number = QByteArray::number(i);
        members += '"' + number + ".dll\": {\"DNSServiceGetProperty\": {\"DaemonVersion\": " + number + "}}";
    }
    return DescribedWindows(QByteArray(), "{\"libraries\": {" + members.join(',') + "}}");
}

HMODULE load(int number)
{
    return LoadLibraryW(wide(QString::number(number) + QStringLiteral(".dll")));
}

void names()
{
    const auto row = [](const QString &title, int index, DWORD capacity, DWORD length, const QString &name) {
        addTestRow(title, [=] {
            const DescribedWindows windows(QByteArray(), "{\"EnumProcessModules\": [\"C:\\\\a.exe\", null, \"\"]}");
            HMODULE modules[4] = {};
            DWORD needed = 0;
            QVERIFY(EnumProcessModules(GetCurrentProcess(), modules, sizeof modules, &needed));
            QCOMPARE(needed, DWORD(24));
            PoisonedBuffer buffer(2 * capacity);
            QCOMPARE(GetModuleFileNameExW(GetCurrentProcess(), modules[index], buffer.wide(), capacity), length);
            const bool written = length > 0 || index == 2;
            QCOMPARE(buffer.isUntouched(), !written);
            if (written)
                QCOMPARE(buffer.wideText(), name);
            QVERIFY(buffer.isUntouchedFrom(2 * int(capacity)));
        });
    };
    row("fits", 0, DWORD(64), DWORD(8), "C:\\a.exe");
    row("a name that fits exactly", 0, DWORD(9), DWORD(8), "C:\\a.exe");
    row("a name that is truncated", 0, DWORD(8), DWORD(8), "C:\\a.ex");
    row("a name that is truncated to 0 characters", 0, DWORD(1), DWORD(1), QString());
    row("a name that cannot be read", 1, DWORD(64), DWORD(0), QString());
    row("an empty name", 2, DWORD(64), DWORD(0), QString());
    row("the name of a module after the last one", 3, DWORD(64), DWORD(0), QString());
}

void nameIntoABufferOfSizeZero()
{
    const DescribedWindows windows(QByteArray(), "{\"EnumProcessModules\": [\"C:\\\\a.exe\"]}");
    HMODULE module = nullptr;
    DWORD needed = 0;
    EnumProcessModules(GetCurrentProcess(), &module, sizeof module, &needed);
    PoisonedBuffer buffer(0);
    QCOMPARE(GetModuleFileNameExW(GetCurrentProcess(), module, buffer.wide(), 0), DWORD(0));
    QCOMPARE(GetLastError(), DWORD(ERROR_INSUFFICIENT_BUFFER));
    QVERIFY(buffer.isUntouched());
}

void manyModules()
{
    machine::Machine machine;
    machine.system.EnumProcessModules.value.emplace(1500, QStringLiteral("a.dll"));
    (*machine.system.EnumProcessModules.value)[1023] = QStringLiteral("last.dll");
    const DescribedWindows windows(machine);
    PoisonedBuffer buffer(8 * 1024);
    DWORD needed = 0;
    QVERIFY(EnumProcessModules(GetCurrentProcess(), reinterpret_cast<HMODULE *>(buffer.bytes()), 8 * 1024, &needed));
    QCOMPARE(needed, DWORD(8 * 1500));
    QVERIFY(buffer.isUntouchedFrom(8 * 1024));
    WCHAR name[16];
    QCOMPARE(GetModuleFileNameExW(GetCurrentProcess(), reinterpret_cast<HMODULE *>(buffer.bytes())[1023], name, 16), DWORD(8));
    QCOMPARE(QString::fromWCharArray(name), QStringLiteral("last.dll"));
}

void libraryFunctionResults()
{
    const auto row = [](const QString &name, const QByteArray &library, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray(), "{\"libraries\": {\"dnssd.dll\": " + library + "}}");
            const HMODULE module = LoadLibraryW(L"DnsSd.DLL");
            QVERIFY(module);
            const GetProperty property = propertyOf(module);
            QCOMPARE(property != nullptr, !expected.isEmpty());
            if (property)
                QCOMPARE(answerOf(property), expected);
            QVERIFY(FreeLibrary(module));
        });
    };
    row("a version", QByteArray("{\"DNSServiceGetProperty\": {\"error\": 0, \"DaemonVersion\": 3210000}}"), "0, 3210000, 4");
    row("an error: version and size are unchanged", QByteArray("{\"DNSServiceGetProperty\": {\"error\": -65563, \"DaemonVersion\": 1}}"), "-65563, 3735928559, 4");
    row("no members: version 0", QByteArray("{\"DNSServiceGetProperty\": {}}"), "0, 0, 4");
    row("a library without the function", QByteArray("{}"), QString());
}

void eachLibraryHasItsOwnFunction()
{
    const DescribedWindows windows = tenLibraries();
    const HMODULE three = load(3);
    const HMODULE four = load(4);
    const GetProperty ofThree = propertyOf(three);
    const GetProperty ofFour = propertyOf(four);
    QVERIFY(ofThree != ofFour);
    QCOMPARE(answerOf(ofThree), QStringLiteral("0, 3, 4"));
    QCOMPARE(answerOf(ofFour), QStringLiteral("0, 4, 4"));
    FreeLibrary(three);
    const HMODULE five = load(5);
    QCOMPARE(answerOf(propertyOf(five)), QStringLiteral("0, 5, 4"));
    QCOMPARE(answerOf(ofFour), QStringLiteral("0, 4, 4"));
}

void eightLibrariesAtOnce()
{
    const DescribedWindows windows = tenLibraries();
    QVector<HMODULE> modules;
    for (int i = 0; i < 8; ++i)
        modules += load(i);
    QVERIFY(!modules.contains(nullptr));
    for (int i = 0; i < 8; ++i)
        QCOMPARE(answerOf(propertyOf(modules.at(i))), QStringLiteral("0, %1, 4").arg(i));
    QVERIFY2(!load(8), "a ninth library cannot be loaded");
    QVERIFY(FreeLibrary(modules.at(2)));
    const HMODULE ninth = load(9);
    QVERIFY(ninth);
    QCOMPARE(answerOf(propertyOf(ninth)), QStringLiteral("0, 9, 4"));
    QCOMPARE(answerOf(propertyOf(modules.at(3))), QStringLiteral("0, 3, 4"));
}

void resetUnloadsLibraries()
{
    for (int round = 0; round < 20; ++round) {
        const DescribedWindows windows = tenLibraries(); // closes every handle
        QVERIFY2(load(round % 10), qPrintable(QString::number(round)));
    }
}

void freedLibraryHasNoFunctions()
{
    const DescribedWindows windows = tenLibraries();
    const HMODULE library = load(1);
    FreeLibrary(library);
    QVERIFY(!propertyOf(library));
    QCOMPARE(simulated::handleMisuses().size(), 1);
}

void libraryThatChangesWhileItIsLoaded()
{
    const DescribedWindows windows = tenLibraries();
    const HMODULE library = load(1);
    simulated::machineInUse().system.libraries.remove(QStringLiteral("1.dll"));
    QVERIFY2(!propertyOf(library), "the current description applies");
    QVERIFY(FreeLibrary(library));
}

void kernelExportsOneFunction()
{
    const DescribedWindows windows(QByteArray(), "{\"GetProductInfo\": {}}");
    const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
    QVERIFY(GetProcAddress(kernel, "GetProductInfo"));
    QVERIFY(!GetProcAddress(kernel, "DNSServiceGetProperty"));
    simulated::machineInUse().system.GetProductInfo.reset();
    QVERIFY(!GetProcAddress(kernel, "GetProductInfo"));
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void addTests()
{
    addTestRows("names", names);
    addTestRow("nameIntoABufferOfSizeZero", nameIntoABufferOfSizeZero);
    addTestRow("manyModules", manyModules);
    addTestRows("libraryFunctionResults", libraryFunctionResults);
    addTestRow("eachLibraryHasItsOwnFunction", eachLibraryHasItsOwnFunction);
    addTestRow("eightLibrariesAtOnce", eightLibrariesAtOnce);
    addTestRow("resetUnloadsLibraries", resetUnloadsLibraries);
    addTestRow("freedLibraryHasNoFunctions", freedLibraryHasNoFunctions);
    addTestRow("libraryThatChangesWhileItIsLoaded", libraryThatChangesWhileItIsLoaded);
    addTestRow("kernelExportsOneFunction", kernelExportsOneFunction);
}

} // namespace

TEST_WITHOUT_APPLICATION(RowTest(addTests));
