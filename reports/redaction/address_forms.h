// The forms in which network addresses are written. Each function reads one form at one position of a text
// and takes a bounded time, except readPairs(), which passes over what it reads.
#pragma once

#include "addresses.h"

namespace velkor {
namespace Reports {

constexpr bool isDecimal(char c)
{
    return c >= '0' && c <= '9';
}

/// The value of a hexadecimal digit, or -1.
constexpr int hexValue(char c)
{
    if (isDecimal(c))
        return c - '0';
    const int letter = c | 0x20;
    return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

constexpr bool isAsciiLetter(char c)
{
    const int letter = c | 0x20;
    return letter >= 'a' && letter <= 'z';
}

constexpr bool isAlphanumeric(char c)
{
    return isDecimal(c) || isAsciiLetter(c);
}

/// The character at \a at, or a null character outside of the text.
inline char characterAt(std::string_view text, std::size_t at)
{
    return at < text.size() ? text[at] : '\0';
}

/// The separator at \a at, also percent-coded: one of ":.-_", or a null character.
char separatorAt(std::string_view text, std::size_t at);
/// Whether "%" and two hexadecimal digits are at \a at.
inline bool isPercentCode(std::string_view text, std::size_t at)
{
    return characterAt(text, at) == '%' && hexValue(characterAt(text, at + 1)) >= 0 && hexValue(characterAt(text, at + 2)) >= 0;
}

/// How many bytes \a separator has at \a at; 0 if it is not there.
std::size_t separatorLength(std::string_view text, std::size_t at, char separator);
/// Whether \a text continues at \a at with \a word, which is in small letters.
bool continuesWith(std::string_view text, std::size_t at, std::string_view word);
/// Whether what precedes \a at, except a separator, is one to four hexadecimal digits, as inside of a longer address.
bool followsGroup(std::string_view text, std::size_t at);

/// "192.0.2.57" and its forms; \a at is at its first digit. If there are more than four numbers, the four that
/// look most like an address.
bool readIp4(std::string_view text, std::size_t at, char separator, AddressPlace &place);
/// "2001:db8::1" and its forms.
bool readIp6(std::string_view text, std::size_t at, char separator, AddressPlace &place);
/// 32 digits before ".ip6.arpa".
bool readReversedIp6(std::string_view text, std::size_t at, AddressPlace &place);
/// "00:00:5E:00:53:1A" and its forms, or the last six of more pairs.
bool readPairs(std::string_view text, std::size_t at, char separator, AddressPlace &place);
/// "0:0:5e:0:53:1a".
bool readShortMac(std::string_view text, std::size_t at, AddressPlace &place);
/// "0000.5e00.531a".
bool readMacOfThree(std::string_view text, std::size_t at, char separator, AddressPlace &place);
/// Whether twelve hexadecimal digits begin at \a at and no other digit or letter is beside them.
bool isPlainMac(std::string_view text, std::size_t at);
/// "00005E00531A"; see isPlainMac().
AddressPlace plainMac(std::string_view text, std::size_t at);

} // namespace Reports
} // namespace velkor
