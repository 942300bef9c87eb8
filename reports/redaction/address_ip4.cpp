// IPv4 addresses.

#include "address_forms.h"

namespace velkor {
namespace Reports {

namespace {

constexpr int numbersOfAddress = 4;
constexpr int mostNumbers = 8; ///< an address after or before other numbers
constexpr std::size_t longestNumber = 3;
constexpr int largestNumber = 255;

struct Number
{
    std::size_t begin;
    std::size_t end;
    int value;
};

bool readNumber(std::string_view text, std::size_t at, Number &number)
{
    number = {at, at, 0};
    while (number.end < text.size() && isDecimal(text[number.end]) && number.end - at <= longestNumber)
        number.value = number.value * 10 + (text[number.end++] - '0');
    return number.end > at && number.end - at <= longestNumber && number.value <= largestNumber;
}

struct Numbers
{
    Number numbers[mostNumbers];
    int count = 0;
    bool goOn = false; ///< another number follows that is too large, or one too many
};

Numbers readNumbers(std::string_view text, std::size_t at, char separator)
{
    Numbers found;
    while (found.count < mostNumbers && readNumber(text, at, found.numbers[found.count])) {
        const std::size_t end = found.numbers[found.count++].end;
        const std::size_t length = separatorLength(text, end, separator);
        at = end + length;
        found.goOn = length > 0 && isDecimal(characterAt(text, at));
        if (!found.goOn)
            return found;
    }
    return found;
}

/// Networks that machines usually have: "10.", and from "100." on.
bool beginsLikeAddress(int first)
{
    return first == 10 || (first >= 100 && first < 224);
}

/// The index of the first of the four numbers that look most like an address.
int firstOfAddress(const Numbers &found)
{
    for (int i = 0; i + numbersOfAddress <= found.count; ++i) {
        if (beginsLikeAddress(found.numbers[i].value))
            return i;
    }
    return 0;
}

/// "//", "\\", "@", "[" or the word "ip" before it.
bool isAnnounced(std::string_view text, std::size_t at)
{
    if (at == 0)
        return false;
    const char previous = text[at - 1];
    if (previous == '@' || previous == '[')
        return true;
    if (at < 2)
        return false;
    if (previous == '/' || previous == '\\')
        return text[at - 2] == previous;
    return continuesWith(text, at - 2, "ip") || (at >= 3 && !isAlphanumeric(previous) && continuesWith(text, at - 3, "ip"));
}

/// A port or the length of a prefix after it.
bool hasPortOrPrefix(std::string_view text, std::size_t end)
{
    const char c = characterAt(text, end);
    return (c == ':' || c == '/') && isDecimal(characterAt(text, end + 1));
}

bool isCertainIp4(std::string_view text, std::size_t begin, std::size_t end, int first)
{
    if (isAnnounced(text, begin) || hasPortOrPrefix(text, end) || text.substr(begin, end - begin).find('%') < end - begin)
        return true;
    if ((begin > 0 && isAsciiLetter(text[begin - 1])) || isAlphanumeric(characterAt(text, end)))
        return false;
    return first >= 100;
}

void setCanonical(const Number *numbers, bool reversed, AddressPlace &place)
{
    place.canonical.clear();
    for (int i = 0; i < numbersOfAddress; ++i)
        place.canonical.append(char(numbers[reversed ? numbersOfAddress - 1 - i : i].value));
}

} // namespace

bool readIp4(std::string_view text, std::size_t at, char separator, AddressPlace &place)
{
    const Numbers found = readNumbers(text, at, separator);
    if (found.count < numbersOfAddress)
        return false;
    const bool isAlone = found.count == numbersOfAddress && !found.goOn;
    const Number *numbers = found.numbers + firstOfAddress(found);
    place.family = AddressFamily::Ip4;
    place.begin = numbers[0].begin;
    place.end = numbers[numbersOfAddress - 1].end;
    const bool reversed = isAlone && continuesWith(text, place.end, ".in-addr.arpa");
    setCanonical(numbers, reversed, place);
    place.isCertain = reversed || (isAlone && separator == '.' && isCertainIp4(text, place.begin, place.end, numbers[0].value));
    return true;
}

} // namespace Reports
} // namespace velkor
