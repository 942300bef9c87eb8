// Runs of vkreport on a described machine, and what it must print if sections are missing.
#pragma once

#include "report/section_table.h"
#include "running_program.h"

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayList>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <memory>

/// The environment of the runs: the same for all runs of a test process, except for what a test changes. The
/// machine is machines/workstation, and the file of troubles is "trouble" in the working directory.
class ReportEnvironment
{
public:
    explicit ReportEnvironment(const QByteArray &platform = "offscreen");

    ReportEnvironment with(const QByteArray &name, const QByteArray &value) const;
    ReportEnvironment without(const QByteArray &name) const;
    const QByteArrayList &entries() const { return m_entries; }

    /// The variable that only the processes of this test have.
    static QByteArray mark();
    /// The folder for temporary files of the runs. Nothing may remain there.
    static QString temporaryFolder();

private:
    QByteArrayList m_entries;
};

/// A start of vkreport with \a arguments and the lines \a trouble.
ProgramStart reportStart(const QStringList &arguments, const QByteArray &trouble = "",
                         const ReportEnvironment &environment = ReportEnvironment());

/// \a text without its times and its process id, which differ in each run.
QByteArray withoutVolatile(QByteArray text);

/// The complete report of machines/workstation in its parts.
class CompleteReport
{
public:
    /// The texts of the Windows half are those of the sections in this process. Those of the Qt half, and of OpenGL
    /// if it is there, are cut out of \a report, which vkreport made.
    explicit CompleteReport(const QByteArray &report);

    /// Empty if every part of the report was found.
    QByteArray problem() const { return m_problem; }
    /// All sections, in the order of the report.
    QByteArrayList names() const;
    /// The text of the section \a name.
    QByteArray section(const QByteArray &name) const;
    /// The report without the sections \a missing. A separator is left out if all sections before it, back to the
    /// previous separator, are missing.
    QByteArray without(const QByteArrayList &missing) const;

private:
    struct PartOfReport
    {
        QByteArray name;
        QByteArray text;
        velkor::SystemInfo::Part part;
        bool separator;
    };

    void cutQtHalf(const QByteArray &report);

    QVector<PartOfReport> m_parts;
    QByteArray m_problem;
};

/// The lines of \a errors. "N s" replaces each time, which is added to \a seconds.
QByteArrayList messageLines(const QByteArray &errors, QVector<double> *seconds = nullptr);

/// The time limit in seconds of a report in which so many \a sections hang. Each of them takes a third of the time that remains
/// of 40 % of the limit. In the end \a last seconds remain for the other sections, and for starting the children.
double limitForHangs(int sections, double last);

/// The lines that say that the sections \a names are missing for one \a reason.
QByteArrayList missingLines(const QByteArrayList &names, const QByteArray &reason);

/// What a missing part or an attempt says.
inline const QByteArray didNotEnd = "did not end within N s";
inline const QByteArray crashed = "crashed after N s (SIGSEGV)";
inline const QByteArray aborted = "crashed after N s (SIGABRT)";
inline const QByteArray notTried = "not tried, the time limit was reached";
inline QByteArray exited(int code)
{
    return "ended the process after N s (exit code " + QByteArray::number(code) + ')';
}

/// The lines about the failed attempts to make the report.
inline QByteArray wholeReport(const QByteArray &reason)
{
    return "vkreport: the whole report " + reason;
}
inline QByteArray reportWithoutOpenGL(const QByteArray &reason)
{
    return "vkreport: the report without OpenGL " + reason;
}
