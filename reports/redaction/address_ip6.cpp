// IPv6 addresses.

#include "address_forms.h"

namespace velkor {
namespace Reports {

namespace {

constexpr int groupsOfAddress = 8;
constexpr std::size_t longestGroup = 4;
constexpr int bytesOfAddress = 16;
constexpr std::size_t lengthOfReversed = 63; ///< 32 digits with points between them
constexpr int bytesBeforeMapped = 12;
constexpr char literalDomain[] = ".ipv6-literal.net";

struct Groups
{
    unsigned values[groupsOfAddress] = {};
    int count = 0;
    int gap = -1; ///< how many groups precede "::"
    std::size_t end = 0;
    bool hasDecimal = false;
};

bool addIp4(std::string_view text, std::size_t at, Groups &groups)
{
    AddressPlace place;
    if (groups.count > groupsOfAddress - 2 || !readIp4(text, at, '.', place) || place.begin != at)
        return false;
    for (int i = 0; i < 4; i += 2)
        groups.values[groups.count++] = unsigned(uchar(place.canonical[i])) << 8 | uchar(place.canonical[i + 1]);
    groups.end = place.end;
    groups.hasDecimal = true;
    return true;
}

/// Adds the group at \a at; false if none is there or it is too long.
bool addGroup(std::string_view text, std::size_t at, Groups &groups)
{
    unsigned value = 0;
    std::size_t end = at;
    for (; end < text.size() && hexValue(text[end]) >= 0; ++end) {
        if (end - at == longestGroup)
            return false;
        value = value * 16 + unsigned(hexValue(text[end]));
        groups.hasDecimal |= isDecimal(text[end]);
    }
    if (end == at || groups.count == groupsOfAddress)
        return false;
    groups.values[groups.count++] = value;
    groups.end = end;
    return true;
}

bool isHexAt(std::string_view text, std::size_t at)
{
    return hexValue(characterAt(text, at)) >= 0;
}

/// Passes over "::" or a single separator before a group. False if the address ends before it.
bool passSeparator(std::string_view text, std::size_t &at, char separator, Groups &groups, bool &isValid)
{
    const std::size_t first = separatorLength(text, at, separator);
    const std::size_t second = first > 0 ? separatorLength(text, at + first, separator) : 0;
    if (second > 0) {
        isValid = groups.gap < 0;
        groups.gap = groups.count;
        groups.end = at + first + second;
    }
    at += first + second;
    return first > 0 && isValid && isHexAt(text, at);
}

bool readGroups(std::string_view text, std::size_t at, char separator, Groups &groups)
{
    bool isValid = true;
    if (!isHexAt(text, at) && !passSeparator(text, at, separator, groups, isValid))
        return groups.gap == 0;
    do {
        const std::size_t begin = at;
        if (!addGroup(text, begin, groups))
            return false;
        if (separator == ':' && separatorLength(text, groups.end, '.') > 0) {
            Groups withIp4 = groups;
            --withIp4.count;
            if (addIp4(text, begin, withIp4)) {
                groups = withIp4;
                break;
            }
        }
        at = groups.end;
    } while (passSeparator(text, at, separator, groups, isValid));
    return isValid && (groups.gap < 0 ? groups.count == groupsOfAddress : groups.count < groupsOfAddress);
}

void setCanonical(const Groups &groups, AddressPlace &place)
{
    QByteArray bytes(bytesOfAddress, '\0');
    const int omitted = groups.gap < 0 ? 0 : groupsOfAddress - groups.count;
    for (int i = 0; i < groups.count; ++i) {
        const int group = groups.gap >= 0 && i >= groups.gap ? i + omitted : i;
        bytes[2 * group] = char(groups.values[i] >> 8);
        bytes[2 * group + 1] = char(groups.values[i] & 0xff);
    }
    const bool isMapped = bytes.startsWith(QByteArray(10, '\0') + "\xff\xff");
    place.family = isMapped ? AddressFamily::Ip4 : AddressFamily::Ip6;
    place.canonical = isMapped ? bytes.mid(bytesBeforeMapped) : bytes;
}

/// ".ipv6-literal.net" follows, perhaps after a zone such as "s4".
bool isLiteral(std::string_view text, std::size_t at)
{
    constexpr std::size_t longestZone = 10;
    if (characterAt(text, at) == 's') {
        const std::size_t zone = ++at;
        while (at - zone < longestZone && isDecimal(characterAt(text, at)))
            ++at;
    }
    return continuesWith(text, at, literalDomain);
}

bool isCertainIp6(const Groups &groups)
{
    return groups.hasDecimal || groups.gap < 0 || groups.count != 2; // not "face::add"
}

} // namespace

bool readIp6(std::string_view text, std::size_t at, char separator, AddressPlace &place)
{
    Groups groups;
    if (!readGroups(text, at, separator, groups))
        return false;
    const bool literal = separator == '-' && isLiteral(text, groups.end);
    if (!literal && (isAlphanumeric(characterAt(text, groups.end)) || (separator == '-' && groups.gap >= 0)))
        return false;
    place.begin = at;
    place.end = groups.end;
    setCanonical(groups, place);
    place.isCertain = literal || (separator == ':' && isCertainIp6(groups) && !followsGroup(text, at));
    return true;
}

bool readReversedIp6(std::string_view text, std::size_t at, AddressPlace &place)
{
    for (std::size_t i = at; i < at + lengthOfReversed; i += 2) {
        if (hexValue(characterAt(text, i)) < 0 || characterAt(text, i + 1) != '.')
            return false;
    }
    if (!continuesWith(text, at + lengthOfReversed, ".ip6.arpa"))
        return false;
    place.canonical.clear();
    for (std::size_t i = at + lengthOfReversed + 1; i > at; i -= 4)
        place.canonical.append(char(hexValue(text[i - 2]) * 16 + hexValue(text[i - 4])));
    place.begin = at;
    place.end = at + lengthOfReversed;
    place.family = AddressFamily::Ip6;
    place.isCertain = true;
    return true;
}

} // namespace Reports
} // namespace velkor
