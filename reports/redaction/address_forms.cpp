#include "address_forms.h"

namespace velkor {
namespace Reports {

namespace {

constexpr std::size_t lengthOfPercentCode = 3;
constexpr std::size_t longestGroup = 4;

char decodedSeparator(char high, char low)
{
    const int value = hexValue(high) * 16 + hexValue(low);
    return value == ':' || value == '.' || value == '-' || value == '_' ? char(value) : '\0';
}

} // namespace

char separatorAt(std::string_view text, std::size_t at)
{
    const char c = characterAt(text, at);
    if (c == ':' || c == '.' || c == '-' || c == '_')
        return c;
    return isPercentCode(text, at) ? decodedSeparator(text[at + 1], text[at + 2]) : '\0';
}

std::size_t separatorLength(std::string_view text, std::size_t at, char separator)
{
    const char c = characterAt(text, at);
    if (c == separator)
        return at < text.size() ? 1 : 0;
    return c == '%' && separatorAt(text, at) == separator ? lengthOfPercentCode : 0;
}

bool continuesWith(std::string_view text, std::size_t at, std::string_view word)
{
    if (at > text.size() || text.size() - at < word.size())
        return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        const char c = text[at + i];
        if ((isAsciiLetter(c) ? char(c | 0x20) : c) != word[i])
            return false;
    }
    return true;
}

bool followsGroup(std::string_view text, std::size_t at)
{
    if (at < 2 || isAlphanumeric(text[at - 1]))
        return false;
    const std::size_t end = text[at - 2] == ':' ? at - 2 : at - 1; // "::" has two separators
    std::size_t begin = end;
    while (begin > 0 && end - begin <= longestGroup && hexValue(text[begin - 1]) >= 0)
        --begin;
    const bool isWord = begin == 0 || !isAlphanumeric(text[begin - 1]);
    return begin < end && end - begin <= longestGroup && isWord;
}

} // namespace Reports
} // namespace velkor
