#include "addresses.h"

#include "address_forms.h"

#include <array>

namespace velkor {
namespace Reports {

namespace {

constexpr std::size_t digitsOfMac = 12;

enum CharacterClass : unsigned char {
    Other,
    Letter, ///< "g" to "z"
    HexLetter,
    Digit,
    Colon,
    Percent,
};

std::array<CharacterClass, 256> characterClasses()
{
    std::array<CharacterClass, 256> classes {};
    for (int i = 0; i < 128; ++i) {
        const char c = char(i);
        if (isDecimal(c))
            classes[std::size_t(i)] = Digit;
        else if (hexValue(c) >= 0)
            classes[std::size_t(i)] = HexLetter;
        else if (isAsciiLetter(c))
            classes[std::size_t(i)] = Letter;
    }
    classes[':'] = Colon;
    classes['%'] = Percent;
    return classes;
}

/// Passes over a text once. At each word that begins with a hexadecimal digit, and each number after letters, it
/// tries the forms that the separator after it allows.
class AddressFinder
{
public:
    explicit AddressFinder(std::string_view text)
        : text_(text)
    {
    }

    std::vector<AddressPlace> find();

private:
    CharacterClass classAt(std::size_t at) const { return classes_[static_cast<unsigned char>(text_[at])]; }
    bool isHexAt(std::size_t at) const { return at < text_.size() && hexValue(text_[at]) >= 0; }
    std::size_t endOfDigits(std::size_t at, CharacterClass least) const;
    std::size_t passWord(std::size_t at);
    std::size_t passDigits(std::size_t begin, std::size_t end, bool beginsWord);
    std::size_t passColon(std::size_t at);
    bool readForms(std::size_t begin, std::size_t end, char separator);
    bool readAfterColon(std::size_t begin, std::size_t length);
    bool readAfterHyphen(std::size_t begin, std::size_t length);
    bool readAfterPoint(std::size_t begin, std::size_t length);
    bool readNumbers(std::size_t begin, std::size_t end, char separator);
    bool readSixPairs(std::size_t begin, char separator);

    const std::string_view text_;
    const std::array<CharacterClass, 256> classes_ = characterClasses();
    std::vector<AddressPlace> places_;
    AddressPlace place_;
    std::size_t next_ = 0; ///< where to continue after the last place
};

std::vector<AddressPlace> AddressFinder::find()
{
    std::size_t i = 0;
    while (i < text_.size()) {
        const CharacterClass c = classAt(i);
        if (c == Other)
            ++i;
        else if (c == Colon)
            i = passColon(i);
        else if (c == Percent)
            i += isHexAt(i + 1) && isHexAt(i + 2) ? 3 : 1;
        else
            i = passWord(i);
    }
    return std::move(places_);
}

/// The end of the digits from \a at on; \a least is HexLetter or Digit.
std::size_t AddressFinder::endOfDigits(std::size_t at, CharacterClass least) const
{
    while (at < text_.size() && classAt(at) >= least && classAt(at) <= Digit)
        ++at;
    return at;
}

/// Passes over letters and digits until one of them begins an address.
std::size_t AddressFinder::passWord(std::size_t at)
{
    bool beginsWord = true;
    while (at < text_.size()) {
        const CharacterClass c = classAt(at);
        if (c == Letter || (c == HexLetter && !beginsWord)) {
            ++at;
        } else if (c == HexLetter || c == Digit) {
            const std::size_t begin = at;
            at = endOfDigits(at, beginsWord ? HexLetter : Digit);
            const std::size_t found = passDigits(begin, at, beginsWord);
            if (found != at)
                return found;
            beginsWord = at - begin == 1 && text_[begin] == '0' && characterAt(text_, at) == 'x';
            at += beginsWord ? 1 : 0;
            continue;
        } else {
            return at;
        }
        beginsWord = false;
    }
    return at;
}

/// Returns the end of the address that begins with these digits, or their own end.
std::size_t AddressFinder::passDigits(std::size_t begin, std::size_t end, bool beginsWord)
{
    const std::size_t length = end - begin;
    const char separator = separatorAt(text_, end);
    bool found = false;
    if (separator != '\0')
        found = (beginsWord && length <= 4 && readForms(begin, end, separator)) || readNumbers(begin, end, separator);
    if (!found && beginsWord && length == digitsOfMac && !isAlphanumeric(characterAt(text_, end))) {
        place_ = plainMac(text_, begin);
        next_ = place_.end;
        found = true;
    }
    if (!found)
        return end;
    places_.push_back(place_);
    return next_;
}

std::size_t AddressFinder::passColon(std::size_t at)
{
    const bool isDouble = characterAt(text_, at + 1) == ':' && characterAt(text_, at + 2) != ':';
    if (!isDouble || (at > 0 && (isAlphanumeric(text_[at - 1]) || text_[at - 1] == ':')) || !readIp6(text_, at, ':', place_))
        return at + 1;
    places_.push_back(place_);
    return place_.end;
}

bool AddressFinder::readForms(std::size_t begin, std::size_t end, char separator)
{
    const std::size_t length = end - begin;
    if (separator == ':')
        return readAfterColon(begin, length);
    if (separator == '-')
        return readAfterHyphen(begin, length);
    if (separator == '.')
        return readAfterPoint(begin, length);
    return length == 2 && readSixPairs(begin, separator);
}

bool AddressFinder::readAfterColon(std::size_t begin, std::size_t length)
{
    const bool found = readIp6(text_, begin, ':', place_) || (length == 4 && readMacOfThree(text_, begin, ':', place_));
    next_ = place_.end;
    if (found || (length == 2 && readSixPairs(begin, ':')))
        return true;
    const bool isShort = length <= 2 && readShortMac(text_, begin, place_);
    next_ = place_.end;
    return isShort;
}

bool AddressFinder::readAfterHyphen(std::size_t begin, std::size_t length)
{
    const bool found = readIp6(text_, begin, '-', place_) || (length == 4 && readMacOfThree(text_, begin, '-', place_));
    next_ = place_.end;
    return found || (length == 2 && readSixPairs(begin, '-'));
}

bool AddressFinder::readAfterPoint(std::size_t begin, std::size_t length)
{
    const bool found = length == 1 ? readReversedIp6(text_, begin, place_)
                                   : length == 4 && readMacOfThree(text_, begin, '.', place_);
    next_ = place_.end;
    return found;
}

bool AddressFinder::readSixPairs(std::size_t begin, char separator)
{
    return readPairs(text_, begin, separator, place_, next_);
}

/// IPv4 at the decimal digits before \a end.
bool AddressFinder::readNumbers(std::size_t begin, std::size_t end, char separator)
{
    std::size_t first = end;
    while (first > begin && isDecimal(text_[first - 1]))
        --first;
    if (first == end || end - first > 3 || (separator != '.' && separator != '-' && separator != '_'))
        return false;
    const bool insideVersion = separator == '.' && first >= 2 && text_[first - 1] == '.' && isDecimal(text_[first - 2]);
    const bool found = !insideVersion && readIp4(text_, first, separator, place_);
    next_ = place_.end;
    return found;
}

/// Whether all bits that are 1 precede all that are 0.
bool isMask(const QByteArray &bytes)
{
    bool ended = false;
    for (const char byte : bytes) {
        for (int bit = 7; bit >= 0; --bit) {
            const bool isSet = (uchar(byte) >> bit & 1) != 0;
            if (isSet && ended)
                return false;
            ended |= !isSet;
        }
    }
    return true;
}

bool isCommonIp4(const QByteArray &bytes)
{
    const int first = uchar(bytes[0]);
    return first == 0 || first == 127 || (first >= 224 && first < 240) || isMask(bytes);
}

/// The multicast addresses of one machine ("ff02::1:ff00:531a") contain a part of its own address.
bool isMulticastOfMachine(const QByteArray &bytes)
{
    return bytes.startsWith("\xff\x02") && bytes.mid(2, 11) == QByteArray(9, '\0') + QByteArray("\x01\xff");
}

bool isCommonIp6(const QByteArray &bytes)
{
    const bool isLoopback = bytes == QByteArray(15, '\0') + '\x01';
    return isLoopback || (uchar(bytes[0]) == 0xff && !isMulticastOfMachine(bytes)) || isMask(bytes);
}

} // namespace

std::vector<AddressPlace> findAddresses(std::string_view text)
{
    return AddressFinder(text).find();
}

bool isCommonAddress(const AddressPlace &address)
{
    const QByteArray &bytes = address.canonical;
    switch (address.family) {
    case AddressFamily::Ip4:
        return isCommonIp4(bytes);
    case AddressFamily::Ip6:
        return isCommonIp6(bytes);
    case AddressFamily::Mac:
        break;
    }
    return bytes.count('\0') == bytes.size() || bytes.count('\xff') == bytes.size();
}

} // namespace Reports
} // namespace velkor
