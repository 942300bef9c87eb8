// What must hold for every redaction: the text stays a report with the same structure.
#pragma once

#include "vkReports.h"

#include <vector>

/// What differs between a document and its redaction although it must not: the number of line breaks, the
/// encoding, the states, the sections, items and facts, and the bytes that belong to no value. Empty if
/// nothing does. A state can vanish with what was contradictory in a value, and further lines of a value can
/// become empty. If lines were wrapped, only the line breaks and the encoding are checked: the lengths of lines say where
/// they were broken, and aliases have other lengths.
QString flawOfRedaction(const velkor::Reports::Document &before, const velkor::Reports::Document &after);

/// Whether both texts have as many line feeds and as many carriage returns.
bool haveSameLineBreaks(const velkor::Reports::Document &before, const velkor::Reports::Document &after);

/// An alias in a text.
struct FoundAlias
{
    QString kind; ///< "user"
    QString text; ///< "user-1"
};

/// What looks like an alias in \a text, in order.
std::vector<FoundAlias> aliasesIn(const QString &text);

/// What is wrong with the list of aliases: two that are equal, another form, numbers that do not count
/// from 1, no count, no reason, a spelling of a secret. \a hasKey: digits of an HMAC are expected instead of numbers.
/// \a mayLeaveOut: numbers can be missing, because the text had something of that form before.
QString flawOfAliases(const velkor::Reports::Redaction &redaction, bool hasKey, bool mayLeaveOut = false);

/// What is wrong with the places that were replaced in the document with this index, which was \a before: what is between
/// them differs, or a place has something else than its alias and the line breaks of the original. Empty if nothing is.
QString flawOfReplacements(const velkor::Reports::Document &before, const velkor::Reports::Redaction &redaction,
                           std::size_t index = 0);
