#include "input.h"

#include "neutral_text.h"
#include "program_input.h"
#include "program_output.h"

#include <QtCore/QFileInfo>

using namespace velkor::Reports;

namespace {

/// Reading more than this takes long enough for a message.
constexpr qint64 largeInput = 10 * 1024 * 1024;

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

void showProgress(const QString &name, qint64 size, const char *what)
{
    if (size >= largeInput && isTerminal(stderr))
        complain(QStringLiteral("%1 %2 (%3 MByte) ...").arg(QLatin1String(what), quoted(name)).arg(size / (1024 * 1024)));
}

/// What the bytes are: the document of toJson(), or text. A text may begin like JSON.
Document documentOf(const QByteArray &bytes)
{
    if (bytes.startsWith('{')) {
        if (const auto document = fromJson(bytes))
            return *document;
    }
    return read(bytes);
}

} // namespace

std::optional<Input> readReport(const QString &fileName)
{
    Input input;
    input.name = shownName(fileName);
    QByteArray bytes;
    QString error;
    showProgress(input.name, QFileInfo(fileName).size(), "reading");
    if (!readInput(fileName, bytes, error)) {
        complain(terminalText(error));
        return std::nullopt;
    }
    input.document = documentOf(bytes);
    if (input.document.states() & State::NoReport) {
        complain(QStringLiteral("there is no report in ") + quoted(input.name));
        return std::nullopt;
    }
    for (const Warning &warning : warnings) {
        if (input.document.states() & warning.state)
            complain(QStringLiteral("warning: %1: %2").arg(quoted(input.name), QLatin1String(warning.text)));
    }
    return input;
}
