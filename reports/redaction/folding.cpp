#include "folding.h"

#include <QtCore/QVector>
#include <array>
#include <cstdint>

namespace velkor {
namespace Reports {

namespace {

constexpr char32_t replacementCharacter = 0xfffd;
constexpr char32_t sharpS = 0xdf;
constexpr char32_t capitalSharpS = 0x1e9e;

bool isIdeograph(char32_t codePoint)
{
    return (codePoint >= 0x2e80 && codePoint < 0xa4d0) || (codePoint >= 0xac00 && codePoint < 0xd7b0)
        || (codePoint >= 0xf900 && codePoint < 0xfb00) || (codePoint >= 0x20000 && codePoint < 0x40000)
        || (codePoint >= 0x0e00 && codePoint < 0x0f00);
}

/// The letter without its accents.
char32_t baseLetter(char32_t codePoint)
{
    for (int depth = 0; depth < 4; ++depth) {
        const QChar::Decomposition tag = QChar::decompositionTag(codePoint);
        if (tag == QChar::NoDecomposition)
            break;
        const QVector<uint> parts = QChar::decomposition(codePoint).toUcs4();
        if (parts.isEmpty() || parts.first() == codePoint)
            break;
        codePoint = parts.first();
    }
    switch (codePoint) { // letters with a stroke are not decomposed
    case 0xd8:
    case 0xf8:
        return 'o';
    case 0x110:
    case 0x111:
        return 'd';
    case 0x141:
    case 0x142:
        return 'l';
    case 0x130: // the Turkish i with and without dot
    case 0x131:
        return 'i';
    default:
        return codePoint;
    }
}

FoldedLetter foldedLetter(char32_t codePoint)
{
    const QChar::Category category = QChar::category(uint(codePoint));
    if (category == QChar::Mark_NonSpacing || category == QChar::Other_Format)
        return {};
    if (codePoint == '\n' || codePoint == '\r')
        return {u'\n', SymbolClass::Other};
    if (QChar::isSpace(uint(codePoint)))
        return {u' ', SymbolClass::Other};
    if (isIdeograph(codePoint))
        return {char16_t(codePoint & 0xffff), SymbolClass::Ideograph};
    const char32_t base = isIdeograph(codePoint) ? codePoint : baseLetter(codePoint);
    const char16_t code = char16_t(QChar::toCaseFolded(uint(base)) & 0xffff);
    if (codePoint == replacementCharacter) // for a letter that was lost
        return {code, SymbolClass::Lower};
    if (QChar::isDigit(uint(codePoint)))
        return {char16_t(u'0' + QChar::digitValue(uint(codePoint))), SymbolClass::Digit};
    if (!QChar::isLetter(uint(codePoint)))
        return {code, SymbolClass::Other};
    const bool isUpper = category == QChar::Letter_Uppercase || category == QChar::Letter_Titlecase;
    return {code, isUpper ? SymbolClass::Upper : SymbolClass::Lower};
}

constexpr std::size_t tableSize = 0x2000; // Latin, Greek, Cyrillic and more; the others are folded when they occur

const std::array<FoldedLetter, tableSize> &foldTable()
{
    static const std::array<FoldedLetter, tableSize> table = [] {
        std::array<FoldedLetter, tableSize> letters;
        for (std::size_t i = 0; i < tableSize; ++i)
            letters[i] = foldedLetter(char32_t(i));
        return letters;
    }();
    return table;
}

bool isContinuation(unsigned char byte)
{
    return (byte & 0xc0U) == 0x80;
}

/// How many bytes the UTF-8 sequence has that begins with \a byte; 0 if none does.
std::size_t sequenceLength(unsigned char byte)
{
    if (byte < 0x80)
        return 1;
    if (byte >= 0xc2 && byte < 0xe0)
        return 2;
    if (byte >= 0xe0 && byte < 0xf0)
        return 3;
    return byte >= 0xf0 && byte < 0xf5 ? 4 : 0;
}

char32_t leadingBits(unsigned char byte, std::size_t length)
{
    return length == 1 ? byte : byte & (0x7fU >> length);
}

int hexDigit(char character)
{
    if (character >= '0' && character <= '9')
        return character - '0';
    const char lower = char(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

} // namespace

SymbolReader::SymbolReader(std::string_view utf8)
    : text(utf8), letters(foldTable().data())
{
}

/// The byte that is written as "%41" at \a offset; 0 if there is none.
unsigned char SymbolReader::percentCodeAt(std::size_t offset) const
{
    if (offset + 2 >= text.size() || text[offset] != '%')
        return 0;
    const int high = hexDigit(text[offset + 1]);
    const int low = hexDigit(text[offset + 2]);
    return high < 0 || low < 0 ? 0 : static_cast<unsigned char>(high * 16 + low);
}

bool SymbolReader::takePercentCode(char32_t &codePoint)
{
    const unsigned char first = percentCodeAt(at);
    if (first < 0x20)
        return false;
    const std::size_t length = sequenceLength(first);
    char32_t value = leadingBits(first, length);
    std::size_t used = 1;
    while (used < length && isContinuation(percentCodeAt(at + 3 * used)))
        value = (value << 6U) | (percentCodeAt(at + 3 * used++) & 0x3fU);
    const bool isWhole = used == length;
    codePoint = isWhole ? value : first;
    at += isWhole ? 3 * length : 3;
    return true;
}

bool SymbolReader::takeCodePoint(char32_t &codePoint)
{
    if (at >= text.size())
        return false;
    const auto first = static_cast<unsigned char>(text[at]);
    if (first == '%' && takePercentCode(codePoint))
        return true;
    const std::size_t length = sequenceLength(first);
    char32_t value = leadingBits(first, length);
    std::size_t used = 1;
    while (used < length && at + used < text.size() && isContinuation(static_cast<unsigned char>(text[at + used])))
        value = (value << 6U) | (static_cast<unsigned char>(text[at + used++]) & 0x3fU);
    const bool isWhole = used == length;
    codePoint = isWhole ? value : first;
    at += isWhole ? length : 1;
    return true;
}

bool SymbolReader::next(Symbol &symbol)
{
    if (hasSecond) {
        hasSecond = false;
        symbol = second;
        return true;
    }
    for (;;) {
        symbol.begin = int(at);
        char32_t codePoint = 0;
        if (!takeCodePoint(codePoint))
            return false;
        const FoldedLetter letter = codePoint < tableSize ? letters[codePoint] : foldedLetter(codePoint);
        const bool isSpace = letter.code == u' ';
        if ((letter.code == 0 && codePoint != 0) || (isSpace && afterSpace))
            continue;
        afterSpace = isSpace;
        symbol.code = letter.code;
        symbol.kind = letter.kind;
        symbol.end = int(at);
        if (codePoint == sharpS || codePoint == capitalSharpS) {
            symbol.code = u's';
            second = symbol;
            hasSecond = true;
        }
        return true;
    }
}

FoldedLetter foldedAscii(char byte)
{
    return foldTable()[static_cast<unsigned char>(byte)];
}

std::u16string folded(std::string_view utf8)
{
    std::u16string symbols;
    symbols.reserve(utf8.size());
    SymbolReader reader(utf8);
    Symbol symbol;
    while (reader.next(symbol))
        symbols += symbol.code;
    return symbols;
}

std::u16string folded(const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    return folded(std::string_view(utf8.constData(), std::size_t(utf8.size())));
}

} // namespace Reports
} // namespace velkor
