// Characters of a text in UTF-8 that may have errors.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// A byte that belongs to no character of UTF-8 is the replacement character, with length 1.
struct Utf8Character
{
    uint code = 0xFFFD;
    int length = 1;
};

/// How many bytes of \a text begin with 10 in binary from \a begin on, at most \a wanted.
inline int continuationBytes(const char *text, int size, int begin, int wanted)
{
    int count = 0;
    while (count < wanted && begin + count < size && (uchar(text[begin + count]) & 0xC0) == 0x80)
        ++count;
    return count;
}

/// The character that begins at \a offset, which is less than \a size. Surrogates, codes above U+10FFFF and longer forms
/// than needed are errors.
inline Utf8Character characterAt(const char *text, int size, int offset)
{
    const uint first = uchar(text[offset]);
    if (first < 0x80)
        return {first, 1};
    const int more = first < 0xC2 || first > 0xF4 ? 0 : first < 0xE0 ? 1
        : first < 0xF0                                               ? 2
                                                                     : 3;
    if (more == 0 || continuationBytes(text, size, offset + 1, more) < more)
        return {};
    uint code = first & (0x3F >> more);
    for (int i = 1; i <= more; ++i)
        code = (code << 6) | (uchar(text[offset + i]) & 0x3F);
    constexpr uint smallest[] = {0, 0x80, 0x800, 0x10000};
    if (code < smallest[more] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000))
        return {};
    return {code, more + 1};
}

inline Utf8Character characterAt(const QByteArray &text, int offset)
{
    return characterAt(text.constData(), text.size(), offset);
}

/// The character whose bytes include that at \a offset begins here. For the end of the text, the end.
int beginOfCharacter(const QByteArray &text, int offset);

/// Decodes a part of a text. Unlike QString::fromUtf8(), each wrong byte is one replacement character.
QString decodedText(const QByteArray &text, int begin, int end);
