// MAC addresses.

#include "address_forms.h"

namespace velkor {
namespace Reports {

namespace {

constexpr int bytesOfMac = 6;

bool isPair(std::string_view text, std::size_t at)
{
    return hexValue(characterAt(text, at)) >= 0 && hexValue(characterAt(text, at + 1)) >= 0
        && !isAlphanumeric(characterAt(text, at + 2));
}

char byteOf(std::string_view text, std::size_t at)
{
    return char(hexValue(text[at]) * 16 + hexValue(text[at + 1]));
}

bool hasLetter(std::string_view text)
{
    for (const char c : text) {
        if (isAsciiLetter(c))
            return true;
    }
    return false;
}

/// "21-10-26-13-17-53" can be a time; numbers with underscores can be anything.
bool isCertainMac(std::string_view spelling, char separator)
{
    return separator == ':' || (separator == '-' && hasLetter(spelling));
}

} // namespace

bool readPairs(std::string_view text, std::size_t at, char separator, AddressPlace &place)
{
    std::size_t lastPairs[bytesOfMac] = {};
    int count = 0;
    std::size_t end = at;
    std::size_t length = 0;
    for (std::size_t next = at; isPair(text, next); next = end + length) {
        lastPairs[count++ % bytesOfMac] = next;
        end = next + 2;
        length = separatorLength(text, end, separator);
        if (length == 0)
            break;
    }
    const bool isAlone = count == bytesOfMac && !(length > 0 && hexValue(characterAt(text, end + length)) >= 0);
    if (count < bytesOfMac)
        return false;
    place.family = AddressFamily::Mac;
    place.begin = lastPairs[count % bytesOfMac];
    place.end = end;
    place.canonical.clear();
    for (int i = count; i < count + bytesOfMac; ++i)
        place.canonical.append(byteOf(text, lastPairs[i % bytesOfMac]));
    place.isCertain = isAlone && isCertainMac(text.substr(at, end - at), separator) && !followsGroup(text, at);
    return true;
}

bool readShortMac(std::string_view text, std::size_t at, AddressPlace &place)
{
    place.begin = at;
    place.family = AddressFamily::Mac;
    place.isCertain = false;
    place.canonical.clear();
    for (int i = 0; i < bytesOfMac; ++i) {
        if (i > 0 && characterAt(text, at++) != ':')
            return false;
        int value = hexValue(characterAt(text, at));
        if (value < 0)
            return false;
        const int second = hexValue(characterAt(text, ++at));
        if (second >= 0) {
            value = value * 16 + second;
            ++at;
        }
        place.canonical.append(char(value));
    }
    place.end = at;
    return !isAlphanumeric(characterAt(text, at)) && characterAt(text, at) != ':' && !followsGroup(text, place.begin);
}

bool readMacOfThree(std::string_view text, std::size_t at, char separator, AddressPlace &place)
{
    constexpr int groups = 3;
    place.begin = at;
    place.family = AddressFamily::Mac;
    place.canonical.clear();
    for (int i = 0; i < groups; ++i) {
        const std::size_t length = i > 0 ? separatorLength(text, at, separator) : 0;
        at += length;
        if ((i > 0 && length == 0) || hexValue(characterAt(text, at)) < 0 || hexValue(characterAt(text, at + 1)) < 0
            || !isPair(text, at + 2))
            return false;
        place.canonical.append(byteOf(text, at)).append(byteOf(text, at + 2));
        at += 4;
    }
    place.end = at;
    const bool goesOn = separatorLength(text, at, separator) > 0 && hexValue(characterAt(text, at + 1)) >= 0;
    place.isCertain = separator == '.' && hasLetter(text.substr(place.begin, at - place.begin));
    return !goesOn && !followsGroup(text, place.begin);
}

bool isPlainMac(std::string_view text, std::size_t at)
{
    const bool afterPrefix = at >= 2 && text[at - 1] == 'x' && text[at - 2] == '0';
    if (at > 0 && isAlphanumeric(text[at - 1]) && !afterPrefix && !(at >= 3 && isPercentCode(text, at - 3)))
        return false;
    for (std::size_t i = 0; i < 2 * bytesOfMac; ++i) {
        if (hexValue(characterAt(text, at + i)) < 0)
            return false;
    }
    return !isAlphanumeric(characterAt(text, at + 2 * bytesOfMac));
}

AddressPlace plainMac(std::string_view text, std::size_t at)
{
    AddressPlace place;
    place.begin = at;
    place.end = at + 2 * bytesOfMac;
    place.family = AddressFamily::Mac;
    for (std::size_t i = at; i < place.end; i += 2)
        place.canonical.append(byteOf(text, i));
    return place;
}

} // namespace Reports
} // namespace velkor
