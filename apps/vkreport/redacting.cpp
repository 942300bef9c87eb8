#include "redacting.h"

#include "alias_key.h"
#include "neutral_text.h"
#include "private_file.h"
#include "report_input.h"
#include "word_list.h"

using namespace velkor;

namespace {

bool readWordLists(const QStringList &fileNames, QStringList &entries, QString &error)
{
    for (const QString &fileName : fileNames) {
        if (!readWordList(fileName, entries, error))
            return false;
    }
    return true;
}

/// The key comes last: if one of the lists is wrong, none is made.
bool readFiles(const RedactionFiles &files, Reports::RedactionOptions &options, QString &error)
{
    if (!readWordLists(files.hide, options.hide, error) || !readWordLists(files.keep, options.keep, error))
        return false;
    if (files.aliasKey.isNull())
        return true;
    options.key = readAliasKey(files.aliasKey, error);
    return !options.key.isEmpty();
}

} // namespace

std::optional<Reports::Redaction> redacted(const Reports::Document &document, const RedactionFiles &files)
{
    Reports::RedactionOptions options;
    QString error;
    if (!readFiles(files, options, error)) {
        complain(Reports::terminalText(error));
        return std::nullopt;
    }
    if (document.states() & Reports::State::NoReport)
        complain(QStringLiteral("warning: this is no report, so nothing says which names are in it"));
    showProgress("redacting", document.text().size());
    return Reports::redact({document}, options);
}

ExitCode writeWhatWasRedacted(const Reports::Redaction &redaction, const RedactionFiles &files)
{
    tell(Reports::terminalText(QString::fromUtf8(Reports::redactionText(redaction))));
    QString error;
    if (files.aliasMap.isNull() || writePrivateFile(files.aliasMap, Reports::aliasMapJson(redaction), error))
        return Done;
    complain(Reports::terminalText(error));
    return Failed;
}
