#include "input.h"

#include "neutral_text.h"
#include "program_output.h"
#include "report_input.h"

using namespace velkor::Reports;

namespace {

struct Warning
{
    State state;
    const char *text;
};

constexpr Warning warnings[] = {
    {State::StartMissing, "the beginning of the report is missing; what it said is compared as if it had been removed"},
    {State::EndMissing, "the end of the report is missing; what it said is compared as if it had been removed"},
    {State::SectionsMissing, "sections in the middle of the report are missing; they are compared as if they had been removed"},
    {State::SeveralReports, "there are several reports; only the first one is compared"},
    {State::WrappedLines, "lines were wrapped; where they were joined again, a value can seem to differ"},
    {State::BlanksCollapsed, "runs of spaces were shortened; a value can seem to differ"},
    {State::Ambiguous, "some lines may be a value or the structure of the report"},
};

QString shownName(const QString &fileName)
{
    return fileName == QLatin1String("-") ? QStringLiteral("standard input") : fileName;
}

/// \a name as messages have it: on one line.
QString quoted(const QString &name)
{
    return QLatin1Char('\'') + terminalText(QString(name).replace(QLatin1Char('\n'), QLatin1Char(' '))) + QLatin1Char('\'');
}

} // namespace

std::optional<Input> readInputReport(const QString &fileName)
{
    const auto document = readReport(fileName);
    if (!document)
        return std::nullopt;
    const QString name = shownName(fileName);
    if (document->states() & State::NoReport) {
        complain(QStringLiteral("there is no report in ") + quoted(name));
        return std::nullopt;
    }
    for (const Warning &warning : warnings) {
        if (document->states() & warning.state)
            complain(QStringLiteral("warning: %1: %2").arg(quoted(name), QLatin1String(warning.text)));
    }
    return Input {name, *document};
}
