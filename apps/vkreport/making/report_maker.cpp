#include "report_maker.h"

#include "assembly.h"
#include "child/child_main.h"
#include "child_system.h"
#include "part_names.h"
#include "part_runner.h"
#include "requested_parts.h"

#include <algorithm>
#include <functional>

using namespace velkor;

namespace {

enum class Condition {
    Always,
    OpenGLWasAskedFor,
};

/// A way to make the whole report. They are tried in this order.
struct Rung
{
    const char *module;
    const char *part;    ///< null: the sections one by one
    const char *subject; ///< for people
    double end;          ///< share of the time limit at which it is given up
    Condition condition;
};

constexpr Rung ladder[] = {
    {ModuleName::library, PartName::wholeReport, "the whole report", 0.6, Condition::OpenGLWasAskedFor},
    {ModuleName::library, PartName::withoutOpenGL, "the report without OpenGL", 0.75, Condition::Always},
    {ModuleName::sections, nullptr, "section after section", 1.0, Condition::Always},
};

template <typename T>
void append(std::vector<T> &list, const std::vector<T> &more)
{
    list.insert(list.end(), more.begin(), more.end());
}

PartTime timeOf(const QStringList &parts)
{
    return parts.size() == 1 ? PartTime::All : PartTime::AThird;
}

QString nameOf(int section)
{
    return QString::fromUtf8(Reports::sectionRows()[std::size_t(section)].name);
}

/// Of a report from which only some sections are written, the others need not be made.
bool needsOpenGL(const Options &options)
{
    const std::vector<int> &sections = options.write.sections;
    const auto isOpenGL = [](int section) { return Reports::sectionRows()[std::size_t(section)].half == Reports::Half::OpenGL; };
    return !options.noOpenGL && (sections.empty() || options.redact || std::any_of(sections.begin(), sections.end(), isOpenGL));
}

class Maker
{
public:
    explicit Maker(const Options &options);

    MadeText wholeReport();
    MadeText windowsSections();
    MadeText parts();

private:
    QDeadlineTimer deadline(double share) const;
    bool tryReport(const Rung &rung, MadeText &made);
    const Rung *firstRung() const { return &ladder[m_noOpenGL ? 1 : 0]; }
    void addOpenGL(MadeText &made);
    void takeSections(const QStringList &names, MadeText &made);
    void keepRequested(std::vector<MissingPart> &missing) const;

    const Options &m_options;
    bool m_noOpenGL;
    QElapsedTimer m_time;
    MessageWriter m_writer;
    Progress m_progress;
    PartRunner m_runner;
};

Maker::Maker(const Options &options)
    : m_options(options), m_noOpenGL(!needsOpenGL(options)), m_progress(options.timeLimit, options.progress, m_writer), m_runner(m_writer, m_progress, options.lowPriority)
{
    m_time.start();
}

QDeadlineTimer Maker::deadline(double share) const
{
    if (m_options.timeLimit == 0)
        return QDeadlineTimer(QDeadlineTimer::Forever);
    return QDeadlineTimer(std::max<qint64>(qint64(1000 * share * m_options.timeLimit) - m_time.elapsed(), 0));
}

MadeText Maker::wholeReport()
{
    MadeText made;
    for (const Rung &rung : ladder) {
        if (rung.condition == Condition::OpenGLWasAskedFor && m_noOpenGL)
            continue;
        if (!rung.part)
            takeSections(sectionNames(m_noOpenGL), made);
        else if (tryReport(rung, made))
            break;
    }
    keepRequested(made.incompleteness.missing);
    return made;
}

/// Returns whether the rung made the report.
bool Maker::tryReport(const Rung &rung, MadeText &made)
{
    QElapsedTimer time;
    time.start();
    const QString part = QLatin1String(rung.part);
    QStringList parts {part};
    if (m_options.timings)
        parts += QLatin1String(PartName::timings);
    const bool isFirst = &rung == firstRung();
    // without OpenGL there is one rung less
    MadeParts run = m_runner.run(rung.module, parts, deadline(m_noOpenGL ? ladder[0].end : rung.end), PartTime::All);
    append(made.incompleteness.attempts, run.attempts);
    if (run.texts.count(part) == 0) {
        Failure failure = run.missing.front().failure;
        failure.milliseconds = time.elapsed();
        if (failure.reason == FailureReason::NotTried) // the time limit is that short
            failure.reason = FailureReason::TimedOut;
        const Rung &named = isFirst ? ladder[0] : rung; // the first is the whole report, also if it is without OpenGL
        made.incompleteness.attempts.push_back({QLatin1String(named.part), QLatin1String(named.subject), failure});
        return false;
    }
    made.text = run.texts[part];
    made.timings = QString::fromUtf8(run.texts[QLatin1String(PartName::timings)]);
    append(made.incompleteness.missing, run.missing);
    if (!isFirst)
        addOpenGL(made);
    return true;
}

/// Tries the OpenGL section alone: perhaps it was not the cause.
void Maker::addOpenGL(MadeText &made)
{
    const QString name = sectionNames(false).constLast();
    const MadeParts run = m_runner.run(ModuleName::sections, {name}, deadline(1), PartTime::AThird);
    append(made.incompleteness.attempts, run.attempts);
    append(made.incompleteness.missing, run.missing);
    if (run.missing.empty())
        *made.text += run.texts.at(name) + Reports::separatorLine() + '\n';
}

void Maker::takeSections(const QStringList &names, MadeText &made)
{
    const MadeParts run = m_runner.run(ModuleName::sections, names, deadline(1), timeOf(names));
    if (!run.texts.empty())
        made.text = assembledReport(run.texts);
    append(made.incompleteness.attempts, run.attempts);
    append(made.incompleteness.missing, run.missing);
}

/// Of a report from which only some sections are written, the others are not missed.
void Maker::keepRequested(std::vector<MissingPart> &missing) const
{
    const std::vector<int> &sections = m_options.write.sections;
    if (sections.empty())
        return;
    const auto isRequested = [&sections](const MissingPart &part) {
        return std::any_of(sections.begin(), sections.end(), [&part](int section) { return part.name == nameOf(section); });
    };
    missing.erase(std::remove_if(missing.begin(), missing.end(), std::not_fn(isRequested)), missing.end());
}

MadeText Maker::windowsSections()
{
    MadeText made;
    QStringList names;
    for (const int section : m_options.write.sections)
        names += nameOf(section);
    takeSections(names, made);
    return made;
}

MadeText Maker::parts()
{
    const QStringList texts = requestedParts(m_options);
    QStringList names = texts;
    if (m_options.timings)
        names += QLatin1String(PartName::timings);
    MadeText made;
    QByteArray text = listedSections(m_options);
    MadeParts run = m_runner.run(ModuleName::library, names, deadline(1), timeOf(names));
    for (const QString &name : texts) {
        const auto found = run.texts.find(name);
        text += found == run.texts.end() ? QByteArray() : found->second;
    }
    made.timings = QString::fromUtf8(run.texts[QLatin1String(PartName::timings)]);
    const bool isMade = std::any_of(texts.begin(), texts.end(), [&run](const QString &name) { return run.texts.count(name) != 0; });
    if (isMade || m_options.listSections)
        made.text = text;
    append(made.incompleteness.attempts, run.attempts);
    append(made.incompleteness.missing, run.missing);
    return made;
}

/// Whether only sections of the Windows half are read. Redaction reads the whole report for names.
bool needsOnlyWindowsSections(const Options &options)
{
    const std::vector<int> &sections = options.write.sections;
    return !options.redact && !sections.empty() && std::all_of(sections.begin(), sections.end(), [](int section) {
        return Reports::sectionRows()[std::size_t(section)].half == Reports::Half::Windows;
    });
}

} // namespace

MadeText makeText(const Options &options)
{
    surviveBrokenPipes(); // the maker shows its progress at once
    Maker maker(options);
    if (needsOnlyWindowsSections(options))
        return maker.windowsSections();
    return requestsSingleParts(options) ? maker.parts() : maker.wholeReport();
}
