#include "report_runs.h"

#include "described_windows.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <unistd.h>

using velkor::SystemInfo::Followed;
using velkor::SystemInfo::Part;
using velkor::SystemInfo::Section;
using velkor::SystemInfo::SectionTable;

namespace {

const QByteArray rule = QByteArray(72, '-') + '\n';
const QByteArray windowsHeading = "############ Windows specific section ###########\n";
const QByteArray qtHeading = "###### System informations retrieved using Qt #######\n";

/// Folders that exist as long as the test runs.
struct Folders
{
    Folders()
    {
        for (const char *name : {"home", "run", "tmp"})
            QDir(root.path()).mkdir(QString::fromLatin1(name));
        QFile::setPermissions(root.filePath(QStringLiteral("run")),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QByteArray path(const char *name) const { return QFile::encodeName(root.filePath(QString::fromLatin1(name))); }

    QTemporaryDir root;
};

const Folders &folders()
{
    static const Folders theFolders;
    return theFolders;
}

/// Sanitizers and coverage need their variables. Sanitizers must leave the signals of crashes alone.
QByteArrayList variablesOfTheBuild()
{
    QByteArrayList result;
    for (const char *name : {"UBSAN_OPTIONS", "GCOV_PREFIX", "GCOV_PREFIX_STRIP", "LD_LIBRARY_PATH"}) {
        if (qEnvironmentVariableIsSet(name))
            result += QByteArray(name) + '=' + qgetenv(name);
    }
#if defined(__SANITIZE_ADDRESS__)
    result += "ASAN_OPTIONS=" + qgetenv("ASAN_OPTIONS") + ":handle_segv=0:handle_abort=0:detect_leaks=0";
#endif
    return result;
}

} // namespace

ReportEnvironment::ReportEnvironment(const QByteArray &platform)
{
    m_entries = {"PATH=/usr/bin:/bin", "HOME=" + folders().path("home"), "XDG_RUNTIME_DIR=" + folders().path("run"),
                 "TMPDIR=" + folders().path("tmp"), "LC_ALL=C.UTF-8", "TZ=UTC", mark(),
                 "VKSYSTEMINFO_MACHINE=" MACHINES_DIR "/workstation", "VKSYSTEMINFO_TROUBLE=trouble"};
    if (!platform.isEmpty())
        m_entries += "QT_QPA_PLATFORM=" + platform;
    m_entries += variablesOfTheBuild();
}

ReportEnvironment ReportEnvironment::with(const QByteArray &name, const QByteArray &value) const
{
    ReportEnvironment result = without(name);
    result.m_entries += name + '=' + value;
    return result;
}

ReportEnvironment ReportEnvironment::without(const QByteArray &name) const
{
    ReportEnvironment result = *this;
    const auto hasName = [&](const QByteArray &entry) { return entry.startsWith(name + '='); };
    auto &entries = result.m_entries;
    entries.erase(std::remove_if(entries.begin(), entries.end(), hasName), entries.end());
    return result;
}

QByteArray ReportEnvironment::mark()
{
    return "RUN_OF_TEST=" + QByteArray::number(qint64(::getpid()));
}

QString ReportEnvironment::temporaryFolder()
{
    return QFile::decodeName(folders().path("tmp"));
}

ProgramStart reportStart(const QStringList &arguments, const QByteArray &trouble, const ReportEnvironment &environment)
{
    ProgramStart start;
    start.program = QStringLiteral(VKREPORT);
    start.arguments = arguments;
    start.environment = environment.entries();
    start.trouble = trouble;
    return start;
}

QByteArray withoutVolatile(QByteArray text)
{
    for (const char *label : {"\nLocal Date and Time: ", "\nUTC   Date and Time: ", "\nApplication PID: "}) {
        const int start = text.indexOf(label);
        const int end = start < 0 ? -1 : text.indexOf('\n', start + 1);
        if (end > 0)
            text.replace(start, end - start, QByteArray(label) + '*');
    }
    return text;
}

CompleteReport::CompleteReport(const QByteArray &report)
{
    const DescribedWindows windows(DescribedWindows::load(QStringLiteral("workstation")));
    for (const Section &section : SectionTable()) {
        if (section.part == Part::Windows)
            m_parts.append({section.name, section.text().toUtf8(), section.part, section.followed == Followed::BySeparator});
    }
    cutQtHalf(report);
    if (m_problem.isEmpty() && report != without({}))
        m_problem = "the sections do not make up the report";
}

void CompleteReport::cutQtHalf(const QByteArray &report)
{
    int position = report.indexOf(qtHeading);
    if (position < 0) {
        m_problem = "there is no Qt half";
        return;
    }
    position += qtHeading.size();
    for (const Section &section : SectionTable()) {
        if (section.part == Part::Windows || (section.part == Part::OpenGL && position == report.size()))
            continue;
        const int end = report.indexOf('\n' + rule, position) + 1;
        const QByteArray text = report.mid(position, end - position);
        if (end <= 0 || !text.startsWith(section.heading)) {
            m_problem = QByteArray("not found: ") + section.name;
            return;
        }
        m_parts.append({section.name, text, section.part, true});
        position = end + rule.size();
    }
}

QByteArrayList CompleteReport::names() const
{
    QByteArrayList result;
    for (const PartOfReport &part : m_parts)
        result += part.name;
    return result;
}

QByteArray CompleteReport::section(const QByteArray &name) const
{
    for (const PartOfReport &part : m_parts) {
        if (part.name == name)
            return part.text;
    }
    return QByteArray();
}

QByteArray CompleteReport::without(const QByteArrayList &missing) const
{
    QByteArray text = windowsHeading;
    Part half = Part::Windows;
    bool groupHasText = false;
    for (const PartOfReport &part : m_parts) {
        if (half == Part::Windows && part.part != Part::Windows) {
            text += qtHeading;
            half = Part::Qt;
        }
        if (!missing.contains(part.name)) {
            text += part.text;
            groupHasText = true;
        }
        if (part.separator) {
            if (groupHasText)
                text += rule;
            groupHasText = false;
        }
    }
    return text;
}

QByteArrayList messageLines(const QByteArray &errors, QVector<double> *seconds)
{
    static const QRegularExpression time(QStringLiteral("\\b(within|after) ([0-9]+\\.[0-9]) s\\b"));
    QByteArrayList lines = errors.split('\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    else
        lines.last() += " (without line end)";
    for (QByteArray &line : lines) {
        QString text = QString::fromUtf8(line);
        const QRegularExpressionMatch match = time.match(text);
        if (!match.hasMatch())
            continue;
        if (seconds)
            *seconds += match.captured(2).toDouble();
        line = text.replace(match.capturedStart(2), match.capturedLength(2), QStringLiteral("N")).toUtf8();
    }
    return lines;
}

double limitForHangs(int sections, double last)
{
    constexpr double share = 0.4, rest = 2.0 / 3, shortest = 6;
    return std::max(shortest, std::ceil(last / (share * std::pow(rest, sections))));
}

QByteArrayList missingLines(const QByteArrayList &names, const QByteArray &reason)
{
    QByteArrayList lines;
    for (const QByteArray &name : names)
        lines += "vkreport: missing: " + name + ": " + reason;
    return lines;
}
