// Journal, faults and the hook before each call.

#include "calls.h"
#include "described_windows.h"
#include "simulated_windows.h"
#include "test_main.h"

#include <QtTest/QtTest>
#include <cerrno>
#include <shlobj.h>

using simulated::Fault;

class SimulatedSteeringTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void callsSucceedAndAreRecorded_data();
    void callsSucceedAndAreRecorded();
    void faultFailsTheCall_data();
    void faultFailsTheCall();
    void faultFailsTheCallAfterItWroteItsResults_data();
    void faultFailsTheCallAfterItWroteItsResults();
    void failedOpenLeavesADeadHandle();
    void withoutMachineEveryCallFails_data();
    void withoutMachineEveryCallFails();
    void journalOfRegistryCalls();
    void journalOfFailingCalls();
    void journalOfSystemCalls();
    void journalOfOptionalArguments();
    void everyCallFailsWhileTheFaultLives();
    void numberedCallFails_data();
    void numberedCallFails();
    void numberedCallOfAllFails_data();
    void numberedCallOfAllFails();
    void callsAreCountedFromTheFaultOn();
    void faultOfAnotherName();
    void firstOfTwoFaultsWins();
    void movedFaultGoesOn();
    void hookIsToldOfEveryCall();
    void hookChangesTheRegistryBetweenCalls();
    void hookIsGoneAfterReset();
    void resetForgets();
    void lastErrorIsLeftBySuccess();
};

namespace {

QByteArray queryResult(const char *name = "V")
{
    DWORD size = 0;
    return QByteArray::number(RegQueryValueExA(HKEY_LOCAL_MACHINE, name, nullptr, nullptr, nullptr, &size));
}

/// The statuses of so many queries, one after the other.
QByteArray queryResults(int count)
{
    QByteArray result;
    for (int i = 0; i < count; ++i)
        result += queryResult() + ' ';
    return result.trimmed();
}

const simulated::Call &lastOf(const QByteArray &name)
{
    static const simulated::Call none;
    const auto &journal = simulated::journal();
    const auto found = std::find_if(journal.rbegin(), journal.rend(),
                                    [&](const simulated::Call &call) { return call.name == name; });
    return found == journal.rend() ? none : *found;
}

QString line(const simulated::Call &call)
{
    return QStringLiteral("%1 [%2] [%3] %4 %5->%6 = %7")
        .arg(QLatin1String(call.name), call.key, call.value)
        .arg(call.access, 0, 16)
        .arg(call.sizeIn)
        .arg(call.sizeOut)
        .arg(call.result);
}

QStringList lines()
{
    QStringList result;
    for (const simulated::Call &call : simulated::journal())
        result += line(call);
    return result;
}

qint64 failedResult(FailingCall::Failure failure, quint32 error)
{
    switch (failure) {
    case FailingCall::Status:
        return error;
    case FailingCall::InvalidArgument:
        return EINVAL;
    case FailingCall::LastError:
    case FailingCall::Zero:
        break;
    }
    return 0;
}

void addCalls()
{
    QTest::addColumn<FailingCall>("call");
    for (const FailingCall &call : failingCalls())
        QTest::newRow(call.name.constData()) << call;
}

} // namespace

void SimulatedSteeringTest::callsSucceedAndAreRecorded_data()
{
    addCalls();
}

void SimulatedSteeringTest::callsSucceedAndAreRecorded()
{
    QFETCH(FailingCall, call);
    const DescribedWindows windows(answeringRegistry(), answeringSystem());
    PoisonedBuffer buffer(512);
    const qint64 result = call.make(buffer);
    const bool returnsZero = call.failure == FailingCall::Status || call.failure == FailingCall::InvalidArgument;
    QCOMPARE(result == 0, returnsZero);
    QCOMPARE(lastOf(call.name).name, call.name);
}

void SimulatedSteeringTest::faultFailsTheCall_data()
{
    addCalls();
}

void SimulatedSteeringTest::faultFailsTheCall()
{
    QFETCH(FailingCall, call);
    const DescribedWindows windows(answeringRegistry(), answeringSystem());
    PoisonedBuffer untouched(512);
    PoisonedBuffer buffer(512);
    SetLastError(poison);
    {
        const Fault fault = Fault::everyCall(call.name, 1234);
        QCOMPARE(call.make(buffer), failedResult(call.failure, 1234));
        QCOMPARE(fault.hits(), std::size_t(1));
    }
    if (call.failure == FailingCall::LastError)
        QCOMPARE(GetLastError(), DWORD(1234));
    QVERIFY2(buffer.isUntouchedFrom(4), "what is behind a record's size"); // the caller's own
    QCOMPARE(lastOf(call.name).result, failedResult(call.failure, 1234));
    QVERIFY(call.make(untouched) != failedResult(call.failure, 1234));
}

void SimulatedSteeringTest::faultFailsTheCallAfterItWroteItsResults_data()
{
    QTest::addColumn<FailingCall>("call");
    for (const FailingCall &call : failingCalls()) {
        if (call.name != "GetAdaptersInfo") // its buffer here is too small: it fails by itself
            QTest::newRow(call.name.constData()) << call;
    }
}

void SimulatedSteeringTest::faultFailsTheCallAfterItWroteItsResults()
{
    QFETCH(FailingCall, call);
    const DescribedWindows windows(answeringRegistry(), answeringSystem());
    PoisonedBuffer expected(512);
    call.make(expected);
    PoisonedBuffer buffer(512);
    SetLastError(poison);
    {
        const Fault fault = Fault::everyCall(call.name, 1234, simulated::BeforeFailing::WritesResults);
        QCOMPARE(call.make(buffer), failedResult(call.failure, 1234));
        QCOMPARE(fault.hits(), std::size_t(1));
    }
    if (call.failure == FailingCall::LastError)
        QCOMPARE(GetLastError(), DWORD(1234));
    QCOMPARE(lastOf(call.name).result, failedResult(call.failure, 1234));
    QCOMPARE(buffer.written(), expected.written());
}

void SimulatedSteeringTest::failedOpenLeavesADeadHandle()
{
    const DescribedWindows windows(answeringRegistry(), answeringSystem());
    const Fault fault = Fault::everyCall("RegOpenKeyExA", 5, simulated::BeforeFailing::WritesResults);
    HKEY key = nullptr;
    QCOMPARE(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "K", 0, KEY_READ, &key), LSTATUS(5));
    QVERIFY(key != nullptr);
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(RegCloseKey(key), LSTATUS(ERROR_INVALID_HANDLE));
    QVERIFY(!simulated::handleMisuses().isEmpty());
    key = nullptr;
    QCOMPARE(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Missing", 0, KEY_READ, &key), LSTATUS(ERROR_FILE_NOT_FOUND));
    QVERIFY2(key == nullptr, "a call that fails by itself stays what it is");
}

void SimulatedSteeringTest::withoutMachineEveryCallFails_data()
{
    QTest::addColumn<FailingCall>("call");
    for (const FailingCall &call : failingCalls()) {
        if (call.needsMachine)
            QTest::newRow(call.name.constData()) << call;
    }
}

void SimulatedSteeringTest::withoutMachineEveryCallFails()
{
    QFETCH(FailingCall, call);
    simulated::reset();
    simulated::installNothing();
    QVERIFY(!simulated::knowsMachine());
    PoisonedBuffer buffer(512);
    QCOMPARE(call.make(buffer) == 0, call.failure != FailingCall::Status);
    QVERIFY2(buffer.isUntouchedFrom(4), "what is behind a record's size"); // the caller's own
}

void SimulatedSteeringTest::journalOfRegistryCalls()
{
    const DescribedWindows windows("[HKEY_LOCAL_MACHINE\\A\\B]\n\"Name\"=\"AB\"\n[HKEY_LOCAL_MACHINE\\A\\B\\Sub]\n");
    HKEY a = nullptr;
    HKEY b = nullptr;
    char text[64];
    WCHAR wide[64];
    RegOpenKeyExA(HKEY_LOCAL_MACHINE, "a", 0, 0x20119, &a);
    RegOpenKeyExW(a, L"B", 0, 0x20019, &b);
    DWORD size = 64;
    RegQueryValueExA(b, "Name", nullptr, nullptr, reinterpret_cast<LPBYTE>(text), &size);
    size = 64;
    RegQueryValueExW(b, L"NAME", nullptr, nullptr, reinterpret_cast<LPBYTE>(wide), &size);
    DWORD nameSize = 64;
    RegEnumKeyExA(b, 0, text, &nameSize, nullptr, nullptr, nullptr, nullptr);
    RegEnumKeyA(b, 0, text, 32);
    nameSize = 64;
    size = 16;
    RegEnumValueA(b, 0, text, &nameSize, nullptr, nullptr, reinterpret_cast<LPBYTE>(text), &size);
    RegCloseKey(b);
    RegCloseKey(a);
    QCOMPARE(lines(), QStringList({
                          QStringLiteral("RegOpenKeyExA [HKEY_LOCAL_MACHINE\\a] [] 20119 0->0 = 0"),
                          QStringLiteral("RegOpenKeyExW [HKEY_LOCAL_MACHINE\\a\\B] [] 20019 0->0 = 0"),
                          QStringLiteral("RegQueryValueExA [HKEY_LOCAL_MACHINE\\a\\B] [Name] 0 64->3 = 0"),
                          QStringLiteral("RegQueryValueExW [HKEY_LOCAL_MACHINE\\a\\B] [NAME] 0 64->6 = 0"),
                          QStringLiteral("RegEnumKeyExA [HKEY_LOCAL_MACHINE\\a\\B] [0] 0 64->3 = 0"),
                          QStringLiteral("RegEnumKeyA [HKEY_LOCAL_MACHINE\\a\\B] [0] 0 32->32 = 0"),
                          QStringLiteral("RegEnumValueA [HKEY_LOCAL_MACHINE\\a\\B] [0] 0 16->3 = 0"),
                          QStringLiteral("RegCloseKey [HKEY_LOCAL_MACHINE\\a\\B] [] 0 0->0 = 0"),
                          QStringLiteral("RegCloseKey [HKEY_LOCAL_MACHINE\\a] [] 0 0->0 = 0"),
                      }));
}

void SimulatedSteeringTest::journalOfFailingCalls()
{
    const DescribedWindows windows("[HKEY_LOCAL_MACHINE]\n\"V\"=\"AB\"\n");
    HKEY key = nullptr;
    char text[2];
    RegOpenKeyExA(HKEY_CURRENT_USER, "None", 0, KEY_READ, &key);
    RegOpenKeyExA(HKEY_CURRENT_USER, "None", 8, KEY_READ, &key);
    DWORD size = 2;
    RegQueryValueExA(HKEY_LOCAL_MACHINE, "V", nullptr, nullptr, reinterpret_cast<LPBYTE>(text), &size);
    size = 2;
    RegQueryValueExA(HKEY_LOCAL_MACHINE, "None", nullptr, nullptr, reinterpret_cast<LPBYTE>(text), &size);
    RegEnumKeyA(HKEY_LOCAL_MACHINE, 7, text, 2);
    QCOMPARE(lines(), QStringList({
                          QStringLiteral("RegOpenKeyExA [HKEY_CURRENT_USER\\None] [] 20019 0->0 = 2"),
                          QStringLiteral("RegOpenKeyExA [HKEY_CURRENT_USER\\None] [8] 20019 0->0 = 2"),
                          QStringLiteral("RegQueryValueExA [HKEY_LOCAL_MACHINE] [V] 0 2->3 = 234"),
                          QStringLiteral("RegQueryValueExA [HKEY_LOCAL_MACHINE] [None] 0 2->2 = 2"),
                          QStringLiteral("RegEnumKeyA [HKEY_LOCAL_MACHINE] [7] 0 2->2 = 259"),
                      }));
}

void SimulatedSteeringTest::journalOfSystemCalls()
{
    const DescribedWindows windows(answeringRegistry(), answeringSystem());
    WCHAR text[64];
    WCHAR longPath[MAX_PATH];
    DWORD size = 64;
    GetComputerNameExW(ComputerNameNetBIOS, text, &size);
    size = 64;
    GetUserNameW(text, &size);
    SetErrorMode(1);
    GetLogicalDrives();
    GetDriveTypeW(L"C:\\");
    GetVolumeInformationW(L"C:\\", text, 32, nullptr, nullptr, nullptr, text + 32, 31);
    GetSystemWindowsDirectoryW(text, 64);
    GetSystemWindowsDirectoryW(text, 3);
    ExpandEnvironmentStringsW(L"%A%b", text, 64);
    wsprintfW(text, L"%c:", 'C');
    LoadLibraryW(L"none.dll");
    HeapFree(GetProcessHeap(), 0, HeapAlloc(GetProcessHeap(), 0, 704));
    HeapFree(GetProcessHeap(), 1, HeapAlloc(GetProcessHeap(), 8, 704));
    SHGetSpecialFolderPathW(nullptr, longPath, 99, FALSE);
    SHGetSpecialFolderPathW(nullptr, longPath, 99, TRUE);
    QCOMPARE(lines(), QStringList({
                          QStringLiteral("GetComputerNameExW [] [0] 0 64->2 = 1"),
                          QStringLiteral("GetUserNameW [] [] 0 64->4 = 1"),
                          QStringLiteral("SetErrorMode [] [1] 0 0->0 = 0"),
                          QStringLiteral("GetLogicalDrives [] [] 0 0->0 = 4"),
                          QStringLiteral("GetDriveTypeW [C:\\] [] 0 0->0 = 3"),
                          QStringLiteral("GetVolumeInformationW [C:\\] [31] 0 32->32 = 1"),
                          QStringLiteral("GetSystemWindowsDirectoryW [] [] 0 64->64 = 10"),
                          QStringLiteral("GetSystemWindowsDirectoryW [] [] 0 3->3 = 11"),
                          QStringLiteral("ExpandEnvironmentStringsW [] [%A%b] 0 64->64 = 3"),
                          QStringLiteral("wsprintfW [] [C:] 0 0->0 = 2"),
                          QStringLiteral("LoadLibraryW [none.dll] [] 0 0->0 = 0"),
                          QStringLiteral("HeapAlloc [] [] 0 704->704 = 1"),
                          QStringLiteral("HeapFree [] [] 0 0->0 = 1"),
                          QStringLiteral("HeapAlloc [] [] 8 704->704 = 1"),
                          QStringLiteral("HeapFree [] [] 1 0->0 = 1"),
                          QStringLiteral("SHGetSpecialFolderPathW [] [99] 0 0->0 = 0"),
                          QStringLiteral("SHGetSpecialFolderPathW [] [99] 1 0->0 = 0"),
                      }));
}

void SimulatedSteeringTest::journalOfOptionalArguments()
{
    const DescribedWindows windows(answeringRegistry(), answeringSystem());
    WCHAR text[MAX_PATH] = {};
    DWORD number = 0;
    ULARGE_INTEGER bytes = {};
    const HWND window = reinterpret_cast<HWND>(&number);
    GetVolumeInformationW(L"C:\\", text, 32, &number, &number, &number, text + 32, 32);
    GetVolumeInformationW(L"C:\\", text, 32, nullptr, &number, nullptr, text + 32, 32);
    GetVolumeInformationW(L"C:\\", text, 32, nullptr, nullptr, nullptr, text + 32, 32);
    GetDiskFreeSpaceExW(L"C:\\", &bytes, &bytes, &bytes);
    GetDiskFreeSpaceExW(L"C:\\", &bytes, &bytes, nullptr);
    SHGetSpecialFolderPathW(window, text, CSIDL_PERSONAL, FALSE);
    SHGetSpecialFolderPathW(nullptr, text, CSIDL_PERSONAL, FALSE);
    QStringList given;
    for (const simulated::Call &call : simulated::journal())
        given += call.given.join(QLatin1Char(' '));
    QCOMPARE(given,
             QStringList({"serialNumber maximumComponentLength flags", "maximumComponentLength", "", "totalFree", "",
                          "owner", ""}));
}

void SimulatedSteeringTest::everyCallFailsWhileTheFaultLives()
{
    const DescribedWindows windows(answeringRegistry());
    QCOMPARE(queryResult(), QByteArray("0"));
    {
        const Fault fault = Fault::everyCall("RegQueryValueExA", 5);
        QCOMPARE(queryResults(3), QByteArray("5 5 5"));
        QCOMPARE(fault.hits(), std::size_t(3));
    }
    QCOMPARE(queryResult(), QByteArray("0"));
}

void SimulatedSteeringTest::numberedCallFails_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("the first") << 0 << QByteArray("5 0 0");
    QTest::newRow("the second") << 1 << QByteArray("0 5 0");
    QTest::newRow("the third") << 2 << QByteArray("0 0 5");
    QTest::newRow("one that is not made") << 3 << QByteArray("0 0 0");
}

void SimulatedSteeringTest::numberedCallFails()
{
    QFETCH(int, number);
    QFETCH(QByteArray, expected);
    const DescribedWindows windows(answeringRegistry());
    const Fault fault = Fault::nthCall("RegQueryValueExA", std::size_t(number), 5);
    QByteArray results;
    for (int i = 0; i < 3; ++i) {
        results += queryResult() + ' ';
        RegCloseKey(HKEY_LOCAL_MACHINE); // of another name: not counted
    }
    QCOMPARE(results.trimmed(), expected);
    QCOMPARE(fault.hits(), std::size_t(number < 3 ? 1 : 0));
}

void SimulatedSteeringTest::numberedCallOfAllFails_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("the first, a close") << 0 << QByteArray("5 0 0 0");
    QTest::newRow("the second, a query") << 1 << QByteArray("0 5 0 0");
    QTest::newRow("the third, a close") << 2 << QByteArray("0 0 5 0");
    QTest::newRow("the fourth, a query") << 3 << QByteArray("0 0 0 5");
}

void SimulatedSteeringTest::numberedCallOfAllFails()
{
    QFETCH(int, number);
    QFETCH(QByteArray, expected);
    const DescribedWindows windows(answeringRegistry());
    const Fault fault = Fault::nthOfAll(std::size_t(number), 5);
    QByteArray results;
    for (int i = 0; i < 2; ++i) {
        results += QByteArray::number(RegCloseKey(HKEY_LOCAL_MACHINE)) + ' ';
        results += queryResult() + ' ';
    }
    QCOMPARE(results.trimmed(), expected);
    QCOMPARE(fault.hits(), std::size_t(1));
}

void SimulatedSteeringTest::callsAreCountedFromTheFaultOn()
{
    const DescribedWindows windows(answeringRegistry());
    queryResults(5);
    const Fault named = Fault::nthCall("RegQueryValueExA", 1, 5);
    const Fault ofAll = Fault::nthOfAll(2, 8);
    QCOMPARE(queryResults(4), QByteArray("0 5 8 0"));
}

void SimulatedSteeringTest::faultOfAnotherName()
{
    const DescribedWindows windows(answeringRegistry());
    const Fault fault = Fault::everyCall("RegQueryValueExW", 5);
    QCOMPARE(queryResult(), QByteArray("0"));
    QCOMPARE(fault.hits(), std::size_t(0));
}

void SimulatedSteeringTest::firstOfTwoFaultsWins()
{
    const DescribedWindows windows(answeringRegistry());
    const Fault first = Fault::nthCall("RegQueryValueExA", 0, 5);
    const Fault second = Fault::everyCall("RegQueryValueExA", 8);
    QCOMPARE(queryResults(2), QByteArray("5 8"));
    QCOMPARE(first.hits(), std::size_t(1));
    QCOMPARE(second.hits(), std::size_t(1));
}

void SimulatedSteeringTest::movedFaultGoesOn()
{
    const DescribedWindows windows(answeringRegistry());
    {
        std::vector<Fault> faults;
        {
            Fault fault = Fault::everyCall("RegQueryValueExA", 5);
            faults.push_back(std::move(fault));
        }
        QCOMPARE(queryResult(), QByteArray("5"));
        QCOMPARE(faults.front().hits(), std::size_t(1));
    }
    QCOMPARE(queryResult(), QByteArray("0"));
}

void SimulatedSteeringTest::hookIsToldOfEveryCall()
{
    const DescribedWindows windows(answeringRegistry());
    QStringList told;
    simulated::setBeforeCall([&](std::size_t number, const QByteArray &name) {
        told += QStringLiteral("%1 %2").arg(number).arg(QLatin1String(name));
    });
    queryResult();
    GetLogicalDrives();
    queryResult();
    simulated::setBeforeCall({});
    queryResult();
    QCOMPARE(told,
             QStringList({QStringLiteral("0 RegQueryValueExA"), QStringLiteral("1 GetLogicalDrives"),
                          QStringLiteral("2 RegQueryValueExA")}));
    QCOMPARE(simulated::journal().size(), std::size_t(4));
    QCOMPARE(simulated::callCount(), std::size_t(4));
}

void SimulatedSteeringTest::hookChangesTheRegistryBetweenCalls()
{
    const DescribedWindows windows(answeringRegistry());
    simulated::setBeforeCall([](std::size_t number, const QByteArray &) {
        const auto root = simulated::machineInUse().registry.root(machine::RegistryRoot::LocalMachine);
        if (number == 1)
            root->setValue({QStringLiteral("V"), REG_BINARY, QByteArray(100, 'x')});
        if (number == 2)
            root->removeValue(QStringLiteral("V"));
    });
    const auto sizeOfValue = [] {
        DWORD size = poison;
        RegQueryValueExA(HKEY_LOCAL_MACHINE, "V", nullptr, nullptr, nullptr, &size);
        return size;
    };
    QCOMPARE(sizeOfValue(), DWORD(6));
    QCOMPARE(sizeOfValue(), DWORD(100));
    QCOMPARE(sizeOfValue(), DWORD(0)); // of a missing value
}

void SimulatedSteeringTest::hookIsGoneAfterReset()
{
    int told = 0;
    simulated::setBeforeCall([&](std::size_t, const QByteArray &) { ++told; });
    simulated::reset();
    GetLogicalDrives();
    QCOMPARE(told, 0);
}

void SimulatedSteeringTest::resetForgets()
{
    const DescribedWindows windows(answeringRegistry());
    const Fault fault = Fault::everyCall("RegQueryValueExA", 5);
    SetErrorMode(3);
    SetLastError(7);
    queryResult();
    simulated::reset();
    QVERIFY(simulated::journal().empty());
    QCOMPARE(simulated::callCount(), std::size_t(0));
    QCOMPARE(GetLastError(), DWORD(0));
    QCOMPARE(SetErrorMode(0), UINT(0));
    QCOMPARE(queryResult(), QByteArray("0"));
    QCOMPARE(fault.hits(), std::size_t(0));
    QVERIFY2(simulated::knowsMachine(), "the machine stays");
}

void SimulatedSteeringTest::lastErrorIsLeftBySuccess()
{
    const DescribedWindows windows(answeringRegistry(), answeringSystem());
    SetLastError(poison);
    GetLogicalDrives();
    queryResult("None"); // returns its error
    QCOMPARE(GetLastError(), poison);
}

TEST_WITHOUT_APPLICATION(SimulatedSteeringTest);
#include "tst_simulated_steering.moc"
