// Rejects most names quickly.

#include "secret_names.h"

#include "address_forms.h"
#include "secret_name_lists.h"

#include <array>
#include <cstdint>

namespace velkor {
namespace Reports {

namespace {

constexpr std::size_t bitsOfEndings = 2048;

using Endings = std::array<std::uint64_t, bitsOfEndings / 64>;

constexpr unsigned hashOfEnding(char third, char second, char last)
{
    return (unsigned(third & 31) * 37 + unsigned(second & 31) * 101 + unsigned(last & 31) * 331) % bitsOfEndings;
}

template <std::size_t size>
constexpr void addEndings(Endings &endings, const std::string_view (&list)[size])
{
    for (const std::string_view entry : list) {
        const std::size_t length = entry.size();
        const unsigned hash = hashOfEnding(entry[length - 3], entry[length - 2], entry[length - 1]);
        endings[hash / 64] |= std::uint64_t(1) << hash % 64;
    }
}

constexpr Endings endingsOfLists()
{
    Endings endings {};
    addEndings(endings, certainEnds);
    addEndings(endings, certainWords);
    addEndings(endings, probableWords);
    addEndings(endings, queryWords);
    addEndings(endings, wholeLineEnds);
    addEndings(endings, otherEnds);
    return endings;
}

constexpr Endings endings = endingsOfLists();

/// Whether the lists have a name with these last letters, in any case. True for some other letters, too.
bool isEnding(char third, char second, char last)
{
    const unsigned hash = hashOfEnding(third, second, last);
    return (endings[hash / 64] >> hash % 64 & 1) != 0;
}

/// Whether the letters at \a at are a part that one of the inner words has and few other words have.
bool isInnerPart(std::string_view text, std::size_t at)
{
    const int first = text[at] | 0x20;
    const int second = text[at + 1] | 0x20;
    const int third = characterAt(text, at + 2) | 0x20;
    switch (second) {
    case 's':
        return first == 's';
    case 'r':
        return first == 'c' && third == 'e';
    case 'k':
        return first == 'o' && third == 'e';
    case 'i':
        return first == 'p' && (third == 'k' || third == ('_' | 0x20) || third == ('-' | 0x20));
    case 'n':
        return first == 'n' && third == 'w';
    default:
        return false;
    }
}

enum LetterClass : unsigned char {
    Small = 0x1,
    Capital = 0x2,
    Joint = 0x4,
};

constexpr std::array<unsigned char, 256> letterClasses()
{
    std::array<unsigned char, 256> all {};
    for (std::size_t i = 0; i < all.size(); ++i) {
        const char c = char(static_cast<unsigned char>(i));
        all[i] = static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? Capital : c == '_' || c == '-' || c == '.' ? Joint
                                                                                                              : Small);
    }
    for (std::size_t i = 0; i <= ' '; ++i)
        all[i] = 0;
    for (const char c : {'"', '\'', '/', '\\', ':', '='})
        all[std::size_t(c)] = 0;
    return all;
}

constexpr std::array<unsigned char, 256> letterClass = letterClasses();

/// Whether the last word before \a end has several words in it, and one of them can be one of the inner words.
bool hasInnerPart(std::string_view text, std::size_t end, std::size_t least)
{
    const char *const word = text.data();
    unsigned first = 0;
    unsigned rest = 0;
    std::size_t begin = end;
    for (; begin > least; --begin) {
        const unsigned current = letterClass[static_cast<unsigned char>(word[begin - 1])];
        if (current == 0)
            break;
        rest |= first;
        first = current;
    }
    const bool isJoined = (rest & Joint) != 0 || (rest & (Small | Capital)) == (Small | Capital);
    for (; isJoined && begin + 1 < end; ++begin) {
        if (isInnerPart(text, begin))
            return true;
    }
    return false;
}

bool isNumberOrSeparator(char c)
{
    return isDecimal(c) || c == '_' || c == '-' || c == '.';
}

} // namespace

bool canBeSecretName(std::string_view text, std::size_t end, std::size_t first)
{
    const std::size_t least = end > first + longestName ? end - longestName : first;
    while (end > least && isNumberOrSeparator(text[end - 1]))
        --end;
    if (end < least + 3)
        return false;
    if (isEnding(text[end - 3], text[end - 2], text[end - 1]))
        return true;
    if (end >= least + 13 && (text[end - 1] | 0x20) == 'n' && (text[end - 6] | 0x20) == 'z') // "authorization"
        return true;
    return hasInnerPart(text, end, least);
}

} // namespace Reports
} // namespace velkor
