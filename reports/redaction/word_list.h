// The user's own lists of what to hide and what to keep.
#pragma once

#include "name_search.h"

#include <QtCore/QStringList>

namespace velkor {
namespace Reports {

class WordList
{
public:
    /// Wrong entries are ignored; see redactionEntryError().
    explicit WordList(const QStringList &entries);

    bool isEmpty() const { return search.isEmpty() && patterns.empty(); }
    /// Replaces \a places by what the entries match in \a text, in ascending order without overlaps.
    void find(std::string_view text, std::vector<NamePlace> &places);

private:
    void findPatterns(std::string_view text, std::vector<NamePlace> &places) const;
    bool matchesPattern(const std::u16string &word) const;

    NameSearch search;
    std::vector<std::u16string> patterns;
};

} // namespace Reports
} // namespace velkor
