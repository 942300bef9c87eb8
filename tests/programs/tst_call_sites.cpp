// vkreport if one call of the report hangs or crashes: once for each place in the sections that calls Windows.
//
// A place is the stack of a call. If the environment variable CALL_SITES is "all", each different call of the report is
// tried; this takes much longer than the time limit of ctest.

#include "described_windows.h"
#include "report_runs.h"
#include "simulated_windows.h"
#include "test_main.h"
#include "texts.h"

#include <QtCore/QDir>
#include <QtCore/QMap>
#include <QtCore/QSet>
#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <execinfo.h>
#include <memory>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

using velkor::SystemInfo::Part;
using velkor::SystemInfo::Section;
using velkor::SystemInfo::SectionTable;

class CallSitesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyPlaceHangs();
    void everyPlaceCrashes();
    void cleanupTestCase();
};

namespace {

using Stack = std::vector<void *>;

/// A call as a line of the file of troubles names it. "*" matches anything.
struct CallPattern
{
    QByteArray name;
    QByteArray key;
    QByteArray value;

    QByteArray line() const { return name + '\t' + key + '\t' + value; }
    bool matches(const simulated::Call &call) const
    {
        const auto fits = [](const QByteArray &field, const QString &text) { return field == "*" || field == text.toUtf8(); };
        return call.name == name && fits(key, call.key) && fits(value, call.value);
    }
    bool operator<(const CallPattern &other) const { return line() < other.line(); }
};

/// What one section calls.
struct SectionCalls
{
    QByteArray section;
    std::vector<simulated::Call> calls;
    std::vector<Stack> stacks; ///< one for each of the calls
};

/// A run of vkreport, and the sections that must be missing.
struct Trial
{
    CallPattern call;
    QByteArrayList missing;
};

/// How long a run may take in which this many sections hang.
struct TimeLimit
{
    double seconds;
    bool isTooLong;
};

constexpr double grace = 2;
constexpr double crashLimit = 60;
constexpr double longestLimit = 60;

TimeLimit limitOf(const Trial &trial)
{
    const double seconds = limitForHangs(trial.missing.size(), 1);
    return {seconds, seconds > longestLimit};
}

std::vector<SectionCalls> callsOfSections(QString &problem)
{
    std::vector<SectionCalls> result;
    for (const Section &section : SectionTable()) {
        if (section.part == Part::OpenGL)
            continue;
        const DescribedWindows windows(DescribedWindows::load(QStringLiteral("workstation")));
        SectionCalls calls;
        calls.section = section.name;
        std::vector<QByteArray> names;
        simulated::setBeforeCall([&](std::size_t, const QByteArray &name) {
            constexpr int deepest = 64;
            Stack stack(deepest);
            stack.resize(std::size_t(::backtrace(stack.data(), deepest)));
            calls.stacks.push_back(stack);
            names.push_back(name);
        });
        section.text();
        calls.calls = simulated::journal();
        simulated::setBeforeCall({});
        const auto sameName = [](const simulated::Call &call, const QByteArray &name) { return call.name == name; };
        if (!std::equal(calls.calls.begin(), calls.calls.end(), names.begin(), names.end(), sameName))
            problem = QString::fromLatin1(section.name) + QLatin1String(": the journal and the stacks differ");
        result.push_back(std::move(calls));
    }
    return result;
}

CallPattern patternOf(const simulated::Call &call)
{
    const auto field = [](const QString &text) { return text.isEmpty() ? QByteArray("*") : text.toUtf8(); };
    return {call.name, field(call.key), field(call.value)};
}

/// The patterns and places of the report.
class Calls
{
public:
    explicit Calls(QString &problem) : m_sections(callsOfSections(problem))
    {
        for (const SectionCalls &section : m_sections) {
            for (std::size_t i = 0; i < section.calls.size(); ++i) {
                const CallPattern pattern = patternOf(section.calls.at(i));
                m_patterns.emplace(pattern, QByteArrayList());
                auto &patterns = m_places[{section.section, section.stacks.at(i)}];
                const auto isThis = [&](const CallPattern &known) { return known.line() == pattern.line(); };
                if (std::none_of(patterns.begin(), patterns.end(), isThis))
                    patterns.push_back(pattern);
            }
        }
        for (auto &pattern : m_patterns) {
            for (const SectionCalls &section : m_sections) {
                const auto matches = [&](const simulated::Call &call) { return pattern.first.matches(call); };
                if (std::any_of(section.calls.begin(), section.calls.end(), matches))
                    pattern.second += section.section;
            }
        }
    }

    std::size_t places() const { return m_places.size(); }
    std::size_t patterns() const { return m_patterns.size(); }
    std::size_t count() const
    {
        std::size_t sum = 0;
        for (const SectionCalls &section : m_sections)
            sum += section.calls.size();
        return sum;
    }

    /// Each pattern once.
    std::vector<Trial> trialsOfPatterns() const
    {
        std::vector<Trial> trials;
        for (const auto &pattern : m_patterns)
            trials.push_back({pattern.first, pattern.second});
        return trials;
    }

    /// For each place its pattern that the fewest sections call, the first of them; each pattern once.
    std::vector<Trial> trialsOfPlaces() const
    {
        std::set<CallPattern> chosen;
        for (const auto &place : m_places) {
            const auto fewer = [&](const CallPattern &one, const CallPattern &other) {
                return m_patterns.at(one).size() < m_patterns.at(other).size();
            };
            chosen.insert(*std::min_element(place.second.begin(), place.second.end(), fewer));
        }
        std::vector<Trial> trials;
        for (const CallPattern &pattern : chosen)
            trials.push_back({pattern, m_patterns.at(pattern)});
        return trials;
    }

private:
    std::vector<SectionCalls> m_sections;
    std::map<CallPattern, QByteArrayList> m_patterns; // the sections that call it, in the order of the report
    std::map<std::pair<QByteArray, Stack>, std::vector<CallPattern>> m_places;
};

std::unique_ptr<CompleteReport> complete;
std::vector<Trial> trials;

/// The first thing that is wrong, or nothing.
QString problemOf(const ProgramEnd &end, const Trial &trial, const QByteArray &reason, double seconds)
{
    if (!end.ended)
        return QStringLiteral("still running after %1 s").arg(end.seconds);
    if (end.seconds > seconds + grace)
        return QStringLiteral("ended after %1 s").arg(end.seconds);
    if (!end.processes.isEmpty())
        return QStringLiteral("%1 processes are left").arg(end.processes.size());
    if (!end.files.isEmpty())
        return QStringLiteral("files are left: ") + end.files.join(QLatin1String(", "));
    const QByteArrayList messages = messageLines(end.errors);
    const QByteArrayList expected = QByteArrayList {wholeReport(reason)} + missingLines(trial.missing, reason);
    if (messages != expected)
        return QString::fromUtf8("messages:\n" + messages.join('\n') + "\nexpected:\n" + expected.join('\n'));
    if (end.exitCode != 3)
        return QStringLiteral("exit code %1, signal %2").arg(end.exitCode).arg(end.signal);
    const QString actual = QString::fromUtf8(withoutVolatile(end.output));
    const QString text = QString::fromUtf8(withoutVolatile(complete->without(trial.missing)));
    return actual == text ? QString() : textDifference(actual, text).section(QLatin1String("\n--- whole"), 0, 0);
}

/// Runs vkreport for each trial, \a parallel at once. Returns the problems.
QStringList problemsOfAll(const QByteArray &kind, const QByteArray &reason, int parallel)
{
    QStringList problems;
    std::mutex mutex;
    std::atomic<std::size_t> next {0};
    std::atomic<int> runs {0};
    std::vector<QByteArray> leftOut;
    const auto work = [&] {
        for (std::size_t i = next++; i < trials.size(); i = next++) {
            const Trial &trial = trials.at(i);
            TimeLimit limit {crashLimit, false};
            if (reason == didNotEnd)
                limit = limitOf(trial);
            if (limit.isTooLong) {
                const std::lock_guard<std::mutex> lock(mutex);
                leftOut.push_back(trial.call.line() + ": " + QByteArray::number(trial.missing.size()) + " sections call it");
                continue;
            }
            ++runs;
            const QStringList arguments {"--no-opengl", "--time-limit", QString::number(limit.seconds)};
            const ProgramEnd end = runToItsEnd(reportStart(arguments, kind + '\t' + trial.call.line() + '\n'),
                                               limit.seconds + grace + 10);
            const QString problem = problemOf(end, trial, reason, limit.seconds);
            if (!problem.isEmpty()) {
                const std::lock_guard<std::mutex> lock(mutex);
                problems += QString::fromUtf8(kind + ' ' + trial.call.line()) + QLatin1String(": ") + problem;
            }
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < parallel; ++i) {
        threads.emplace_back(work);
        std::this_thread::sleep_for(std::chrono::milliseconds(300)); // the runs must not need the processor all at once
    }
    for (std::thread &thread : threads)
        thread.join();
    std::printf("%s: %d runs, %zu left out\n", kind.constData(), runs.load(), leftOut.size());
    for (const QByteArray &call : leftOut)
        std::printf("left out, the time limit would be longer than %.0f s: %s\n", longestLimit, call.constData());
    return problems;
}

} // namespace

void CallSitesTest::initTestCase()
{
    const ProgramEnd end = runToItsEnd(reportStart({"--no-opengl", "--in-process"}), crashLimit);
    QCOMPARE(end.exitCode, 0);
    complete = std::make_unique<CompleteReport>(end.output);
    QCOMPARE(complete->problem(), QByteArray());

    QString problem;
    const Calls calls(problem);
    QCOMPARE(problem, QString());
    const bool all = qgetenv("CALL_SITES") == "all";
    trials = all ? calls.trialsOfPatterns() : calls.trialsOfPlaces();
    std::printf("%zu calls, %zu different ones, from %zu places; %zu trials of %s\n", calls.count(), calls.patterns(),
                calls.places(), trials.size(), all ? "each different call" : "one call for each place (places share calls)");
    // The Windows half alone has more than a hundred pairs of a section and a function.
    QVERIFY(calls.places() > 100 && trials.size() > 90);
    for (const Trial &trial : trials)
        QVERIFY2(!trial.missing.isEmpty(), trial.call.line());
}

// Runs that hang do not use the processor.
void CallSitesTest::everyPlaceHangs()
{
    const QStringList problems = problemsOfAll("hang", didNotEnd, 12);
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
}

void CallSitesTest::everyPlaceCrashes()
{
    const QStringList problems = problemsOfAll("crash", crashed, 2);
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
}

void CallSitesTest::cleanupTestCase()
{
    QCOMPARE(waitForTheEndOf(processesWithVariable(ReportEnvironment::mark()), 2), QList<pid_t>());
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    QVERIFY(QDir(ReportEnvironment::temporaryFolder()).isEmpty(everything));
}

TEST_WITH_APPLICATION(CallSitesTest);
#include "tst_call_sites.moc"
