#include "conversion.h"

#include "decoded_text.h"
#include "fact_list.h"
#include "neutral_text.h"
#include "program_input.h"
#include "report_input.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <algorithm>

using namespace velkor;
using Reports::Document;

namespace {

QByteArray summaryJson(const Document &document)
{
    QJsonArray lines;
    for (const Reports::SummaryLine &line : Reports::summary(document)) {
        lines += QJsonObject {{QStringLiteral("key"), QLatin1String(line.key)},
                              {QStringLiteral("label"), line.label},
                              {QStringLiteral("value"), line.value}};
    }
    const QJsonObject object {{QStringLiteral("schemaVersion"), Reports::schemaVersion}, {QStringLiteral("summary"), lines}};
    return QJsonDocument(object).toJson();
}

/// Chosen sections become a document of their own text, so that its JSON is one of these bytes, too.
QByteArray json(const Document &document, const Options &options)
{
    if (options.write.onlySummary)
        return summaryJson(document);
    return Reports::toJson(options.write.sections.empty() ? document : Reports::read(Reports::toText(document, options.write)));
}

QByteArray converted(const Document &document, const Options &options)
{
    switch (options.format) {
    case Format::Json:
        return json(document, options);
    case Format::Markdown:
        return Reports::toMarkdown(document, options.write);
    case Format::Html:
        return Reports::toHtml(document, options.write);
    case Format::Text:
        break;
    }
    return Reports::toText(document, options.write);
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

ExitCode writeDocument(const Document &document, const Options &options)
{
    if (!hasChosenSection(document, options.write)) {
        complain(QStringLiteral("the report does not have this section"));
        return Failed;
    }
    showProgress("writing", document.text().size());
    const QByteArray bytes = converted(document, options);
    const bool isShown = options.output.isNull() && isTerminal(stdout);
    return writeText(options, isShown ? forTerminal(document, bytes, options) : bytes);
}

} // namespace

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

ExitCode writeFactList(const Options &options)
{
    const auto facts = Reports::factList(options.write.sections);
    return writeText(options, options.format == Format::Json ? Reports::factListJson(facts) : Reports::factListText(facts));
}

ExitCode convertInput(const Options &options)
{
    const auto document = readReport(options.input);
    return document ? writeDocument(*document, options) : Failed;
}

ExitCode convertText(const Options &options, const QString &text)
{
    return writeDocument(Reports::read(text.toUtf8()), options);
}
