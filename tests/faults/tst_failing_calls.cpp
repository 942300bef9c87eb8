// Nothing breaks a report: every call fails once, with the errors that it can give, and
// then any two. Each time the text is what the format has for that, the calls are those
// that the format makes then, and handles and memory are given back.

#include "copy_key.h"
#include "fault_runs.h"
#include "test_main.h"
#include "texts.h"

#include <random>
#include <windows.h>

class FailingCallsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutFailure_data();
    void withoutFailure();
    void everyCallFailsOnce_data();
    void everyCallFailsOnce();
    void everyCallFailsAfterWritingItsResults_data();
    void everyCallFailsAfterWritingItsResults();
    void aFailureIsAsIfNothingWereThere_data();
    void aFailureIsAsIfNothingWereThere();
    void anyTwoCallsFail_data();
    void anyTwoCallsFail();
};

namespace {

void addMachineRows()
{
    QTest::addColumn<QString>("machine");
    const QStringList names = machineNames();
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << name;
}

QString described(const Disturbance &disturbance, const QStringList &calls)
{
    QStringList lines;
    for (const auto &failure : disturbance.failures) {
        const int number = int(failure.first);
        lines += QStringLiteral("call %1, %2, fails with %3: ")
                     .arg(number)
                     .arg(calls.value(number, QStringLiteral("not made without failures")))
                     .arg(failure.second);
    }
    return lines.join(QLatin1Char('\n'));
}

/// What is wrong with a report that is disturbed so; empty when nothing is.
QString problemOf(machine::Machine &machine, const Disturbance &disturbance, const Outcome &expected, const Outcome &faultless)
{
    const Outcome actual = libraryRun(machine, disturbance);
    QString problem = difference(actual, expected);
    if (problem.isEmpty())
        problem = unexplained(actual.text, faultless.text);
    return problem.isEmpty() ? problem : described(disturbance, faultless.calls) + problem;
}

/// The calls of which the error shows in the text or decides on the calls behind it.
bool errorMatters(const QByteArray &call)
{
    return call == "GetLogicalDrives" || call == "DNSServiceGetProperty" || call == "GetAdaptersInfo";
}

/// All errors of a call on one of the two large machines and on the small one; on the
/// other one of them, another for each call. Under sanitizers one for each call, and
/// on that other machine not for each.
std::vector<quint32> errorsFor(const QString &machine, const QByteArray &call, std::size_t number)
{
    const std::vector<quint32> errors = errorsOf(call);
    const bool other = machine == QLatin1String("wine");
    if (!sanitized && !other)
        return errors;
    if (sanitized && other && number % 10 != 0)
        return {};
    return {errors[number % errors.size()]};
}

/// Takes away what a call asks for; the result brings it back.
using Hiding = std::function<std::function<void()>(machine::Machine &)>;

std::function<void()> hideSubKeys(const std::shared_ptr<machine::RegistryKey> &key, std::size_t first, std::size_t count)
{
    std::vector<std::shared_ptr<machine::RegistryKey>> hidden;
    for (std::size_t i = first; i < first + count && i < key->subKeyCount(); ++i)
        hidden.push_back(key->subKeyAt(i));
    for (const auto &subKey : hidden)
        key->removeSubKey(subKey->name());
    return [=] {
        for (const auto &subKey : hidden)
            copyKey(*subKey, *key->createSubKey(subKey->name()));
    };
}

std::function<void()> hideValues(const std::shared_ptr<machine::RegistryKey> &key, std::size_t first, std::size_t count)
{
    const std::vector<machine::RegistryValue> values = key->values();
    for (std::size_t i = first; i < first + count && i < values.size(); ++i)
        key->removeValue(values[i].name);
    return [=] { // in their order
        for (const machine::RegistryValue &value : values)
            key->removeValue(value.name);
        for (const machine::RegistryValue &value : values)
            key->setValue(value);
    };
}

/// For the calls that read the registry; empty for others.
Hiding hidingFor(const simulated::Call &call)
{
    constexpr std::size_t all = 100000;
    if (call.name == "RegOpenKeyExA") {
        return [call](machine::Machine &machine) {
            const auto parent = keyAt(machine, call.key.section(QLatin1Char('\\'), 0, -2));
            const QString name = call.key.section(QLatin1Char('\\'), -1);
            std::size_t index = 0;
            while (parent->subKeyAt(index) != parent->findSubKey(name))
                ++index;
            return hideSubKeys(parent, index, 1);
        };
    }
    if (call.name.startsWith("RegQueryValueEx")) {
        return [call](machine::Machine &machine) {
            const auto key = keyAt(machine, call.key);
            return hideValues(key, std::size_t(key->findValue(call.value) - key->values().data()), 1);
        };
    }
    if (call.name.startsWith("RegEnumKey"))
        return [call](machine::Machine &machine) { return hideSubKeys(keyAt(machine, call.key), call.value.toUInt(), all); };
    if (call.name == "RegEnumValueA")
        return [call](machine::Machine &machine) { return hideValues(keyAt(machine, call.key), call.value.toUInt(), all); };
    return Hiding();
}

quint64 seed()
{
    return qEnvironmentVariableIsSet("VKSYSTEMINFO_SEED") ? qEnvironmentVariable("VKSYSTEMINFO_SEED").toULongLong()
                                                          : 20231107;
}

QByteArray callName(const QString &call)
{
    return call.section(QLatin1Char(' '), 0, 0).toLatin1();
}

/// One of \a calls from \a start on, if there is one.
void addFailure(Disturbance &disturbance, const QStringList &calls, std::size_t start, std::mt19937_64 &random)
{
    if (start >= std::size_t(calls.size()))
        return;
    const std::size_t number = start + random() % (std::size_t(calls.size()) - start);
    const std::vector<quint32> errors = errorsOf(callName(calls.at(int(number))));
    disturbance.failures[number] = errors[random() % errors.size()];
}

} // namespace

void FailingCallsTest::withoutFailure_data()
{
    addMachineRows();
}

void FailingCallsTest::withoutFailure()
{
    QFETCH(QString, machine);
    machine::Machine described = machineNamed(machine);
    const Outcome actual = libraryRun(described);
    const QString different = difference(actual, expectedRun(described));
    QVERIFY2(different.isEmpty(), qPrintable(different));
    QCOMPARE(unexplained(actual.text, actual.text), QString());
}

void FailingCallsTest::everyCallFailsOnce_data()
{
    addMachineRows();
}

// One after the other, until a run completes without failure.
void FailingCallsTest::everyCallFailsOnce()
{
    QFETCH(QString, machine);
    machine::Machine described = machineNamed(machine);
    const Outcome faultless = libraryRun(described);
    int runs = 0;
    for (std::size_t number = 0; number < std::size_t(faultless.calls.size()); ++number) {
        const QByteArray call = callName(faultless.calls.at(int(number)));
        std::optional<Outcome> expected;
        for (const quint32 error : errorsFor(machine, call, number)) {
            const Disturbance failure = {{{number, error}}};
            if (!expected || errorMatters(call))
                expected = expectedRun(described, failure);
            const QString problem = problemOf(described, failure, *expected, faultless);
            QVERIFY2(problem.isEmpty(), qPrintable(problem));
            ++runs;
        }
    }
    const QString problem = problemOf(described, {}, faultless, faultless);
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    qInfo("%d calls, %d single failures", int(faultless.calls.size()), runs);
}

void FailingCallsTest::everyCallFailsAfterWritingItsResults_data()
{
    addMachineRows();
}

// The status of a call counts, whatever it left in handles and buffers.
void FailingCallsTest::everyCallFailsAfterWritingItsResults()
{
    QFETCH(QString, machine);
    machine::Machine described = machineNamed(machine);
    const QStringList calls = libraryRun(described).calls;
    // One machine is enough for every call of src/; the others have them in other places.
    const std::size_t step = machine == QLatin1String("small") ? 1 : sanitized ? 31
                                                                               : 7;
    for (std::size_t number = 0; number < std::size_t(calls.size()); number += step) {
        Disturbance failure;
        failure.failures[number] = ERROR_ACCESS_DENIED; // never what a missing thing gives
        failure.failuresWriteResults = true;
        const Outcome expected = expectedRun(described, failure);
        const QString different = difference(libraryRun(described, failure), expected);
        QVERIFY2(different.isEmpty(), qPrintable(::described(failure, calls) + different));
    }
}

void FailingCallsTest::aFailureIsAsIfNothingWereThere_data()
{
    addMachineRows();
}

// The same held against the library itself: a call that does not find or has no more
// gives the report of a machine on which the thing is away just for that call.
void FailingCallsTest::aFailureIsAsIfNothingWereThere()
{
    QFETCH(QString, machine);
    machine::Machine described = machineNamed(machine);
    libraryRun(described);
    const std::vector<simulated::Call> calls = simulated::journal();
    const std::size_t step = sanitized ? 31 : 1;
    int runs = 0;
    for (std::size_t number = 0; number < calls.size(); number += step) {
        const Hiding hiding = hidingFor(calls[number]);
        if (!hiding || calls[number].result != 0)
            continue;
        const quint32 error = calls[number].name.startsWith("RegEnum") ? ERROR_NO_MORE_ITEMS : ERROR_FILE_NOT_FOUND;
        const Outcome failed = libraryRun(described, {{{number, error}}});
        std::function<void()> bringBack;
        Disturbance hidden;
        hidden.beforeCall = [&](std::size_t at, machine::Machine &changing) {
            if (at == number)
                bringBack = hiding(changing);
            else if (at == number + 1)
                bringBack();
        };
        const QString different = difference(libraryRun(described, hidden), failed);
        QVERIFY2(different.isEmpty(), qPrintable(QStringLiteral("call %1: ").arg(number) + different));
        ++runs;
    }
    qInfo("%d calls", runs);
    QVERIFY(runs > 0);
}

void FailingCallsTest::anyTwoCallsFail_data()
{
    addMachineRows();
}

void FailingCallsTest::anyTwoCallsFail()
{
    QFETCH(QString, machine);
    machine::Machine described = machineNamed(machine);
    const Outcome faultless = libraryRun(described);
    // Ten thousand in all.
    const int rounds = (machine == QLatin1String("small") ? 8000 : 1000) / (sanitized ? 20 : 1);
    qInfo("seed %llu, %d rounds", seed(), rounds);
    std::mt19937_64 random(seed());
    for (int round = 0; round < rounds; ++round) {
        Disturbance disturbance;
        addFailure(disturbance, faultless.calls, 0, random);
        // The second is one of the calls that are made behind the first.
        const std::size_t first = disturbance.failures.begin()->first;
        addFailure(disturbance, expectedRun(described, disturbance).calls, first + 1, random);
        const QString problem = problemOf(described, disturbance, expectedRun(described, disturbance), faultless);
        QVERIFY2(problem.isEmpty(), qPrintable(QStringLiteral("round %1: ").arg(round) + problem));
    }
}

TEST_WITH_CORE_APPLICATION(FailingCallsTest);
#include "tst_failing_calls.moc"
