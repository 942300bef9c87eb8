#include "conversion.h"

#include "decoded_text.h"
#include "fact_list.h"
#include "neutral_text.h"
#include "program_input.h"
#include "redacting.h"
#include "report_input.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <algorithm>

using namespace velkor;
using Reports::Document;

namespace {

/// What is written. Without a redaction, nothing was redacted.
struct Content
{
    Document document;
    QByteArray incompleteness; ///< JSON; empty if nothing is missing
    const Reports::Redaction *redaction = nullptr;
};

QByteArray summaryJson(const Content &content)
{
    QJsonArray lines;
    for (const Reports::SummaryLine &line : Reports::summary(content.document)) {
        lines += QJsonObject {{QStringLiteral("key"), QLatin1String(line.key)},
                              {QStringLiteral("label"), line.label},
                              {QStringLiteral("value"), line.value}};
    }
    QJsonObject object {{QStringLiteral("schemaVersion"), Reports::schemaVersion}, {QStringLiteral("summary"), lines}};
    if (content.redaction)
        object.insert(QStringLiteral("redaction"), QJsonDocument::fromJson(Reports::redactionJson(*content.redaction)).object());
    if (!content.incompleteness.isEmpty())
        object.insert(QStringLiteral("incomplete"), QJsonDocument::fromJson(content.incompleteness).object());
    return QJsonDocument(object).toJson();
}

/// Chosen sections become a document of their own text, so that its JSON is one of these bytes, too.
QByteArray json(const Content &content, const Options &options)
{
    if (options.write.onlySummary)
        return summaryJson(content);
    const Document document = options.write.sections.empty()
        ? content.document
        : Reports::read(Reports::toText(content.document, options.write));
    return Reports::toJson(document, {content.redaction, content.incompleteness});
}

QByteArray converted(const Content &content, const Options &options)
{
    switch (options.format) {
    case Format::Json:
        return json(content, options);
    case Format::Markdown:
        return Reports::toMarkdown(content.document, options.write);
    case Format::Html:
        return Reports::toHtml(content.document, options.write);
    case Format::Text:
        break;
    }
    return Reports::toText(content.document, options.write);
}

bool isWholeText(const Options &options)
{
    const Reports::WriteOptions &write = options.write;
    return options.format == Format::Text && write.sections.empty() && write.maxLength == 0 && !write.onlySummary;
}

/// A terminal would execute what it finds in a stranger's report. Files and pipes get every byte.
QByteArray forTerminal(const Document &document, const QByteArray &bytes, const Options &options)
{
    QString text = Reports::decodedText(isWholeText(options) ? document.text() : bytes);
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return Reports::terminalText(text).toUtf8();
}

bool hasChosenSection(const Document &document, const Reports::WriteOptions &write)
{
    return write.sections.empty()
        || std::any_of(document.sections().begin(), document.sections().end(), [&write](const Reports::Section &section) {
               return std::find(write.sections.begin(), write.sections.end(), section.row) != write.sections.end();
           });
}

ExitCode writeText(const Options &options, const QByteArray &bytes)
{
    if (options.output.isNull()) {
        if (writeToStandardOutput(bytes))
            return Done;
        complain(QStringLiteral("cannot write to standard output"));
        return Failed;
    }
    QString error;
    if (writeToFile(bytes, options.output, error))
        return Done;
    complain(Reports::terminalText(error));
    return Failed;
}

ExitCode writeContent(const Content &content, const Options &options)
{
    showProgress("writing", content.document.text().size());
    const QByteArray bytes = converted(content, options);
    const bool isShown = options.output.isNull() && isTerminal(stdout);
    return writeText(options, isShown ? forTerminal(content.document, bytes, options) : bytes);
}

/// Names are found in the whole report, also if only some sections of it are written.
ExitCode writeRedacted(const Content &content, const Options &options)
{
    const auto redaction = redacted(content.document, options.redaction);
    if (!redaction)
        return Failed;
    const ExitCode exitCode = writeContent({redaction->documents.front(), content.incompleteness, &*redaction}, options);
    return exitCode == Done ? writeWhatWasRedacted(*redaction, options.redaction) : exitCode;
}

ExitCode writeDocument(const Content &content, const Options &options)
{
    if (!hasChosenSection(content.document, options.write)) {
        if (content.incompleteness.isEmpty()) // otherwise it was said
            complain(QStringLiteral("the report does not have this section"));
        return Failed;
    }
    return options.redact ? writeRedacted(content, options) : writeContent(content, options);
}

ExitCode writeReport(const Options &options, const MadeText &made)
{
    if (!options.needsDocument())
        return writeText(options, *made.text);
    return writeDocument({Reports::read(*made.text), incompletenessJson(made.incompleteness, options.timeLimit), nullptr}, options);
}

/// What is missing is also said in a file beside the report. If that is not possible, the exit code says it still.
ExitCode writeFileBeside(const Options &options, const Incompleteness &incompleteness)
{
    QString error;
    if (options.output.isNull() || isDevice(options.output) || writeIncompletenessFile(incompleteness, options.output, error))
        return Done;
    complain(Reports::terminalText(error));
    return incompleteness.missing.empty() ? Failed : Done;
}

} // namespace

ExitCode writeFactList(const Options &options)
{
    const auto facts = Reports::factList(options.write.sections);
    return writeText(options, options.format == Format::Json ? Reports::factListJson(facts) : Reports::factListText(facts));
}

ExitCode convertInput(const Options &options)
{
    const auto document = readReport(options.input);
    return document ? writeDocument({*document, {}, nullptr}, options) : Failed;
}

/// The report comes first: writing messages can block for ever if nobody reads them.
ExitCode writeMade(const Options &options, const MadeText &made)
{
    ExitCode exitCode = made.text ? writeReport(options, made) : Failed;
    if (exitCode == Done)
        exitCode = writeFileBeside(options, made.incompleteness);
    for (const QString &line : failureLines(made.incompleteness))
        complain(line);
    tell(made.timings);
    return exitCode == Done && !made.incompleteness.missing.empty() ? Incomplete : exitCode;
}
