// What facts, items and sections mean, for people.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

/// The meaning of a fact: one or two sentences in plain text, UTF-8.
struct Meaning
{
    const char *section; ///< as in FactRow
    const char *item;    ///< as in FactRow
    const char *name;    ///< key of the fact; the line of a row without a key
    const char *text;
};

/// One for each name of section and item, in the order of the catalogue.
const std::vector<Meaning> &factMeanings();

/// The text of a row of the catalogue; empty for any other row.
const char *meaningOf(const FactRow &row);
const char *meaningOf(const ItemRow &row);
const char *sectionMeaning(const SectionRow &row);

} // namespace Reports
} // namespace velkor
