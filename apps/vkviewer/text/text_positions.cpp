#include "text_positions.h"

#include "utf8_character.h"

#include <algorithm>

namespace {

constexpr int bytesBetweenCheckpoints = 4096;

int unitsOf(uint code)
{
    return QChar::requiresSurrogates(code) ? 2 : 1;
}

} // namespace

TextPositions::TextPositions(const QByteArray &utf8)
    : m_text(utf8)
{
    m_checkpoints.push_back({0, 0});
    for (int offset = 0; offset < m_text.size();) {
        if (offset - m_checkpoints.back().offset >= bytesBetweenCheckpoints)
            m_checkpoints.push_back({offset, m_units});
        const Utf8Character character = characterAt(m_text, offset);
        offset += character.length;
        m_units += unitsOf(character.code);
    }
}

bool TextPositions::isOf(const QByteArray &utf8) const
{
    return m_text.constData() == utf8.constData() && m_text.size() == utf8.size();
}

int TextPositions::unitsBefore(int offset) const
{
    const auto after = std::upper_bound(m_checkpoints.begin(), m_checkpoints.end(), std::max(0, offset),
                                        [](int wanted, Checkpoint checkpoint) { return wanted < checkpoint.offset; });
    Checkpoint place = *(after - 1);
    while (place.offset < std::min(offset, m_text.size())) {
        const Utf8Character character = characterAt(m_text, place.offset);
        place.offset += character.length;
        place.units += unitsOf(character.code);
    }
    return place.units;
}

int TextPositions::offsetOf(int unit) const
{
    const auto after = std::upper_bound(m_checkpoints.begin(), m_checkpoints.end(), std::max(0, unit),
                                        [](int wanted, Checkpoint checkpoint) { return wanted < checkpoint.units; });
    Checkpoint place = *(after - 1);
    while (place.offset < m_text.size()) {
        const Utf8Character character = characterAt(m_text, place.offset);
        if (place.units + unitsOf(character.code) > unit)
            break;
        place.offset += character.length;
        place.units += unitsOf(character.code);
    }
    return place.offset;
}
