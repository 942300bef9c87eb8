// The places at which something was found in a text.
#pragma once

#include "text_range.h"

#include <QtCore/QByteArray>
#include <optional>
#include <vector>

/// Hits do not overlap. However many there are, they need an eighth of the memory of the text.
class TextHits
{
public:
    /// Each hit has so many \a characters; they can have different numbers of bytes.
    TextHits(const QByteArray &text, int characters);

    /// \a begin is after the begin of the hit that was added before.
    void add(int begin);

    int count() const { return m_count; }
    /// How many hits begin before \a offset.
    int countBefore(int offset) const;
    /// The first hit that begins at or after \a offset.
    std::optional<TextRange> firstFrom(int offset) const;
    /// The last hit that begins before \a offset.
    std::optional<TextRange> lastBefore(int offset) const;
    bool isHit(TextRange range) const;

private:
    TextRange hitAt(int begin) const;

    QByteArray m_text;
    int m_characters;
    int m_count = 0;
    std::vector<quint64> m_begins;  // one bit for each byte of the text
    std::vector<int> m_countBefore; // for each block of bytes, up to that of the last hit
};
