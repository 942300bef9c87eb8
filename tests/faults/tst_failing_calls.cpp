// Nothing breaks a report: every call fails once, with the errors that it can give, and
// then any two. Each time the text is what the format has for that, the calls are those
// that the format makes then, and handles and memory are given back.

#include "fault_runs.h"
#include "texts.h"

#include <QtCore/QElapsedTimer>
#include <algorithm>
#include <random>

class FailingCallsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutFailure_data();
    void withoutFailure();
    void everyCallFailsOnce_data();
    void everyCallFailsOnce();
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
                     .arg(number).arg(calls.value(number, QStringLiteral("not made without failures"))).arg(failure.second);
    }
    return lines.join(QLatin1Char('\n'));
}

/// What is wrong with a report that is disturbed so; empty when nothing is.
QString problemOf(machine::Machine &machine, const Disturbance &disturbance, const Outcome &faultless)
{
    const Outcome actual = libraryRun(machine, disturbance);
    const QString different = difference(actual, expectedRun(machine, disturbance));
    if (!different.isEmpty())
        return described(disturbance, faultless.calls) + different;
    const QString unclear = unexplained(actual.text, faultless.text);
    return unclear.isEmpty() ? QString() : described(disturbance, faultless.calls) + unclear;
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
    QElapsedTimer timer;
    timer.start();
    int runs = 0;
    for (int number = 0; number < faultless.calls.size(); ++number) {
        std::vector<quint32> errors = errorsOf(callName(faultless.calls.at(number)));
        if (sanitized) // another one for each call
            errors = {errors[std::size_t(number) % errors.size()]};
        for (const quint32 error : errors) {
            const QString problem = problemOf(described, {{{std::size_t(number), error}}}, faultless);
            QVERIFY2(problem.isEmpty(), qPrintable(problem));
            ++runs;
        }
    }
    const QString problem = problemOf(described, {}, faultless);
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    qInfo("%d calls, %d single failures, %lld ms", int(faultless.calls.size()), runs, timer.elapsed());
}

void FailingCallsTest::aFailureIsAsIfNothingWereThere_data()
{
    addMachineRows();
}

void FailingCallsTest::aFailureIsAsIfNothingWereThere()
{
    QSKIP("not yet");
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
    const int rounds = sanitized ? 300 : 10000;
    qInfo("seed %llu, %d rounds", seed(), rounds);
    std::mt19937_64 random(seed());
    QElapsedTimer timer;
    timer.start();
    for (int round = 0; round < rounds; ++round) {
        Disturbance disturbance;
        addFailure(disturbance, faultless.calls, 0, random);
        // The second is one of those that are made behind the first.
        const std::size_t first = disturbance.failures.begin()->first;
        addFailure(disturbance, expectedRun(described, disturbance).calls, first + 1, random);
        const QString problem = problemOf(described, disturbance, faultless);
        QVERIFY2(problem.isEmpty(), qPrintable(QStringLiteral("round %1: ").arg(round) + problem));
    }
    qInfo("%lld ms", timer.elapsed());
}

QTEST_GUILESS_MAIN(FailingCallsTest)
#include "tst_failing_calls.moc"
