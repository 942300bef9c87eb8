// Texts as symbols that are equal if a person takes the letters for the same.
#pragma once

#include <QtCore/QString>
#include <string>
#include <string_view>

namespace velkor {
namespace Reports {

enum class SymbolClass : unsigned char {
    Lower, ///< small letter, or letter of a script without cases
    Upper,
    Digit,
    Ideograph, ///< of a script that separates no words
    Other,
};

/// A letter in the form in which names are compared: without case, accents and the two kinds of the
/// Turkish i.
struct Symbol
{
    char16_t code = 0;
    SymbolClass kind = SymbolClass::Other;
    int begin = 0; ///< offset of the bytes that the symbol stands for
    int end = 0;
};

struct FoldedLetter
{
    char16_t code = 0;
    SymbolClass kind = SymbolClass::Other;
};

/// Reads UTF-8 as symbols. Percent codes are decoded, combining marks skipped; a byte that is no UTF-8
/// is a letter of Latin-1. All kinds and runs of blanks are one space,
/// unless a line ends.
class SymbolReader
{
public:
    explicit SymbolReader(std::string_view utf8);

    /// Returns false at the end.
    bool next(Symbol &symbol);
    /// Where the next symbol begins.
    std::size_t position() const { return at; }
    /// Goes on at \a offset, behind a symbol that is no blank. Not between the symbols of one letter.
    void skipTo(std::size_t offset)
    {
        at = offset;
        afterSpace = false;
    }
    bool isInLetter() const { return hasSecond; }

private:
    bool takeCodePoint(char32_t &codePoint);
    bool takePercentCode(char32_t &codePoint);
    unsigned char percentCodeAt(std::size_t offset) const;

    std::string_view text;
    const FoldedLetter *letters; ///< by code point
    std::size_t at = 0;
    bool afterSpace = false;
    bool hasSecond = false; ///< the same bytes stand for another symbol
    Symbol second;
};

/// The symbol of a byte of ASCII.
FoldedLetter foldedAscii(char byte);

/// The symbols of a text.
std::u16string folded(std::string_view utf8);
std::u16string folded(const QString &text);

inline bool isWordSymbol(SymbolClass kind)
{
    return kind != SymbolClass::Other;
}

} // namespace Reports
} // namespace velkor
