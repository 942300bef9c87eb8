// Keys without a name: in groups, or random.

#include "secret_tokens.h"

#include "address_forms.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

bool isUpperOrDigit(char c)
{
    return isDecimal(c) || (c >= 'A' && c <= 'Z');
}

bool isLowerOrDigit(char c)
{
    return isDecimal(c) || (c >= 'a' && c <= 'z');
}

} // namespace

bool isKeyInGroups(std::string_view run)
{
    const std::size_t length = run.find('-');
    if (length == std::string_view::npos || length < 4 || length > 8 || (run.size() + 1) % (length + 1) != 0)
        return false;
    const std::size_t groups = (run.size() + 1) / (length + 1);
    std::size_t letters = 0;
    std::size_t mixed = 0;
    for (std::size_t at = 0; at < run.size(); at += length + 1) {
        const std::string_view group = run.substr(at, length);
        const bool isUniform = std::all_of(group.begin(), group.end(), isUpperOrDigit) || std::all_of(group.begin(), group.end(), isLowerOrDigit);
        if (!isUniform || (at > 0 && run[at - 1] != '-'))
            return false;
        const auto digits = std::size_t(std::count_if(group.begin(), group.end(), isDecimal));
        letters += length - digits;
        mixed += digits > 0 && digits < length;
    }
    if (letters == 0) // of BitLocker, or a long number
        return (length == 6 && groups == 8) || (groups >= 5 && length >= 4);
    const bool isCapitals = std::all_of(run.begin(), run.end(), [](char c) { return c == '-' || isUpperOrDigit(c); });
    return (length == 5 && groups == 5 && (isCapitals || mixed >= 2)) || (groups >= 4 && groups <= 10 && mixed >= 2);
}

bool looksRandom(std::string_view text)
{
    constexpr std::size_t leastHex = 32;
    std::size_t digits = 0;
    std::size_t upper = 0;
    std::size_t lower = 0;
    std::size_t changes = 0;
    int previous = 0;
    bool isHex = true;
    for (const char c : text) {
        const int kind = isDecimal(c) ? 1 : c >= 'A' && c <= 'Z' ? 2
            : isAsciiLetter(c)                                   ? 3
                                                                 : 4;
        digits += kind == 1;
        upper += kind == 2;
        lower += kind == 3;
        changes += kind != 4 && previous != 4 && previous != 0 && kind != previous;
        previous = kind;
        isHex = isHex && hexValue(c) >= 0;
    }
    if (isHex)
        return text.size() >= leastHex && digits >= 4 && digits + 4 <= text.size() && (upper == 0 || lower == 0 || changes * 3 >= text.size());
    const bool isOneCase = (upper == 0 || lower == 0) && digits + upper + lower == text.size();
    if (isOneCase)
        return text.size() >= 24 && digits >= 5 && upper + lower >= 5 && changes * 10 >= text.size() * 3;
    return text.size() >= 20 && digits >= 2 && upper >= 2 && lower >= 2 && changes * 10 >= text.size() * 4;
}

} // namespace Reports
} // namespace velkor
