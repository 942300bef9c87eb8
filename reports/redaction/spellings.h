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

/// The spellings of  name that are distinct enough to be replaced anywhere in a text. Empty for ordinary words.
///  isStated: a fact says what it is; then parts of a domain's name can stand for it.
std::vector<Spelling> spellingsOf(AliasKind kind, const QString &name, bool isStated);

/// \a name as programs write it that know ASCII only, and as others misread it.
std::vector<std::u16string> variantsOfName(const QString &name);

/// The words of \a name with blanks between them, as symbols: the same for "Jörn Lindmoor" and "jorn.lindmoor".
std::u16string wordsAsOne(const QString &name);

/// The words of a person's or an organisation's name that can stand for it.
QStringList wordsOf(AliasKind kind, const QString &name);

/// Whether a component of a path, as symbols, has the form of a short name (8.3): "LINDMO~1", "LI1A2B~1".
bool isShortName(const std::u16string &component);
/// What precedes "~" in a short name; of one with a checksum its first two letters.
std::u16string shortNameBase(const std::u16string &shortName);
/// What can precede "~" in the short name of \a name.
std::vector<std::u16string> shortNameBases(const QString &name);

} // namespace Reports
} // namespace velkor
