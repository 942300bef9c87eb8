#include "redacting.h"

#include "neutral_text.h"
#include "private_file.h"
#include "report_input.h"

using namespace velkor;

std::optional<Reports::Redaction> redacted(const Reports::Document &document, const RedactionFiles &files)
{
    QString error;
    const auto options = readRedactionOptions(files, error);
    if (!options) {
        complain(Reports::terminalText(error));
        return std::nullopt;
    }
    if (document.states() & Reports::State::NoReport)
        complain(QStringLiteral("warning: this is no report, so nothing says which names are in it"));
    showProgress("redacting", document.text().size());
    return Reports::redact({document}, *options);
}

ExitCode writeWhatWasRedacted(const Reports::Redaction &redaction, const RedactionFiles &files)
{
    tellWhatWasRedacted(redaction);
    QString error;
    if (files.aliasMap.isNull() || writePrivateFile(files.aliasMap, Reports::aliasMapJson(redaction), error))
        return Done;
    complain(Reports::terminalText(error));
    return Failed;
}
