// Journal, faults, and the function that runs before each call.

#include "calls.h"
#include "described_windows.h"
#include "rows.h"
#include "simulated_windows.h"

#include <QtTest/QtTest>
#include <cerrno>
#include <shlobj.h>

using simulated::Fault;

namespace {

QByteArray queryResult(const char *name = "V")
{
    DWORD size = 0;
    return QByteArray::number(RegQueryValueExA(HKEY_LOCAL_MACHINE, name, nullptr, nullptr, nullptr, &size));
}

/// The statuses of \a count queries.
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

void callsSucceedAndAreRecorded()
{
    const auto row = [](const QString &name, const FailingCall &call) {
        addTestRow(name, [=] {
            const DescribedWindows windows(answeringRegistry(), answeringSystem());
            PoisonedBuffer buffer(512);
            const qint64 result = call.make(buffer);
            const bool returnsZero = call.failure == FailingCall::Status || call.failure == FailingCall::InvalidArgument;
            QCOMPARE(result == 0, returnsZero);
            QCOMPARE(lastOf(call.name).name, call.name);
        });
    };
    for (const FailingCall &call : failingCalls())
        row(call.name.constData(), call);
}

void faultFailsTheCall()
{
    const auto row = [](const QString &name, const FailingCall &call) {
        addTestRow(name, [=] {
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
            QVERIFY2(buffer.isUntouchedFrom(4), "memory after the size member is unchanged");
            QCOMPARE(lastOf(call.name).result, failedResult(call.failure, 1234));
            QVERIFY(call.make(untouched) != failedResult(call.failure, 1234));
        });
    };
    for (const FailingCall &call : failingCalls())
        row(call.name.constData(), call);
}

void faultFailsTheCallAfterItWroteItsResults()
{
    const auto row = [](const QString &name, const FailingCall &call) {
        addTestRow(name, [=] {
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
        });
    };
    for (const FailingCall &call : failingCalls()) {
        if (call.name != "GetAdaptersInfo") // fails without the fault, because its buffer is too small
            row(call.name.constData(), call);
    }
}

void failedOpenWithResultsGivesAnInvalidHandle()
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
    QVERIFY2(key == nullptr, "a call that fails without the fault keeps its error");
}

void withoutMachineEveryCallFails()
{
    const auto row = [](const QString &name, const FailingCall &call) {
        addTestRow(name, [=] {
            simulated::reset();
            simulated::installNothing();
            QVERIFY(!simulated::knowsMachine());
            PoisonedBuffer buffer(512);
            QCOMPARE(call.make(buffer) == 0, call.failure != FailingCall::Status);
            QVERIFY2(buffer.isUntouchedFrom(4), "memory after the size member is unchanged");
        });
    };
    for (const FailingCall &call : failingCalls()) {
        if (call.needsMachine)
            row(call.name.constData(), call);
    }
}

void journalOfRegistryCalls()
{
    const DescribedWindows windows("[HKEY_LOCAL_MACHINE\\A\\B]\n\"Name\"=\"AB\"\n[HKEY_LOCAL_MACHINE\\A\\B\\Sub]\n");
    HKEY a = nullptr;
    HKEY b = nullptr;
    char text[64];
    WCHAR wide[64];
    RegOpenKeyExA(HKEY_LOCAL_MACHINE, "a", 0, KEY_READ | KEY_WOW64_64KEY, &a);
    RegOpenKeyExW(a, L"B", 0, KEY_READ, &b);
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
                          "RegOpenKeyExA [HKEY_LOCAL_MACHINE\\a] [] 20119 0->0 = 0",
                          "RegOpenKeyExW [HKEY_LOCAL_MACHINE\\a\\B] [] 20019 0->0 = 0",
                          "RegQueryValueExA [HKEY_LOCAL_MACHINE\\a\\B] [Name] 0 64->3 = 0",
                          "RegQueryValueExW [HKEY_LOCAL_MACHINE\\a\\B] [NAME] 0 64->6 = 0",
                          "RegEnumKeyExA [HKEY_LOCAL_MACHINE\\a\\B] [0] 0 64->3 = 0",
                          "RegEnumKeyA [HKEY_LOCAL_MACHINE\\a\\B] [0] 0 32->32 = 0",
                          "RegEnumValueA [HKEY_LOCAL_MACHINE\\a\\B] [0] 0 16->3 = 0",
                          "RegCloseKey [HKEY_LOCAL_MACHINE\\a\\B] [] 0 0->0 = 0",
                          "RegCloseKey [HKEY_LOCAL_MACHINE\\a] [] 0 0->0 = 0",
                      }));
}

void journalOfFailingCalls()
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
                          "RegOpenKeyExA [HKEY_CURRENT_USER\\None] [] 20019 0->0 = 2",
                          "RegOpenKeyExA [HKEY_CURRENT_USER\\None] [8] 20019 0->0 = 2",
                          "RegQueryValueExA [HKEY_LOCAL_MACHINE] [V] 0 2->3 = 234",
                          "RegQueryValueExA [HKEY_LOCAL_MACHINE] [None] 0 2->2 = 2",
                          "RegEnumKeyA [HKEY_LOCAL_MACHINE] [7] 0 2->2 = 259",
                      }));
}

void journalOfSystemCalls()
{
    const DescribedWindows windows(answeringRegistry(), answeringSystem());
    WCHAR text[64];
    WCHAR longPath[MAX_PATH];
    DWORD size = 64;
    GetComputerNameExW(ComputerNameNetBIOS, text, &size);
    size = 64;
    GetUserNameW(text, &size);
    SetErrorMode(SEM_FAILCRITICALERRORS);
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
                          "GetComputerNameExW [] [0] 0 64->2 = 1",
                          "GetUserNameW [] [] 0 64->4 = 1",
                          "SetErrorMode [] [1] 0 0->0 = 0",
                          "GetLogicalDrives [] [] 0 0->0 = 4",
                          "GetDriveTypeW [C:\\] [] 0 0->0 = 3",
                          "GetVolumeInformationW [C:\\] [31] 0 32->32 = 1",
                          "GetSystemWindowsDirectoryW [] [] 0 64->64 = 10",
                          "GetSystemWindowsDirectoryW [] [] 0 3->3 = 11",
                          "ExpandEnvironmentStringsW [] [%A%b] 0 64->64 = 3",
                          "wsprintfW [] [C:] 0 0->0 = 2",
                          "LoadLibraryW [none.dll] [] 0 0->0 = 0",
                          "HeapAlloc [] [] 0 704->704 = 1",
                          "HeapFree [] [] 0 0->0 = 1",
                          "HeapAlloc [] [] 8 704->704 = 1",
                          "HeapFree [] [] 1 0->0 = 1",
                          "SHGetSpecialFolderPathW [] [99] 0 0->0 = 0",
                          "SHGetSpecialFolderPathW [] [99] 1 0->0 = 0",
                      }));
}

void journalOfOptionalArguments()
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

void everyCallFailsWhileTheFaultExists()
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

void numberedCallFails()
{
    const auto row = [](const QString &name, int number, const QByteArray &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(answeringRegistry());
            const Fault fault = Fault::nthCall("RegQueryValueExA", std::size_t(number), 5);
            QByteArray results;
            for (int i = 0; i < 3; ++i) {
                results += queryResult() + ' ';
                RegCloseKey(HKEY_LOCAL_MACHINE); // has another name, so it is not counted
            }
            QCOMPARE(results.trimmed(), expected);
            QCOMPARE(fault.hits(), std::size_t(number < 3 ? 1 : 0));
        });
    };
    row("the first", 0, QByteArray("5 0 0"));
    row("the second", 1, QByteArray("0 5 0"));
    row("the third", 2, QByteArray("0 0 5"));
    row("a call that is not made", 3, QByteArray("0 0 0"));
}

void numberedCallOfAllFails()
{
    const auto row = [](const QString &name, int number, const QByteArray &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(answeringRegistry());
            const Fault fault = Fault::nthOfAll(std::size_t(number), 5);
            QByteArray results;
            for (int i = 0; i < 2; ++i) {
                results += QByteArray::number(RegCloseKey(HKEY_LOCAL_MACHINE)) + ' ';
                results += queryResult() + ' ';
            }
            QCOMPARE(results.trimmed(), expected);
            QCOMPARE(fault.hits(), std::size_t(1));
        });
    };
    row("the first, a close", 0, QByteArray("5 0 0 0"));
    row("the second, a query", 1, QByteArray("0 5 0 0"));
    row("the third, a close", 2, QByteArray("0 0 5 0"));
    row("the fourth, a query", 3, QByteArray("0 0 0 5"));
}

void callsAreCountedFromTheCreationOfTheFault()
{
    const DescribedWindows windows(answeringRegistry());
    queryResults(5);
    const Fault named = Fault::nthCall("RegQueryValueExA", 1, 5);
    const Fault ofAll = Fault::nthOfAll(2, 8);
    QCOMPARE(queryResults(4), QByteArray("0 5 8 0"));
}

void faultOfAnotherName()
{
    const DescribedWindows windows(answeringRegistry());
    const Fault fault = Fault::everyCall("RegQueryValueExW", 5);
    QCOMPARE(queryResult(), QByteArray("0"));
    QCOMPARE(fault.hits(), std::size_t(0));
}

void firstOfTwoFaultsApplies()
{
    const DescribedWindows windows(answeringRegistry());
    const Fault first = Fault::nthCall("RegQueryValueExA", 0, 5);
    const Fault second = Fault::everyCall("RegQueryValueExA", 8);
    QCOMPARE(queryResults(2), QByteArray("5 8"));
    QCOMPARE(first.hits(), std::size_t(1));
    QCOMPARE(second.hits(), std::size_t(1));
}

void movedFaultStaysActive()
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

void hookRunsBeforeEveryCall()
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

void hookChangesTheRegistryBetweenCalls()
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
    QCOMPARE(sizeOfValue(), DWORD(0)); // the value is missing
}

void resetRemovesTheHook()
{
    int told = 0;
    simulated::setBeforeCall([&](std::size_t, const QByteArray &) { ++told; });
    simulated::reset();
    GetLogicalDrives();
    QCOMPARE(told, 0);
}

void resetClearsJournalAndFaults()
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
    QVERIFY2(simulated::knowsMachine(), "the machine stays installed");
}

void successDoesNotChangeTheLastError()
{
    const DescribedWindows windows(answeringRegistry(), answeringSystem());
    SetLastError(poison);
    GetLogicalDrives();
    queryResult("None"); // returns its error
    QCOMPARE(GetLastError(), poison);
}

void addTests()
{
    addTestRows("callsSucceedAndAreRecorded", callsSucceedAndAreRecorded);
    addTestRows("faultFailsTheCall", faultFailsTheCall);
    addTestRows("faultFailsTheCallAfterItWroteItsResults", faultFailsTheCallAfterItWroteItsResults);
    addTestRow("failedOpenWithResultsGivesAnInvalidHandle", failedOpenWithResultsGivesAnInvalidHandle);
    addTestRows("withoutMachineEveryCallFails", withoutMachineEveryCallFails);
    addTestRow("journalOfRegistryCalls", journalOfRegistryCalls);
    addTestRow("journalOfFailingCalls", journalOfFailingCalls);
    addTestRow("journalOfSystemCalls", journalOfSystemCalls);
    addTestRow("journalOfOptionalArguments", journalOfOptionalArguments);
    addTestRow("everyCallFailsWhileTheFaultExists", everyCallFailsWhileTheFaultExists);
    addTestRows("numberedCallFails", numberedCallFails);
    addTestRows("numberedCallOfAllFails", numberedCallOfAllFails);
    addTestRow("callsAreCountedFromTheCreationOfTheFault", callsAreCountedFromTheCreationOfTheFault);
    addTestRow("faultOfAnotherName", faultOfAnotherName);
    addTestRow("firstOfTwoFaultsApplies", firstOfTwoFaultsApplies);
    addTestRow("movedFaultStaysActive", movedFaultStaysActive);
    addTestRow("hookRunsBeforeEveryCall", hookRunsBeforeEveryCall);
    addTestRow("hookChangesTheRegistryBetweenCalls", hookChangesTheRegistryBetweenCalls);
    addTestRow("resetRemovesTheHook", resetRemovesTheHook);
    addTestRow("resetClearsJournalAndFaults", resetClearsJournalAndFaults);
    addTestRow("successDoesNotChangeTheLastError", successDoesNotChangeTheLastError);
}

} // namespace

TEST_WITHOUT_APPLICATION(RowTest(addTests));
