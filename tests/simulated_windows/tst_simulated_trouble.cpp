// Trouble: calls that sleep, hang, crash or end the process.

#include "calls.h"
#include "declared_calls.h"
#include "described_windows.h"
#include "forked_child.h"
#include "rows.h"
#include "simulated_windows.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtTest/QtTest>
#include <csignal>
#include <cstring>
#include <sys/time.h>

using simulated::CallPattern;
using simulated::Fault;
using simulated::Trouble;
using simulated::TroubleKind;

namespace {

LSTATUS query(const char *name = "V")
{
    DWORD size = 0;
    return RegQueryValueExA(HKEY_LOCAL_MACHINE, name, nullptr, nullptr, nullptr, &size);
}

/// Makes a call for each letter, and tells the letter after the call.
void makeCalls(const char *letters)
{
    for (; *letters; ++letters) {
        HKEY key = nullptr;
        if (*letters == 'q')
            query();
        else if (*letters == 'n')
            query("None");
        else if (*letters == 'o')
            RegOpenKeyExA(HKEY_LOCAL_MACHINE, "K", 0, KEY_READ, &key);
        else if (*letters == 'c')
            RegCloseKey(HKEY_LOCAL_MACHINE);
        ForkedChild::tell(*letters);
    }
}

/// How a child ends that makes these calls with some trouble.
template <typename MakeTrouble>
QByteArray endOfCalls(const char *letters, MakeTrouble makeTrouble)
{
    return endOf([&] {
        const DescribedWindows windows(answeringRegistry());
        const Trouble trouble = makeTrouble();
        makeCalls(letters);
    });
}

const TroubleKind exit7 = TroubleKind::exit(7);
const TroubleKind noSleep = TroubleKind::sleep(0);

// Calls ------------------------------------------------------------------------------------------

struct AnyCall
{
    QByteArray name;
    std::function<void(PoisonedBuffer &)> make;
};

/// Calls that cannot fail.
std::vector<AnyCall> reliableCalls()
{
    return {
        {"GetSystemInfo", [](PoisonedBuffer &b) { GetSystemInfo(reinterpret_cast<LPSYSTEM_INFO>(b.bytes())); }},
        {"SetErrorMode", [](PoisonedBuffer &) { SetErrorMode(SEM_FAILCRITICALERRORS); }},
        {"wsprintfW", [](PoisonedBuffer &b) { wsprintfW(b.wide(), L"%c:\\", 'C'); }},
    };
}

/// Calls that only return a constant, or what another call left. They are neither counted nor recorded.
std::vector<AnyCall> uncountedCalls()
{
    return {
        {"GetLastError", [](PoisonedBuffer &) { GetLastError(); }},
        {"SetLastError", [](PoisonedBuffer &) { SetLastError(5); }},
        {"GetProcessHeap", [](PoisonedBuffer &) { GetProcessHeap(); }},
        {"GetCurrentProcess", [](PoisonedBuffer &) { GetCurrentProcess(); }},
    };
}

/// Calls whose key or value differ from those of failingCalls().
std::vector<AnyCall> furtherCalls()
{
    return {
        {"RegOpenKeyExA", [](PoisonedBuffer &) {
             HKEY key = nullptr;
             RegOpenKeyExA(HKEY_LOCAL_MACHINE, "K", 8, KEY_READ, &key);
             RegCloseKey(key);
         }},
        {"RegOpenKeyExW", [](PoisonedBuffer &) {
             HKEY key = nullptr;
             RegOpenKeyExW(HKEY_LOCAL_MACHINE, nullptr, 0, KEY_READ, &key);
             RegCloseKey(key);
         }},
        {"RegQueryValueExA", [](PoisonedBuffer &) { query(nullptr); }},
        {"GetProcAddress", [](PoisonedBuffer &) {
             const HMODULE library = LoadLibraryW(L"dnssd.dll");
             GetProcAddress(library, "DNSServiceGetProperty");
             FreeLibrary(library);
         }},
    };
}

std::vector<AnyCall> countedCalls()
{
    std::vector<AnyCall> result = reliableCalls();
    for (const FailingCall &call : failingCalls())
        result.push_back({call.name, [call](PoisonedBuffer &buffer) { call.make(buffer); }});
    return result;
}

const AnyCall *callNamed(const std::vector<AnyCall> &calls, const QByteArray &name)
{
    const auto found = std::find_if(calls.begin(), calls.end(), [&](const AnyCall &call) { return call.name == name; });
    return found == calls.end() ? nullptr : &*found;
}

CallPattern exactly(const simulated::Call &call)
{
    return {call.name, call.key, call.value};
}

void declaredCallsAreUnderstood()
{
    const QStringList declared = declaredCalls();
    QVERIFY(declared.contains("RegEnumKeyExA")); // its declaration has two lines
    QVERIFY(declared.contains("GetAdaptersInfo"));
    QVERIFY(declared.contains("_localtime32_s"));
    QVERIFY(declared.contains("wsprintfW"));
    QCOMPARE(QSet<QString>(declared.begin(), declared.end()).size(), declared.size());
}

void everyCallOfTheTablesIsDeclared()
{
    QStringList expected = declaredCalls();
    expected += {"GetProductInfo", "DNSServiceGetProperty"}; // GetProcAddress() returns them
    expected.sort();
    QStringList actual;
    for (const auto &calls : {countedCalls(), uncountedCalls()}) {
        for (const AnyCall &call : calls)
            actual += QString::fromLatin1(call.name);
    }
    actual.sort();
    QCOMPARE(actual, expected);
}

void uncountedCallsAreNotCounted()
{
    const DescribedWindows windows(answeringRegistry(), answeringSystem());
    PoisonedBuffer buffer(512);
    for (const AnyCall &call : uncountedCalls())
        call.make(buffer);
    QCOMPARE(simulated::callCount(), std::size_t(0));
}

// What a signal that arrives during the sleep copies.
PoisonedBuffer *observed = nullptr;
char during[512];
bool hasCopied = false;

void copyBuffer(int)
{
    std::memcpy(during, observed->bytes(), sizeof during);
    hasCopied = true;
}

/// Trouble comes before the call writes anything.
void troubleOfEveryDeclaredCall()
{
    const auto row = [](const QByteArray &name) {
        addTestRow(QString::fromLatin1(name), [=] {
            const auto calls = countedCalls();
            const AnyCall *call = callNamed(calls, name);
            QVERIFY2(call, "neither in countedCalls() nor in uncountedCalls()");
            const DescribedWindows windows(answeringRegistry(), answeringSystem());
            PoisonedBuffer buffer(sizeof during);
            observed = &buffer;
            hasCopied = false;
            simulated::setBeforeCall([&](std::size_t, const QByteArray &begun) {
                if (begun != name)
                    return;
                const itimerval soon = {{0, 0}, {0, 2000}}; // microseconds
                setitimer(ITIMER_REAL, &soon, nullptr);
            });
            const auto previous = std::signal(SIGALRM, copyBuffer);
            const Trouble trouble = Trouble::everyCall(name, TroubleKind::sleep(20));
            call->make(buffer);
            const itimerval never = {};
            setitimer(ITIMER_REAL, &never, nullptr);
            std::signal(SIGALRM, previous);
            QVERIFY(trouble.hits() > 0);
            QVERIFY(hasCopied);
            PoisonedBuffer untouched(sizeof during);
            // The caller sets the first member of these records.
            const QByteArrayList sized = {"GetVersionExA", "GetVersionExW", "GlobalMemoryStatusEx"};
            const std::size_t start = sized.contains(name) ? sizeof(DWORD) : 0;
            QVERIFY2(std::memcmp(during + start, untouched.bytes() + start, sizeof during - start) == 0,
                     "the call wrote something before");
        });
    };
    QStringList names = declaredCalls();
    for (const AnyCall &call : uncountedCalls())
        names.removeAll(QString::fromLatin1(call.name));
    for (const QString &name : qAsConst(names))
        row(name.toLatin1());
    row("GetProductInfo");
    row("DNSServiceGetProperty");
}

/// Trouble is told the key and the value that the journal records.
void keyAndValueOfEveryCall()
{
    const auto row = [](const AnyCall &call) {
        addTestRow(QString::fromLatin1(call.name), [=] {
            std::vector<simulated::Call> calls;
            PoisonedBuffer buffer(512);
            {
                const DescribedWindows windows(answeringRegistry(), answeringSystem());
                call.make(buffer);
                calls = simulated::journal();
            }
            QVERIFY(!calls.empty());
            for (const simulated::Call &expected : calls) {
                const auto same = [&](const simulated::Call &other) {
                    return other.name == expected.name && other.key == expected.key && other.value == expected.value;
                };
                const auto count = std::count_if(calls.begin(), calls.end(), same);
                const DescribedWindows windows(answeringRegistry(), answeringSystem());
                CallPattern otherKey = exactly(expected);
                *otherKey.key += QLatin1Char('x');
                CallPattern otherValue = exactly(expected);
                *otherValue.value += QLatin1Char('x');
                const Trouble none = Trouble::everyCall(otherKey, noSleep);
                const Trouble alsoNone = Trouble::everyCall(otherValue, noSleep);
                const Trouble trouble = Trouble::everyCall(exactly(expected), noSleep);
                call.make(buffer);
                QCOMPARE(trouble.hits(), std::size_t(count));
                QCOMPARE(none.hits() + alsoNone.hits(), std::size_t(0));
            }
        });
    };
    for (const AnyCall &call : countedCalls())
        row(call);
    for (AnyCall call : furtherCalls()) {
        call.name += ", another object";
        row(call);
    }
}

// Scope ------------------------------------------------------------------------------------------

void everyCallWhileTheTroubleExists()
{
    const DescribedWindows windows(answeringRegistry());
    query();
    const Trouble trouble = Trouble::everyCall("RegQueryValueExA", noSleep);
    query();
    RegCloseKey(HKEY_LOCAL_MACHINE);
    query("None");
    query();
    QCOMPARE(trouble.hits(), std::size_t(3));
}

void troubleEndsWithItsScope()
{
    QCOMPARE(endOf([] {
                 const DescribedWindows windows(answeringRegistry());
                 {
                     const Trouble trouble = Trouble::everyCall("RegQueryValueExA", exit7);
                     makeCalls("c");
                 }
                 makeCalls("q");
             }),
             QByteArray("cq, exit code 0"));
}

void numberedCall()
{
    const auto row = [](const QString &name, std::size_t number, const QByteArray &expected) {
        addTestRow(name, [=] {
            const auto nth = [&] { return Trouble::nthCall("RegQueryValueExA", number, exit7); };
            QCOMPARE(endOfCalls("qcqcqc", nth), expected);
        });
    };
    row("the first", 0, "exit code 7");
    row("the second", 1, "qc, exit code 7");
    row("the third", 2, "qcqc, exit code 7");
    row("a call that is not made", 3, "qcqcqc, exit code 0");
}

void numberedCallOfAll()
{
    const auto row = [](const QString &name, std::size_t number, const QByteArray &expected) {
        addTestRow(name, [=] {
            QCOMPARE(endOfCalls("cqo", [&] { return Trouble::nthOfAll(number, exit7); }), expected);
        });
    };
    row("the first, a close", 0, "exit code 7");
    row("the second, a query", 1, "c, exit code 7");
    row("the third, an open", 2, "cq, exit code 7");
    row("a call that is not made", 3, "cqo, exit code 0");
}

void callsAreCountedFromTheCreation()
{
    QCOMPARE(endOf([] {
                 const DescribedWindows windows(answeringRegistry());
                 makeCalls("qqq");
                 const Trouble trouble = Trouble::nthCall("RegQueryValueExA", 1, exit7);
                 makeCalls("qqq");
             }),
             QByteArray("qqqq, exit code 7"));
}

void firstOfTwoApplies()
{
    const DescribedWindows windows(answeringRegistry());
    const Trouble first = Trouble::nthCall("RegQueryValueExA", 0, noSleep);
    const Trouble second = Trouble::everyCall("RegQueryValueExA", noSleep);
    query();
    query();
    QCOMPARE(first.hits(), std::size_t(1));
    QCOMPARE(second.hits(), std::size_t(1));
}

void firstOfTwoEndsTheProcess()
{
    QCOMPARE(endOf([] {
                 const Trouble seven = Trouble::nthOfAll(0, exit7);
                 const Trouble eight = Trouble::nthOfAll(0, TroubleKind::exit(8));
                 makeCalls("q");
             }),
             QByteArray("exit code 7"));
}

void movedTroubleStaysActive()
{
    const DescribedWindows windows(answeringRegistry());
    std::vector<Trouble> troubles;
    {
        Trouble trouble = Trouble::everyCall("RegQueryValueExA", noSleep);
        troubles.push_back(std::move(trouble));
    }
    query();
    QCOMPARE(troubles.front().hits(), std::size_t(1));
}

void resetRemovesTrouble()
{
    QCOMPARE(endOf([] {
                 const Trouble trouble = Trouble::everyCall("RegQueryValueExA", exit7);
                 simulated::reset();
                 makeCalls("q");
             }),
             QByteArray("q, exit code 0"));
}

void aTroubleThatResetRemovedDoesNotEndAnother()
{
    QCOMPARE(endOf([] {
                 std::optional<Trouble> old(Trouble::everyCall("RegCloseKey", noSleep));
                 simulated::reset();
                 const Trouble trouble = Trouble::everyCall("RegQueryValueExA", exit7);
                 old.reset();
                 makeCalls("cq");
             }),
             QByteArray("c, exit code 7"));
}

void theHookRunsBeforeTheTrouble()
{
    QCOMPARE(endOf([] {
                 const DescribedWindows windows(answeringRegistry());
                 std::optional<Trouble> trouble;
                 simulated::setBeforeCall([&](std::size_t number, const QByteArray &) {
                     ForkedChild::tell('h');
                     if (number == 1)
                         trouble.emplace(Trouble::everyCall("RegQueryValueExA", exit7));
                 });
                 makeCalls("qq");
             }),
             QByteArray("hqh, exit code 7"));
}

void callAlsoHasAFault()
{
    const DescribedWindows windows(answeringRegistry());
    const Fault fault = Fault::everyCall("RegQueryValueExA", 5);
    const Trouble trouble = Trouble::everyCall("RegQueryValueExA", noSleep);
    QCOMPARE(query(), LSTATUS(5));
    QCOMPARE(fault.hits(), std::size_t(1));
    QCOMPARE(trouble.hits(), std::size_t(1));
}

void patterns()
{
    const auto row = [](const QString &name, const CallPattern &calls, const QByteArray &expected) {
        addTestRow(name, [=] {
            QCOMPARE(endOfCalls("coqn", [&] { return Trouble::everyCall(calls, exit7); }), expected);
        });
    };
    const QString root = QStringLiteral("HKEY_LOCAL_MACHINE");
    const QString key = QStringLiteral("HKEY_LOCAL_MACHINE\\K");
    row("any call", {}, "exit code 7");
    row("a name", {"RegQueryValueExA"}, "co, exit code 7");
    row("a key", {std::nullopt, key}, "c, exit code 7");
    row("a key and a name", {"RegOpenKeyExA", key}, "c, exit code 7");
    row("a key that calls of this name do not have", {"RegQueryValueExA", key}, "coqn, exit code 0");
    row("a value", {std::nullopt, std::nullopt, "None"}, "coq, exit code 7");
    row("name, key and value", {"RegQueryValueExA", root, "V"}, "co, exit code 7");
    row("another value", {"RegQueryValueExA", root, "W"}, "coqn, exit code 0");
    row("the empty key", {std::nullopt, QString("")}, "exit code 7"); // the journal has no key of a close of a root
    row("case of letters", {"RegQueryValueExA", root, "v"}, "coqn, exit code 0");
    row("a part of a name", {"RegQueryValueEx"}, "coqn, exit code 0");
    row("an empty name", {""}, "coqn, exit code 0");
}

// Kinds ------------------------------------------------------------------------------------------

void ends()
{
    const auto row = [](const QString &name, TroubleKind kind, const QByteArray &expected) {
        addTestRow(name, [=] {
            QCOMPARE(endOf([&] {
                         // An ending call reaches none of them.
                         std::atexit([] { ForkedChild::tell('x'); });
                         std::signal(SIGSEGV, [](int) { _exit(99); });
                         std::signal(SIGABRT, [](int) { _exit(99); });
                         const Trouble trouble = Trouble::everyCall("RegQueryValueExA", kind);
                         makeCalls("cq");
                     }),
                     expected);
        });
    };
    row("crash", TroubleKind::crash(), "c, signal " + QByteArray::number(SIGSEGV));
    row("abort", TroubleKind::abort(), "c, signal " + QByteArray::number(SIGABRT));
    row("exit", TroubleKind::exit(3), "c, exit code 3");
    row("exit with success", TroubleKind::exit(0), "c, exit code 0");
    row("exit with the largest code", TroubleKind::exit(255), "c, exit code 255");
}

void tellSignal(int)
{
    ForkedChild::tell('s');
}

void handle(int signal)
{
    struct sigaction action = {};
    action.sa_handler = tellSignal; // without SA_RESTART: the signal interrupts system calls
    sigaction(signal, &action, nullptr);
}

void sleepContinuesAfterASignal()
{
    ForkedChild child([] {
        handle(SIGALRM);
        const DescribedWindows windows(answeringRegistry());
        const Trouble trouble = Trouble::everyCall("RegQueryValueExA", TroubleKind::sleep(200));
        const itimerval soon = {{0, 0}, {0, 50000}}; // microseconds
        setitimer(ITIMER_REAL, &soon, nullptr);
        QElapsedTimer timer;
        timer.start();
        const LSTATUS result = query();
        ForkedChild::tell(timer.elapsed() >= 200 ? 'l' : 'e');
        ForkedChild::tell(result == ERROR_SUCCESS ? '0' : 'f');
    });
    QCOMPARE(child.end(), QByteArray("sl0, exit code 0"));
}

/// The fields of /proc/ID/stat after the name: the first is the state.
QList<QByteArray> statOf(pid_t id)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(id));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray text = file.readAll();
    return text.mid(text.lastIndexOf(')') + 2).split(' ');
}

/// Processor time in clock ticks.
int timeOf(pid_t id)
{
    const QList<QByteArray> fields = statOf(id);
    return fields.value(11).toInt() + fields.value(12).toInt();
}

void hangEndsByASignalOnly()
{
    const auto row = [](const QString &name, int signal) {
        addTestRow(name, [=] {
            ForkedChild child([] {
                handle(SIGUSR1);
                const Trouble trouble = Trouble::everyCall("RegQueryValueExA", TroubleKind::hang());
                makeCalls("cq");
            });
            QCOMPARE(child.told(), 'c');
            QTRY_COMPARE(statOf(child.id()).value(0), QByteArray("S")); // it waits
            for (int i = 0; i < 3; ++i) {
                kill(child.id(), SIGUSR1);
                QCOMPARE(child.told(), 's');
            }
            QTRY_COMPARE(statOf(child.id()).value(0), QByteArray("S"));
            const int before = timeOf(child.id());
            QTest::qSleep(200);
            QVERIFY(timeOf(child.id()) - before <= 1); // a tick is 10 ms
            QCOMPARE(statOf(child.id()).value(0), QByteArray("S"));
            kill(child.id(), signal);
            QCOMPARE(child.end(), "signal " + QByteArray::number(signal));
        });
    };
    row("SIGTERM", SIGTERM);
    row("SIGKILL", SIGKILL);
}

void addTests()
{
    addTestRow("declaredCallsAreUnderstood", declaredCallsAreUnderstood);
    addTestRow("everyCallOfTheTablesIsDeclared", everyCallOfTheTablesIsDeclared);
    addTestRow("uncountedCallsAreNotCounted", uncountedCallsAreNotCounted);
    addTestRows("troubleOfEveryDeclaredCall", troubleOfEveryDeclaredCall);
    addTestRows("keyAndValueOfEveryCall", keyAndValueOfEveryCall);
    addTestRow("everyCallWhileTheTroubleExists", everyCallWhileTheTroubleExists);
    addTestRow("troubleEndsWithItsScope", troubleEndsWithItsScope);
    addTestRows("numberedCall", numberedCall);
    addTestRows("numberedCallOfAll", numberedCallOfAll);
    addTestRow("callsAreCountedFromTheCreation", callsAreCountedFromTheCreation);
    addTestRow("firstOfTwoApplies", firstOfTwoApplies);
    addTestRow("firstOfTwoEndsTheProcess", firstOfTwoEndsTheProcess);
    addTestRow("movedTroubleStaysActive", movedTroubleStaysActive);
    addTestRow("resetRemovesTrouble", resetRemovesTrouble);
    addTestRow("aTroubleThatResetRemovedDoesNotEndAnother", aTroubleThatResetRemovedDoesNotEndAnother);
    addTestRow("theHookRunsBeforeTheTrouble", theHookRunsBeforeTheTrouble);
    addTestRow("callAlsoHasAFault", callAlsoHasAFault);
    addTestRows("patterns", patterns);
    addTestRows("ends", ends);
    addTestRow("sleepContinuesAfterASignal", sleepContinuesAfterASignal);
    addTestRows("hangEndsByASignalOnly", hangEndsByASignalOnly);
}

} // namespace

TEST_WITHOUT_APPLICATION(RowTest(addTests));
