#include "addresses.h"

#include "address_forms.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

namespace velkor {
namespace Reports {

namespace {

constexpr std::size_t digitsOfMac = 12;
constexpr std::size_t blockSize = 8;

enum CharacterClass : unsigned char {
    Hexadecimal = 0x1,
    Separator = 0x2,
    First = 0x4, ///< a separator, or the start of a percent-coded one, that can begin an address: "::"
};

constexpr std::array<unsigned char, 256> characterClasses()
{
    std::array<unsigned char, 256> classes {};
    for (int i = 0; i < 128; ++i) {
        if (hexValue(char(i)) >= 0)
            classes[std::size_t(i)] = Hexadecimal;
    }
    for (const char c : {'.', '-', '_'})
        classes[std::size_t(c)] = Separator;
    for (const char c : {':', '%'})
        classes[std::size_t(c)] = Separator | First;
    return classes;
}

constexpr std::array<unsigned char, 256> classes = characterClasses();

unsigned classOf(char c)
{
    return classes[static_cast<unsigned char>(c)];
}

bool isHex(char c)
{
    return classOf(c) == Hexadecimal;
}

constexpr std::uint64_t lowestBits = 0x0101010101010101;

std::uint64_t classOf(const char *block, unsigned place)
{
    return std::uint64_t(classOf(block[place])) << 8 * place;
}

/// The classes of eight bytes, the first one in the lowest byte. Without a loop it takes half of the time.
std::uint64_t classesOf(const char *block)
{
    return classOf(block, 0) | classOf(block, 1) | classOf(block, 2) | classOf(block, 3) | classOf(block, 4)
        | classOf(block, 5) | classOf(block, 6) | classOf(block, 7);
}

/// The lowest bit of each byte that is a separator beside others or after a digit; \a previous is the class before.
/// The byte after the block counts as a digit.
std::uint64_t separatorsOf(std::uint64_t block, unsigned previous)
{
    const std::uint64_t before = block << 8 | previous;
    const std::uint64_t after = block >> 8 | std::uint64_t(Hexadecimal) << 56;
    return (block >> 1) & (before | (block >> 2)) & (after | (after >> 1)) & lowestBits;
}

/// Finds the addresses that have separators. Passes over the text once; at each separator after a hexadecimal
/// digit it tries the forms that this separator allows.
class AddressFinder
{
public:
    explicit AddressFinder(std::string_view text)
        : text_(text)
    {
    }

    std::vector<AddressPlace> find();

private:
    void findAt(std::size_t block, std::uint64_t separators);
    bool canSeparate(std::size_t at) const;
    bool readAround(std::size_t separator);
    bool readGap(std::size_t colon);
    bool beginsWord(std::size_t at) const;
    bool readForms(std::size_t begin, std::size_t end, char separator);
    bool readAfterColon(std::size_t begin, std::size_t length);
    bool readAfterHyphen(std::size_t begin, std::size_t length);
    bool readNumbers(std::size_t end, char separator);

    const std::string_view text_;
    std::vector<AddressPlace> places_;
    AddressPlace place_;
    std::size_t next_ = 0; ///< where to continue after the last place
};

std::vector<AddressPlace> AddressFinder::find()
{
    std::size_t i = 0;
    unsigned previous = 0;
    for (; i + blockSize <= text_.size(); i += blockSize) {
        const std::uint64_t block = classesOf(text_.data() + i);
        const std::uint64_t separators = separatorsOf(block, previous);
        if (separators != 0)
            findAt(i, separators);
        previous = unsigned(block >> 56);
    }
    for (; i < text_.size(); ++i) {
        if ((classOf(text_[i]) & Separator) != 0)
            findAt(i, 1);
    }
    return std::move(places_);
}

/// \a separators has the lowest bit of each byte to look at.
void AddressFinder::findAt(std::size_t block, std::uint64_t separators)
{
    for (std::size_t i = block; separators != 0; ++i, separators >>= 8) {
        if ((separators & 1) != 0 && i >= next_ && canSeparate(i) && readAround(i))
            places_.push_back(place_);
    }
}

bool AddressFinder::canSeparate(std::size_t at) const
{
    const char c = text_[at];
    const char next = characterAt(text_, at + 1);
    if (at > 0 && isHex(text_[at - 1]))
        return isHex(next) || next == c || next == '%';
    return (c == ':' && (next == ':' || next == '%')) || (c == '%' && next == '3');
}

/// Tries the forms of an address whose first separator is at \a separator.
bool AddressFinder::readAround(std::size_t separator)
{
    constexpr std::size_t longestRun = 7; // a percent-coded character and a group
    std::size_t begin = separator;
    while (begin > next_ && separator - begin < longestRun && isHex(text_[begin - 1]))
        --begin;
    if (begin >= 1 && separator - begin >= 2 && isPercentCode(text_, begin - 1))
        begin += 2;
    const char c = separatorAt(text_, separator);
    if (begin == separator)
        return c == ':' && readGap(separator);
    const bool found = (beginsWord(begin) && separator - begin <= 4 && readForms(begin, separator, c)) || readNumbers(separator, c);
    if (found)
        next_ = place_.end;
    return found;
}

bool AddressFinder::beginsWord(std::size_t at) const
{
    return at == 0 || !isAlphanumeric(text_[at - 1]) || (at >= 3 && isPercentCode(text_, at - 3));
}

/// An address that begins with "::".
bool AddressFinder::readGap(std::size_t colon)
{
    const std::size_t second = colon + separatorLength(text_, colon, ':');
    const std::size_t length = separatorLength(text_, second, ':');
    const bool isThird = (colon > 0 && text_[colon - 1] == ':') || (colon >= 3 && separatorAt(text_, colon - 3) == ':');
    const bool hasThird = separatorLength(text_, second + length, ':') > 0;
    if (length == 0 || isThird || hasThird || !beginsWord(colon) || !readIp6(text_, colon, ':', place_))
        return false;
    next_ = place_.end;
    return true;
}

bool AddressFinder::readForms(std::size_t begin, std::size_t end, char separator)
{
    const std::size_t length = end - begin;
    if (separator == ':')
        return readAfterColon(begin, length);
    if (separator == '-')
        return readAfterHyphen(begin, length);
    if (separator == '.' && length == 1)
        return readReversedIp6(text_, begin, place_);
    if (separator == '.' && length == 4)
        return readMacOfThree(text_, begin, '.', place_);
    return separator == '_' && length == 2 && readPairs(text_, begin, '_', place_);
}

bool AddressFinder::readAfterColon(std::size_t begin, std::size_t length)
{
    return readIp6(text_, begin, ':', place_) || (length == 4 && readMacOfThree(text_, begin, ':', place_))
        || (length == 2 && readPairs(text_, begin, ':', place_)) || (length <= 2 && readShortMac(text_, begin, place_));
}

bool AddressFinder::readAfterHyphen(std::size_t begin, std::size_t length)
{
    return readIp6(text_, begin, '-', place_) || (length == 4 && readMacOfThree(text_, begin, '-', place_))
        || (length == 2 && readPairs(text_, begin, '-', place_));
}

/// IPv4 at the decimal digits before \a end.
bool AddressFinder::readNumbers(std::size_t end, char separator)
{
    std::size_t first = end;
    while (first > next_ && end - first <= 3 && isDecimal(text_[first - 1]))
        --first;
    if (first == end || end - first > 3 || separator == ':' || separator == '\0')
        return false;
    const bool insideVersion = separator == '.' && first >= 2 && text_[first - 1] == '.' && isDecimal(text_[first - 2]);
    return !insideVersion && readIp4(text_, first, separator, place_);
}

/// The MAC addresses without separators. Looks at three of eight bytes: these are digits in each run of twelve.
std::vector<AddressPlace> plainMacs(std::string_view text)
{
    std::vector<AddressPlace> places;
    std::size_t end = 0;
    for (std::size_t i = 1; i + 4 < text.size(); i += blockSize) {
        if (!isHex(text[i]) || !isHex(text[i + 2]) || !isHex(text[i + 4]))
            continue;
        std::size_t begin = i;
        while (begin > end && i - begin < digitsOfMac && isHex(text[begin - 1]))
            --begin;
        if (begin >= end && isPlainMac(text, begin)) {
            places.push_back(plainMac(text, begin));
            end = places.back().end;
        }
    }
    return places;
}

/// Adds those of \a others that overlap none of \a places.
void merge(std::vector<AddressPlace> &places, std::vector<AddressPlace> &&others)
{
    if (others.empty())
        return;
    std::vector<AddressPlace> merged;
    merged.reserve(places.size() + others.size());
    auto place = places.begin();
    for (AddressPlace &other : others) {
        for (; place != places.end() && place->begin < other.end; ++place)
            merged.push_back(std::move(*place));
        if (merged.empty() || merged.back().end <= other.begin)
            merged.push_back(std::move(other));
    }
    std::move(place, places.end(), std::back_inserter(merged));
    places = std::move(merged);
}

} // namespace

std::vector<AddressPlace> findAddresses(std::string_view text)
{
    std::vector<AddressPlace> places = AddressFinder(text).find();
    merge(places, plainMacs(text));
    return places;
}

} // namespace Reports
} // namespace velkor
