// Texts that belong to no report and are redacted together with one.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

/// A text and the fact that would show it: redact() treats it as the value of that fact.
struct LooseText
{
    int row = 0;     ///< index in factRows()
    QByteArray text; ///< UTF-8; an unpaired surrogate has three bytes
};

/// The index in factRows(). \a item is empty for a fact of the section itself. -1 if there is no such fact.
int factRow(const char *section, const char *item, const char *key);

/// A document of these texts. The value of an environment variable follows its name.
Document looseDocument(const std::vector<LooseText> &texts);

/// The texts of such a document, in their order.
std::vector<QByteArray> looseTexts(const Document &document);

/// Where a replaced place ended, and where its alias ends.
struct Replaced
{
    int end = 0;
    int newEnd = 0;
};

/// The loose \a document with another text. \a replaced is in order.
Document withText(const Document &document, const QByteArray &text, const std::vector<Replaced> &replaced);

} // namespace Reports
} // namespace velkor
