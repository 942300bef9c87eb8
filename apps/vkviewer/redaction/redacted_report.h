// A report without personal data, and what was replaced in it.
#pragma once

#include "vkReports.h"

#include <QtCore/QMetaType>
#include <QtCore/QStringList>
#include <memory>
#include <vector>

/// What the user decided. Entries are as RedactionOptions::hide and keep describe them.
struct RedactionChoices
{
    QStringList hide;
    QStringList keep;

    bool operator==(const RedactionChoices &other) const { return hide == other.hide && keep == other.keep; }
    bool operator!=(const RedactionChoices &other) const { return !(*this == other); }
};

/// Immutable; copying is cheap.
class RedactedReport
{
public:
    using Document = velkor::Reports::Document;
    using Redaction = velkor::Reports::Redaction;
    using Replacement = velkor::Reports::Replacement;

    /// Nothing.
    RedactedReport();
    /// Takes about a second for 10 MByte. Can be called from any thread.
    RedactedReport(const Document &original, const RedactionChoices &choices);

    const Document &original() const { return m_original; }
    const Document &document() const;
    const Redaction &redaction() const { return *m_redaction; }
    const RedactionChoices &choices() const { return m_choices; }

    /// In the order of the redacted text.
    const std::vector<Replacement> &replacements() const;
    /// Those of one alias, an index in Redaction::aliases, or -1 for the lengths of values of variables.
    std::vector<Replacement> replacementsOf(int alias) const;
    /// What stood there: bytes of the original text.
    QByteArray originalOf(const Replacement &replacement) const;
    /// All that stood for one alias, each spelling once, in the order of the text.
    QStringList originalsOf(int alias) const;

private:
    Document m_original;
    RedactionChoices m_choices;
    std::shared_ptr<const Redaction> m_redaction;
};

Q_DECLARE_METATYPE(RedactedReport)
