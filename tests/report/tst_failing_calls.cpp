// Every call of every section fails once, on every described machine. A failure changes only
// lines of its own section.

#include "described_windows.h"
#include "report/section_table.h"
#include "simulated_windows.h"
#include "test_main.h"

#include <QtCore/QDir>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <algorithm>
#include <windows.h>

using namespace velkor::SystemInfo;

Q_DECLARE_METATYPE(simulated::BeforeFailing)

class FailingCallsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCallFailsOnce_data();
    void everyCallFailsOnce();
};

namespace {

/// Sanitizers make a section about ten times slower, so fewer of its calls fail.
#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t step = 10;
#else
constexpr std::size_t step = 1;
#endif

/// Lines that a failing call adds or shortens, as regular expressions.
const char *const linesOfFailures[] = {
    "GetVersionExA\\(&osver\\) failed!",
    "From registry:     [0-9.]+",
    " {19}Windows .*",
    "<failed to open registry key '%1'",
    "Version:           .*",
    "   Video Memory: .*",
    "Expand env var [0-4] failed!",
    "Failed GetLogicalDrives\\(\\), error = [0-9]+",
    "[A-Z]:\\\\ .*",
    "CSIDL_[A-Z_]+    .*",
    "(Standard Bonjour|velkor DNS-SD): not installed\\.",
    "DNS-SD version: .*",
    "RefCount for vkdnssd\\.dll: failed to get refCount!",
    "",
};

bool isLineOfFailure(const QString &line)
{
    static const std::vector<QRegularExpression> patterns = [] {
        std::vector<QRegularExpression> result;
        for (const char *pattern : linesOfFailures)
            result.emplace_back(QRegularExpression::anchoredPattern(QString::fromLatin1(pattern)));
        return result;
    }();
    return std::any_of(patterns.begin(), patterns.end(), [&](const auto &pattern) { return pattern.match(line).hasMatch(); });
}

QString unexpectedLine(const QString &text, const QSet<QString> &faultless)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (!faultless.contains(line) && !isLineOfFailure(line))
            return QStringLiteral("unexpected line: ") + line;
    }
    return QString();
}

/// Handles that the section misused or left open, and memory that it did not free.
QString resourceProblems()
{
    // Quirk: the OEM section leaves its key open.
    const QString keptKey = QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation");
    QStringList problems = simulated::handleMisuses();
    for (const QString &handle : simulated::openHandles()) {
        if (handle != keptKey)
            problems += QStringLiteral("still open: ") + handle;
    }
    int blocks = 0;
    for (const simulated::Call &call : simulated::journal()) {
        if (call.name == "HeapAlloc")
            blocks += int(call.result);
        else if (call.name == "HeapFree")
            --blocks;
    }
    if (blocks != 0)
        problems += QStringLiteral("%1 memory blocks are not freed").arg(blocks);
    return problems.join(QLatin1Char('\n'));
}

} // namespace

void FailingCallsTest::everyCallFailsOnce_data()
{
    QTest::addColumn<QString>("machine");
    QTest::addColumn<int>("row");
    QTest::addColumn<simulated::BeforeFailing>("before");
    const QStringList machines = QDir(QStringLiteral(MACHINES_DIR)).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &machine : machines) {
        int row = 0;
        for (const Section &section : SectionTable()) {
            if (section.part == Part::Windows) {
                const QByteArray name = machine.toUtf8() + ' ' + section.name;
                QTest::newRow(name.constData()) << machine << row << simulated::BeforeFailing::Nothing;
                QTest::newRow((name + ", results written").constData())
                    << machine << row << simulated::BeforeFailing::WritesResults;
            }
            ++row;
        }
    }
}

void FailingCallsTest::everyCallFailsOnce()
{
    QFETCH(QString, machine);
    QFETCH(int, row);
    QFETCH(simulated::BeforeFailing, before);
    const Section &section = SectionTable().begin()[row];
    const machine::Machine described = DescribedWindows::load(machine);
    QSet<QString> faultless;
    {
        const DescribedWindows windows(described);
        const QStringList lines = section.text().split(QLatin1Char('\n'));
        faultless = QSet<QString>(lines.begin(), lines.end());
    }
    for (std::size_t number = 0;; number += step) {
        const DescribedWindows windows(described);
        const simulated::Fault fault = simulated::Fault::nthOfAll(number, ERROR_ACCESS_DENIED, before);
        const QString text = section.text();
        if (fault.hits() == 0)
            return; // the section makes no call with that number
        const simulated::Call &failed = simulated::journal().at(number);
        QString problem = resourceProblems();
        const QString heading = QString::fromLatin1(section.heading);
        if (problem.isEmpty() && text.left(heading.size()) != heading && failed.name != "HeapAlloc")
            problem = QStringLiteral("the heading is missing");
        if (problem.isEmpty())
            problem = unexpectedLine(text, faultless);
        QVERIFY2(problem.isEmpty(),
                 qPrintable(QStringLiteral("call %1, %2 %3, fails: ").arg(number).arg(QLatin1String(failed.name), failed.key) + problem));
    }
}

TEST_WITH_CORE_APPLICATION(FailingCallsTest);
#include "tst_failing_calls.moc"
