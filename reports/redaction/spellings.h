// In which spellings a name can occur again.
#pragma once

#include "name_search.h"
#include "vkReports.h"

namespace velkor {
namespace Reports {

struct Spelling
{
    std::u16string symbols;
    Boundaries boundaries = Boundaries::Word;
};

/// The spellings of \a name that are distinct enough to be replaced anywhere in a text. Empty for ordinary words.
std::vector<Spelling> spellingsOf(AliasKind kind, const QString &name);

/// The words of a person's or an organisation's name that can stand for it.
QStringList wordsOf(AliasKind kind, const QString &name);

/// Whether \a component of a path is the short name (8.3) of \a name: "LINDMO~1", "LI1A2B~1".
bool isShortNameOf(const std::u16string &component, const QString &name);

/// Whether \a component has the form of a short name.
bool isShortName(const std::u16string &component);

} // namespace Reports
} // namespace velkor
