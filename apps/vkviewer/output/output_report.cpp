#include "output_report.h"

using namespace velkor::Reports;

QByteArray outputBytes(const OutputReport &report, OutputFormat format)
{
    switch (format) {
    case OutputFormat::Text:
        break;
    case OutputFormat::Json:
        return toJson(report.document, JsonNotes {report.redaction.get(), report.incomplete});
    case OutputFormat::Html:
        return toHtml(report.document);
    case OutputFormat::Markdown:
        return toMarkdown(report.document);
    }
    return report.document.bytes();
}

QByteArray issueMarkdown(const OutputReport &report)
{
    WriteOptions options;
    options.maxLength = largestIssue;
    return toMarkdown(report.document, options);
}

QByteArray summaryText(const OutputReport &report)
{
    WriteOptions options;
    options.onlySummary = true;
    return toText(report.document, options);
}
