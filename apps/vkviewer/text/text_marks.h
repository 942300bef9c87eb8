// The marks of a text.
#pragma once

#include "text_hits.h"
#include "text_mark.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

/// Hits of a search can be millions, so they are not copied.
class TextMarks
{
public:
    /// \a sortedRanges do not overlap.
    void set(TextMark kind, std::vector<TextRange> sortedRanges);
    /// Null for none. Marks of kind TextMark::Hit besides those of set().
    void setHits(std::shared_ptr<const TextHits> hits) { m_hits = std::move(hits); }
    void clear();

    /// Calls \a found for each mark that has a part in \a range, in the order in which they are drawn.
    void visit(TextRange range, const std::function<void(TextMark, TextRange)> &found) const;
    /// Whether a mark of this kind has a part in \a range.
    bool any(TextMark kind, TextRange range) const;

private:
    std::map<TextMark, std::vector<TextRange>> m_ranges;
    std::shared_ptr<const TextHits> m_hits;
};
