#include "comparison_notes.h"

#include "cell_text.h"

#include <QtCore/QDir>

using namespace velkor::Reports;

namespace {

struct Note
{
    State state;
    const char *text;
};

constexpr Note notes[] = {
    {State::StartMissing, QT_TRANSLATE_NOOP("ComparisonNotes", "The beginning of %1 is missing. What it said is compared as if it had been removed.")},
    {State::EndMissing, QT_TRANSLATE_NOOP("ComparisonNotes", "The end of %1 is missing. What it said is compared as if it had been removed.")},
    {State::SectionsMissing, QT_TRANSLATE_NOOP("ComparisonNotes", "Sections in the middle of %1 are missing. They are compared as if they had been removed.")},
    {State::SeveralReports, QT_TRANSLATE_NOOP("ComparisonNotes", "There are several reports in %1. Only the first one is compared.")},
    {State::WrappedLines, QT_TRANSLATE_NOOP("ComparisonNotes", "Lines of %1 were wrapped. Where they were joined again, a value can seem to differ.")},
    {State::BlanksCollapsed, QT_TRANSLATE_NOOP("ComparisonNotes", "Runs of spaces of %1 were shortened. A value can seem to differ.")},
    {State::Ambiguous, QT_TRANSLATE_NOOP("ComparisonNotes", "Some lines of %1 may be a value or the structure of the report.")},
};

} // namespace

QStringList ComparisonNotes::of(const LoadedReport &report)
{
    if (!report.isReport())
        return {tr("There is no report in %1.").arg(name(report))};
    QStringList result;
    for (const Note &note : notes) {
        if (report.document.states() & note.state)
            result += tr(note.text).arg(name(report));
    }
    return result;
}

// One has texts of its own: without a translation Qt has no plural.

QString ComparisonNotes::differences(int count)
{
    return count == 1 ? tr("1 difference") : tr("%n differences", nullptr, count);
}

QString ComparisonNotes::matches(int rows)
{
    return rows == 1 ? tr("1 row matches the filter.") : tr("%n rows match the filter.", nullptr, rows);
}

QString ComparisonNotes::onlyTexts(int sections)
{
    if (sections == 0)
        return {};
    return sections == 1 ? tr("In 1 section only the text differs, such as its order.")
                         : tr("In %n sections only the text differs, such as its order.", nullptr, sections);
}

QString ComparisonNotes::summary(int differences, int everyMoment, bool showsEveryMoment)
{
    QString first = differences == 0 ? tr("Nothing differs.") : ComparisonNotes::differences(differences) + QLatin1Char('.');
    if (everyMoment == 0)
        return first;
    QString second;
    if (showsEveryMoment)
        second = everyMoment == 1 ? tr("1 value that changes every moment differs, too.")
                                  : tr("%n values that change every moment differ, too.", nullptr, everyMoment);
    else
        second = everyMoment == 1 ? tr("1 value that changes every moment is not shown.")
                                  : tr("%n values that change every moment are not shown.", nullptr, everyMoment);
    return first + QLatin1Char(' ') + second;
}

QString ComparisonNotes::privacy(bool isHidden)
{
    return isHidden ? tr("Personal data are hidden: an alias is one person or thing in all reports; most environment variables are compared by length.")
                    : tr("The comparison contains names, addresses and values of environment variables, also when it is copied or saved: send it only to people who need it.");
}

QString ComparisonNotes::work(bool isHidden)
{
    return isHidden ? tr("Hiding personal data and comparing\u2026") : tr("Comparing\u2026");
}

QString ComparisonNotes::name(const LoadedReport &report)
{
    return report.name.isEmpty() ? tr("report without a name") : cellText(report.name);
}

QString ComparisonNotes::number(int number)
{
    return tr("report %1").arg(number);
}

QString ComparisonNotes::place(const LoadedReport &report)
{
    return report.path.isEmpty() ? name(report) : QDir::toNativeSeparators(report.path);
}
