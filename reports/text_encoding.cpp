#include "text_encoding.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

constexpr uint highSurrogates = 0xd800;
constexpr uint lowSurrogates = 0xdc00;
constexpr uint afterSurrogates = 0xe000;
constexpr uint firstPair = 0x10000;

bool isHigh(uint unit)
{
    return unit >= highSurrogates && unit < lowSurrogates;
}

bool isLow(uint unit)
{
    return unit >= lowSurrogates && unit < afterSurrogates;
}

void appendUtf8(QByteArray &text, uint code)
{
    if (code < 0x80) {
        text.append(char(code));
        return;
    }
    if (code < 0x800) {
        text.append(char(0xc0 | code >> 6));
    } else {
        if (code < firstPair) {
            text.append(char(0xe0 | code >> 12));
        } else {
            text.append(char(0xf0 | code >> 18));
            text.append(char(0x80 | (code >> 12 & 0x3f)));
        }
        text.append(char(0x80 | (code >> 6 & 0x3f)));
    }
    text.append(char(0x80 | (code & 0x3f)));
}

uint unitAt(const QByteArray &bytes, int index, Encoding encoding)
{
    const uint first = uchar(bytes[2 * index]);
    const uint second = uchar(bytes[2 * index + 1]);
    return encoding == Encoding::Utf16LittleEndian ? first | second << 8 : first << 8 | second;
}

void appendUnit(QByteArray &bytes, uint unit, Encoding encoding)
{
    const char low = char(unit & 0xff);
    const char high = char(unit >> 8);
    bytes.append(encoding == Encoding::Utf16LittleEndian ? low : high);
    bytes.append(encoding == Encoding::Utf16LittleEndian ? high : low);
}

/// The number of bytes of the UTF-8 character that \a lead begins; 0 if none begins with it.
int sequenceLength(uchar lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xc2 && lead <= 0xdf)
        return 2;
    if (lead >= 0xe0 && lead <= 0xef)
        return 3;
    return lead >= 0xf0 && lead <= 0xf4 ? 4 : 0;
}

/// The bounds of the second byte: they exclude overlong forms, surrogates and codes above U+10FFFF.
bool isSecondByte(uchar lead, uchar second)
{
    const uchar from = lead == 0xe0 ? 0xa0 : lead == 0xf0 ? 0x90
                                                          : 0x80;
    const uchar to = lead == 0xed ? 0x9f : lead == 0xf4 ? 0x8f
                                                        : 0xbf;
    return second >= from && second <= to;
}

bool isCharacter(const uchar *bytes, int length)
{
    if (length == 1)
        return true;
    if (!isSecondByte(bytes[0], bytes[1]))
        return false;
    for (int i = 2; i < length; ++i) {
        if ((bytes[i] & 0xc0) != 0x80)
            return false;
    }
    return true;
}

} // namespace

Encoding detectEncoding(const QByteArray &bytes)
{
    if (bytes.startsWith("\xff\xfe"))
        return Encoding::Utf16LittleEndian;
    if (bytes.startsWith("\xfe\xff"))
        return Encoding::Utf16BigEndian;
    constexpr int sample = 4096;
    const int pairs = std::min(bytes.size(), sample) / 2;
    int zeros[2] = {0, 0};
    for (int i = 0; i < 2 * pairs; ++i)
        zeros[i % 2] += bytes[i] == '\0' ? 1 : 0;
    if (pairs >= 8 && zeros[1] > pairs / 2 && zeros[0] < pairs / 8)
        return Encoding::Utf16LittleEndian;
    if (pairs >= 8 && zeros[0] > pairs / 2 && zeros[1] < pairs / 8)
        return Encoding::Utf16BigEndian;
    return Encoding::Utf8;
}

QByteArray fromUtf16(const QByteArray &bytes, Encoding encoding)
{
    const int units = bytes.size() / 2;
    QByteArray text;
    text.reserve(units + units / 8);
    for (int i = 0; i < units; ++i) {
        const uint unit = unitAt(bytes, i, encoding);
        const uint next = i + 1 < units ? unitAt(bytes, i + 1, encoding) : 0;
        if (isHigh(unit) && isLow(next)) {
            appendUtf8(text, firstPair + ((unit - highSurrogates) << 10) + (next - lowSurrogates));
            ++i;
        } else {
            appendUtf8(text, unit);
        }
    }
    return text;
}

QByteArray toUtf16(const QByteArray &text, Encoding encoding)
{
    QByteArray bytes;
    bytes.reserve(2 * text.size());
    for (int i = 0; i < text.size();) {
        const uint lead = uchar(text[i]);
        const int length = std::min(std::max(sequenceLength(uchar(lead)), 1), text.size() - i);
        uint code = length == 1 ? lead : lead & (0x7fu >> length);
        for (int j = 1; j < length; ++j)
            code = code << 6 | (uchar(text[i + j]) & 0x3fu);
        i += length;
        if (code >= firstPair) {
            appendUnit(bytes, highSurrogates + ((code - firstPair) >> 10), encoding);
            appendUnit(bytes, lowSurrogates + ((code - firstPair) & 0x3ff), encoding);
        } else {
            appendUnit(bytes, code, encoding);
        }
    }
    return bytes;
}

bool isUtf8(const QByteArray &bytes)
{
    const auto *at = reinterpret_cast<const uchar *>(bytes.constData());
    const uchar *const end = at + bytes.size();
    while (at < end) {
        if (*at < 0x80) {
            ++at;
            continue;
        }
        const int length = sequenceLength(*at);
        if (length == 0 || end - at < length || !isCharacter(at, length))
            return false;
        at += length;
    }
    return true;
}

} // namespace Reports
} // namespace velkor
