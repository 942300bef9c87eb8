#include "word_pattern.h"

namespace velkor {
namespace Reports {

namespace {

constexpr std::size_t none = std::u16string_view::npos;

/// Where the set that begins at \a at ends: behind its "]". npos if it does not end.
std::size_t endOfSet(std::u16string_view pattern, std::size_t at)
{
    std::size_t first = at + 1;
    if (first < pattern.size() && pattern[first] == u'!')
        ++first;
    const std::size_t end = pattern.find(u']', first + 1); // a "]" in first place belongs to the set
    return end == none ? none : end + 1;
}

bool isInSet(std::u16string_view set, char16_t symbol)
{
    const bool isNegated = !set.empty() && set.front() == u'!';
    if (isNegated)
        set.remove_prefix(1);
    bool isFound = false;
    for (std::size_t i = 0; i < set.size(); ++i) {
        const bool isRange = i + 2 < set.size() && set[i + 1] == u'-';
        const char16_t last = isRange ? set[i + 2] : set[i];
        isFound = isFound || (symbol >= set[i] && symbol <= last);
        i += isRange ? 2 : 0;
    }
    return isFound != isNegated;
}

/// Matches one symbol with what stands at \a at in \a pattern. Returns what follows it there, or npos.
std::size_t matchOne(std::u16string_view pattern, std::size_t at, char16_t symbol)
{
    if (at >= pattern.size())
        return none;
    if (pattern[at] == u'[') {
        const std::size_t end = endOfSet(pattern, at);
        if (end != none)
            return isInSet(pattern.substr(at + 1, end - at - 2), symbol) ? end : none;
    }
    return pattern[at] == u'?' || pattern[at] == symbol ? at + 1 : none;
}

} // namespace

bool matchesWordPattern(std::u16string_view pattern, std::u16string_view word)
{
    std::size_t inPattern = 0;
    std::size_t inWord = 0;
    std::size_t star = none; // behind the last "*"
    std::size_t starWord = 0;
    while (inWord < word.size()) {
        if (inPattern < pattern.size() && pattern[inPattern] == u'*') {
            star = ++inPattern;
            starWord = inWord;
            continue;
        }
        const std::size_t next = matchOne(pattern, inPattern, word[inWord]);
        if (next != none) {
            inPattern = next;
            ++inWord;
        } else if (star != none) {
            inPattern = star;
            inWord = ++starWord;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(u'*', inPattern) == none;
}

} // namespace Reports
} // namespace velkor
