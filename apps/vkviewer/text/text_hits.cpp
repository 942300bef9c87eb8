#include "text_hits.h"

#include "utf8_character.h"

#include <QtCore/QtAlgorithms>
#include <algorithm>

namespace {

constexpr int bitsOfWord = 64;
constexpr int wordsOfBlock = 64;
constexpr int bytesOfBlock = bitsOfWord * wordsOfBlock;

/// The bits below \a bit, which is less than 64.
quint64 bitsBelow(int bit)
{
    return (quint64(1) << bit) - 1;
}

} // namespace

TextHits::TextHits(const QByteArray &text, int characters)
    : m_text(text), m_characters(characters)
{
}

void TextHits::add(int begin)
{
    if (m_begins.empty())
        m_begins.resize(std::size_t(m_text.size() / bitsOfWord) + 1);
    while (int(m_countBefore.size()) <= begin / bytesOfBlock)
        m_countBefore.push_back(m_count);
    m_begins[std::size_t(begin / bitsOfWord)] |= quint64(1) << (begin % bitsOfWord);
    ++m_count;
}

int TextHits::countBefore(int offset) const
{
    const int block = offset / bytesOfBlock;
    if (block >= int(m_countBefore.size()))
        return m_count;
    int count = m_countBefore[std::size_t(block)];
    const int word = offset / bitsOfWord;
    for (int i = block * wordsOfBlock; i < word; ++i)
        count += int(qPopulationCount(m_begins[std::size_t(i)]));
    return count + int(qPopulationCount(m_begins[std::size_t(word)] & bitsBelow(offset % bitsOfWord)));
}

std::optional<TextRange> TextHits::firstFrom(int offset) const
{
    for (int word = offset / bitsOfWord; word < int(m_begins.size()); ++word) {
        quint64 bits = m_begins[std::size_t(word)];
        if (word == offset / bitsOfWord)
            bits &= ~bitsBelow(offset % bitsOfWord);
        if (bits)
            return hitAt(word * bitsOfWord + int(qCountTrailingZeroBits(bits)));
    }
    return std::nullopt;
}

std::optional<TextRange> TextHits::lastBefore(int offset) const
{
    if (m_begins.empty())
        return std::nullopt;
    for (int word = std::min(offset / bitsOfWord, int(m_begins.size()) - 1); word >= 0; --word) {
        quint64 bits = m_begins[std::size_t(word)];
        if (word == offset / bitsOfWord)
            bits &= bitsBelow(offset % bitsOfWord);
        if (bits)
            return hitAt(word * bitsOfWord + bitsOfWord - 1 - int(qCountLeadingZeroBits(bits)));
    }
    return std::nullopt;
}

bool TextHits::isHit(TextRange range) const
{
    const std::optional<TextRange> hit = firstFrom(range.begin);
    return hit && *hit == range;
}

TextRange TextHits::hitAt(int begin) const
{
    int end = begin;
    for (int i = 0; i < m_characters && end < m_text.size(); ++i)
        end += characterAt(m_text, end).length;
    return {begin, end};
}
