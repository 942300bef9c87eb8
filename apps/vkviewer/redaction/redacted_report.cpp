#include "redacted_report.h"

#include <algorithm>
#include <iterator>

using namespace velkor::Reports;

RedactedReport::RedactedReport()
    : RedactedReport(Document(), {})
{
}

RedactedReport::RedactedReport(const Document &original, const RedactionChoices &choices)
    : m_original(original), m_choices(choices)
{
    RedactionOptions options;
    options.hide = choices.hide;
    options.keep = choices.keep;
    m_redaction = std::make_shared<Redaction>(redact({original}, options));
}

const Document &RedactedReport::document() const
{
    return m_redaction->documents.front();
}

const std::vector<Replacement> &RedactedReport::replacements() const
{
    return m_redaction->replacements.front();
}

std::vector<Replacement> RedactedReport::replacementsOf(int alias) const
{
    std::vector<Replacement> found;
    std::copy_if(replacements().begin(), replacements().end(), std::back_inserter(found), [alias](const Replacement &replacement) {
        return replacement.alias == alias && replacement.begin < replacement.end;
    });
    return found;
}

QByteArray RedactedReport::originalOf(const Replacement &replacement) const
{
    return m_original.text().mid(replacement.originalBegin, replacement.originalEnd - replacement.originalBegin);
}

QStringList RedactedReport::originalsOf(int alias) const
{
    QStringList originals;
    for (const Replacement &replacement : replacementsOf(alias))
        originals += QString::fromUtf8(originalOf(replacement));
    originals.removeDuplicates();
    return originals;
}
