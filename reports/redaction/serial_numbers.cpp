#include "serial_numbers.h"

#include "byte_set.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool isAlnum(char byte)
{
    return isDigit(byte) || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool isHex(char byte)
{
    return isDigit(byte) || (byte >= 'a' && byte <= 'f') || (byte >= 'A' && byte <= 'F');
}

/// \a start has capital letters.
bool startsWith(std::string_view text, std::string_view start)
{
    return text.size() >= start.size() && std::equal(start.begin(), start.end(), text.begin(), [](char left, char right) {
               return left == (right >= 'a' && right <= 'z' ? char(right - 'a' + 'A') : right);
           });
}

/// How the names of models of disks and drives begin.
bool beginsLikeModel(std::string_view word)
{
    static constexpr std::string_view starts[] = {
        "WD1",
        "WD2",
        "WD3",
        "WD4",
        "WD5",
        "WD6",
        "WD8",
        "WDS",
        "HTS",
        "HDS",
        "HUA",
        "HUS",
        "HDT",
        "HGST",
        "MZ",
        "MK",
        "MQ",
        "DT0",
        "CT",
        "SSD",
        "SV",
        "SA400",
        "SNV",
        "SKC",
        "KXG",
        "KBG",
        "THN",
        "PM9",
        "PM8",
        "SM9",
        "HFS",
        "HFM",
        "SDSSD",
        "SD6",
        "SD7",
        "SD8",
        "SD9",
        "SDAPN",
        "SDBPN",
        "MTFD",
        "INTEL",
        "DVD",
        "CD",
        "BD",
        "GH",
        "GUD",
        "GT",
        "SN-",
        "TS",
        "LITEON",
        "SAMSUNG",
        "HD1",
        "HD2",
        "HD3",
        "HD5",
        "HD7",
        "HM",
        "ASX",
        "CSSD",
        "FORCE",
        "VERTEX",
        "USB",
        "VEN",
        "PROD",
        "DEV",
        "REV",
    };
    const bool isSeagate = startsWith(word, "ST") && word.size() > 4 && isDigit(word[2]) && isDigit(word[3]);
    return isSeagate || std::any_of(std::begin(starts), std::end(starts), [word](std::string_view start) { return startsWith(word, start); });
}

/// "DiskST3500418AS" is a type of device and a model.
std::string_view withoutDeviceType(std::string_view word)
{
    for (const std::string_view type : {"Disk", "CdRom", "Sequential", "Optical", "RAID"}) {
        if (word.size() > type.size() && word.compare(0, type.size(), type) == 0)
            return word.substr(type.size());
    }
    return word;
}

/// Whether \a word of a device's name is more likely a serial number than a model.
bool looksLikeSerialNumber(std::string_view word)
{
    constexpr std::size_t shortest = 10;
    constexpr std::ptrdiff_t fewestDigits = 4;
    if (word.size() < shortest)
        return false;
    const auto digits = std::count_if(word.begin(), word.end(), isDigit);
    const bool isHexadecimal = std::all_of(word.begin(), word.end(), isHex);
    if (isHexadecimal && digits >= 6)
        return true;
    return digits >= fewestDigits && !beginsLikeModel(word);
}

void findInDeviceName(std::string_view text, Findings &findings)
{
    std::size_t at = 0;
    while (at < text.size()) {
        if (!isAlnum(text[at])) {
            ++at;
            continue;
        }
        std::size_t end = at;
        while (end < text.size() && isAlnum(text[end]))
            ++end;
        if (looksLikeSerialNumber(withoutDeviceType(text.substr(at, end - at))))
            findings.push_back({int(at), int(end), AliasKind::Serial, Reason::Form});
        at = end;
    }
}

/// Where the number begins after a label that ends at \a at; npos if none follows.
std::size_t numberAfter(std::string_view text, std::size_t at)
{
    constexpr std::size_t longestGap = 12; // "number: "
    const std::size_t limit = std::min(text.size(), at + longestGap);
    for (const std::string_view word : {"NUMBER", "NO", "NR", "NUM"}) {
        std::size_t begin = at;
        while (begin < limit && (text[begin] == ' ' || text[begin] == '_' || text[begin] == '-'))
            ++begin;
        if (startsWith(text.substr(begin), word)) {
            at = begin + word.size();
            break;
        }
    }
    while (at < limit && !isAlnum(text[at]) && text[at] != '\n')
        ++at;
    return at < limit && isAlnum(text[at]) ? at : std::string_view::npos;
}

/// The length of the label at the beginning of \a text; 0 if there is none.
std::size_t labelLength(std::string_view text)
{
    static constexpr std::string_view labels[] = {"S/N", "SN", "SERNO", "SER NO", "SER. NO", "SERIAL", "SERIALNUMBER", "SERIENNUMMER", "SERIENNR", "SERVICE TAG",
                                                  "SERVICETAG", "ASSET TAG", "ASSETTAG", "NUMERO DE SERIE", "N/S"};
    std::size_t longest = 0;
    for (const std::string_view label : labels) {
        const bool isWord = text.size() > label.size() && !isAlnum(text[label.size()]);
        if (isWord && label.size() > longest && startsWith(text, label))
            longest = label.size();
    }
    return longest;
}

void findLabelled(std::string_view text, Findings &findings)
{
    static constexpr ByteSet firstLetters("sSaAnN"); // of the labels
    static constexpr ByteSet secondLetters("/nNeEsSuU");
    for (std::size_t at = 0; at + 1 < text.size(); ++at) {
        if (!firstLetters.has(text[at]) || !secondLetters.has(text[at + 1]) || (at > 0 && isAlnum(text[at - 1])))
            continue;
        const std::size_t length = labelLength(text.substr(at));
        const std::size_t begin = length > 0 ? numberAfter(text, at + length) : std::string_view::npos;
        if (begin == std::string_view::npos)
            continue;
        std::size_t end = begin;
        while (end < text.size() && (isAlnum(text[end]) || (text[end] == '-' && end + 1 < text.size() && isAlnum(text[end + 1]))))
            ++end;
        constexpr std::size_t shortest = 5;
        const std::string_view number = text.substr(begin, end - begin);
        if (number.size() >= shortest && std::count_if(number.begin(), number.end(), isDigit) > 0)
            findings.push_back({int(begin), int(end), AliasKind::Serial, Reason::Form});
    }
}

} // namespace

void findSerialNumbers(std::string_view text, bool isDevice, Findings &findings)
{
    findLabelled(text, findings);
    if (isDevice)
        findInDeviceName(text, findings);
}

} // namespace Reports
} // namespace velkor
