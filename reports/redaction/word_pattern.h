// Patterns as those for names of files.
#pragma once

#include <string_view>

namespace velkor {
namespace Reports {

/// Whether all of \a word matches \a pattern with "*", "?" and "[...]" ("[!...]" for none of these, "[a-z]" for a range).
/// Takes at most time in proportion to the product of the lengths.
bool matchesWordPattern(std::u16string_view pattern, std::u16string_view word);

} // namespace Reports
} // namespace velkor
