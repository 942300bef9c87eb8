#include "text_marks.h"

#include <algorithm>

namespace {

using Ranges = std::vector<TextRange>;

Ranges::const_iterator firstEndingAfter(const Ranges &ranges, int offset)
{
    return std::partition_point(ranges.begin(), ranges.end(), [offset](TextRange range) { return range.end <= offset; });
}

/// The first hit that has a part at or after \a offset.
std::optional<TextRange> firstEndingAfter(const TextHits &hits, int offset)
{
    const std::optional<TextRange> before = hits.lastBefore(offset);
    return before && before->end > offset ? before : hits.firstFrom(offset);
}

} // namespace

void TextMarks::set(TextMark kind, std::vector<TextRange> sortedRanges)
{
    m_ranges[kind] = std::move(sortedRanges);
}

void TextMarks::clear()
{
    m_ranges.clear();
    m_hits.reset();
}

void TextMarks::visit(TextRange range, const std::function<void(TextMark, TextRange)> &found) const
{
    for (const TextMark kind : textMarks) {
        const auto ranges = m_ranges.find(kind);
        if (ranges != m_ranges.end()) {
            auto mark = firstEndingAfter(ranges->second, range.begin);
            for (; mark != ranges->second.end() && mark->begin < range.end; ++mark)
                found(kind, *mark);
        }
        if (kind != TextMark::Hit || !m_hits)
            continue;
        std::optional<TextRange> hit = firstEndingAfter(*m_hits, range.begin);
        for (; hit && hit->begin < range.end; hit = m_hits->firstFrom(hit->end))
            found(kind, *hit);
    }
}

bool TextMarks::any(TextMark kind, TextRange range) const
{
    const auto ranges = m_ranges.find(kind);
    if (ranges != m_ranges.end()) {
        const auto mark = firstEndingAfter(ranges->second, range.begin);
        if (mark != ranges->second.end() && mark->begin < range.end)
            return true;
    }
    if (kind != TextMark::Hit || !m_hits)
        return false;
    const std::optional<TextRange> hit = firstEndingAfter(*m_hits, range.begin);
    return hit && hit->begin < range.end;
}
