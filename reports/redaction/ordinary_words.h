// Words that a report has by itself.
#pragma once

#include <string>

namespace velkor {
namespace Reports {

/// Whether \a word, as symbols, is a word of the report's format, of Windows, of manufacturers, or a name that
/// many accounts, computers and drives have. Somebody can be called so; then the word is replaced where the text
/// says that it is a name, and nowhere else.
bool isOrdinaryWord(const std::u16string &word);

/// How much a name says by itself.
enum class Distinction {
    None,  ///< an ordinary word, or too short
    Some,  ///< as a whole word
    Clear, ///< also inside a longer word
};

/// Of a name as symbols.
Distinction distinctionOf(const std::u16string &name);

} // namespace Reports
} // namespace velkor
