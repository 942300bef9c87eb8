// Modules of the process, and libraries with their own functions.

#include "described_windows.h"
#include "poisoned_buffer.h"
#include "simulated_windows.h"
#include "test_main.h"
#include "wide_text.h"

#include <QtTest/QtTest>
#include <psapi.h>

class SimulatedModulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
    void nameIntoNoRoom();
    void manyModules();
    void libraryAnswers_data();
    void libraryAnswers();
    void eachLibraryHasItsOwnFunction();
    void eightLibrariesAtOnce();
    void placesAreFreeAgainAfterReset();
    void freedLibraryHasNoFunctions();
    void libraryThatChangesWhileItIsLoaded();
    void kernelKnowsOneFunction();
};

namespace {

using GetProperty = qint32(WINAPI *)(const char *, void *, DWORD *);

GetProperty propertyOf(HMODULE library)
{
    return reinterpret_cast<GetProperty>(reinterpret_cast<void *>(GetProcAddress(library, "DNSServiceGetProperty")));
}

/// "error, version, size", the last two as the call leaves them.
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

} // namespace

void SimulatedModulesTest::names_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<DWORD>("room");
    QTest::addColumn<DWORD>("length");
    QTest::addColumn<QString>("name");
    QTest::newRow("fits") << 0 << DWORD(64) << DWORD(8) << QStringLiteral("C:\\a.exe");
    QTest::newRow("fits exactly") << 0 << DWORD(9) << DWORD(8) << QStringLiteral("C:\\a.exe");
    QTest::newRow("is cut") << 0 << DWORD(8) << DWORD(8) << QStringLiteral("C:\\a.ex");
    QTest::newRow("is cut to nothing") << 0 << DWORD(1) << DWORD(1) << QString();
    QTest::newRow("cannot be read") << 1 << DWORD(64) << DWORD(0) << QString();
    QTest::newRow("is empty") << 2 << DWORD(64) << DWORD(0) << QString();
    QTest::newRow("of a module behind the last one") << 3 << DWORD(64) << DWORD(0) << QString();
}

void SimulatedModulesTest::names()
{
    QFETCH(int, index);
    QFETCH(DWORD, room);
    QFETCH(DWORD, length);
    QFETCH(QString, name);
    const DescribedWindows windows(QByteArray(), "{\"EnumProcessModules\": [\"C:\\\\a.exe\", null, \"\"]}");
    HMODULE modules[4] = {};
    DWORD needed = 0;
    QVERIFY(EnumProcessModules(GetCurrentProcess(), modules, sizeof modules, &needed));
    QCOMPARE(needed, DWORD(24));
    PoisonedBuffer buffer(2 * room);
    QCOMPARE(GetModuleFileNameExW(GetCurrentProcess(), modules[index], buffer.wide(), room), length);
    const bool written = length > 0 || index == 2;
    QCOMPARE(buffer.isUntouched(), !written);
    if (written)
        QCOMPARE(buffer.wideText(), name);
    QVERIFY(buffer.isUntouchedFrom(2 * int(room)));
}

void SimulatedModulesTest::nameIntoNoRoom()
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

void SimulatedModulesTest::manyModules()
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

void SimulatedModulesTest::libraryAnswers_data()
{
    QTest::addColumn<QByteArray>("library");
    QTest::addColumn<QString>("expected"); // empty: no such function
    QTest::newRow("a version") << QByteArray("{\"DNSServiceGetProperty\": {\"error\": 0, \"DaemonVersion\": 3210000}}")
                               << QStringLiteral("0, 3210000, 4");
    QTest::newRow("an error: nothing else is written")
        << QByteArray("{\"DNSServiceGetProperty\": {\"error\": -65563, \"DaemonVersion\": 1}}")
        << QStringLiteral("-65563, 3735928559, 4");
    QTest::newRow("nothing given: version 0") << QByteArray("{\"DNSServiceGetProperty\": {}}") << QStringLiteral("0, 0, 4");
    QTest::newRow("a library without the function") << QByteArray("{}") << QString();
}

void SimulatedModulesTest::libraryAnswers()
{
    QFETCH(QByteArray, library);
    QFETCH(QString, expected);
    const DescribedWindows windows(QByteArray(), "{\"libraries\": {\"dnssd.dll\": " + library + "}}");
    const HMODULE module = LoadLibraryW(L"DnsSd.DLL");
    QVERIFY(module);
    const GetProperty property = propertyOf(module);
    QCOMPARE(property != nullptr, !expected.isEmpty());
    if (property)
        QCOMPARE(answerOf(property), expected);
    QVERIFY(FreeLibrary(module));
}

void SimulatedModulesTest::eachLibraryHasItsOwnFunction()
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

void SimulatedModulesTest::eightLibrariesAtOnce()
{
    const DescribedWindows windows = tenLibraries();
    QVector<HMODULE> modules;
    for (int i = 0; i < 8; ++i)
        modules += load(i);
    QVERIFY(!modules.contains(nullptr));
    for (int i = 0; i < 8; ++i)
        QCOMPARE(answerOf(propertyOf(modules.at(i))), QStringLiteral("0, %1, 4").arg(i));
    QVERIFY2(!load(8), "there is no place for a ninth");
    QVERIFY(FreeLibrary(modules.at(2)));
    const HMODULE ninth = load(9);
    QVERIFY(ninth);
    QCOMPARE(answerOf(propertyOf(ninth)), QStringLiteral("0, 9, 4"));
    QCOMPARE(answerOf(propertyOf(modules.at(3))), QStringLiteral("0, 3, 4"));
}

void SimulatedModulesTest::placesAreFreeAgainAfterReset()
{
    for (int round = 0; round < 20; ++round) {
        const DescribedWindows windows = tenLibraries(); // forgets what was left open
        QVERIFY2(load(round % 10), qPrintable(QString::number(round)));
    }
}

void SimulatedModulesTest::freedLibraryHasNoFunctions()
{
    const DescribedWindows windows = tenLibraries();
    const HMODULE library = load(1);
    FreeLibrary(library);
    QVERIFY(!propertyOf(library));
    QCOMPARE(simulated::handleMisuses().size(), 1);
}

void SimulatedModulesTest::libraryThatChangesWhileItIsLoaded()
{
    const DescribedWindows windows = tenLibraries();
    const HMODULE library = load(1);
    simulated::machineInUse().system.libraries.remove(QStringLiteral("1.dll"));
    QVERIFY2(!propertyOf(library), "the description in use decides");
    QVERIFY(FreeLibrary(library));
}

void SimulatedModulesTest::kernelKnowsOneFunction()
{
    const DescribedWindows windows(QByteArray(), "{\"GetProductInfo\": {}}");
    const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
    QVERIFY(GetProcAddress(kernel, "GetProductInfo"));
    QVERIFY(!GetProcAddress(kernel, "DNSServiceGetProperty"));
    simulated::machineInUse().system.GetProductInfo.reset();
    QVERIFY(!GetProcAddress(kernel, "GetProductInfo"));
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

TEST_WITHOUT_APPLICATION(SimulatedModulesTest);
#include "tst_simulated_modules.moc"
