#include "aligned_text.h"

#include "line_keys.h"

#include <algorithm>

using namespace velkor::Reports;

namespace {

constexpr std::size_t mostWork = 40000000; ///< lines to look at: below a second

/// Adds the lines from \a begin to \a end.
LineIndexes addLines(std::vector<AlignedLine> &lines, const QByteArray &text, int begin, int end)
{
    LineIndexes added {int(lines.size()), 0};
    while (begin < end) {
        int stop = begin;
        while (stop < end && text.at(stop) != '\n' && text.at(stop) != '\r')
            ++stop;
        int next = std::min(stop + 1, end);
        if (next < end && text.at(stop) == '\r' && text.at(next) == '\n')
            ++next;
        lines.push_back({begin, stop, next});
        begin = next;
    }
    added.end = int(lines.size());
    return added;
}

LineIndexes addSection(std::vector<AlignedLine> &lines, const Document &document, int index)
{
    if (index < 0)
        return {int(lines.size()), int(lines.size())};
    const Section &section = document.sections()[std::size_t(index)];
    return addLines(lines, document.text(), section.begin, section.end);
}

class Aligner
{
public:
    Aligner(AlignedText &text, LineKeys &keys)
        : m_text(text), m_olderTexts(textsOf(text.olderDocument, text.older, keys)), m_newerTexts(textsOf(text.newerDocument, text.newer, keys)),
          m_olderLabels(labelsOf(text.olderDocument, text.older, keys)), m_newerLabels(labelsOf(text.newerDocument, text.newer, keys)),
          m_texts(m_olderTexts, m_newerTexts, keys.count(), m_budget), m_labels(m_olderLabels, m_newerLabels, keys.count(), m_budget)
    {
    }

    void align(LineIndexes older, LineIndexes newer)
    {
        forGaps(m_texts.match(older, newer), LineChange::Same, older, newer, [this](LineIndexes a, LineIndexes b) { alignLabels(a, b); });
    }

private:
    static std::vector<int> textsOf(const Document &document, const std::vector<AlignedLine> &lines, LineKeys &keys)
    {
        std::vector<int> result;
        result.reserve(lines.size());
        for (const AlignedLine &line : lines)
            result.push_back(keys.text(document, line));
        return result;
    }
    static std::vector<int> labelsOf(const Document &document, const std::vector<AlignedLine> &lines, LineKeys &keys)
    {
        std::vector<int> result;
        result.reserve(lines.size());
        for (const AlignedLine &line : lines)
            result.push_back(keys.label(document, line));
        return result;
    }

    /// Adds a row for each pair, and calls \a function with the lines before, between and after them.
    template <typename Function>
    void forGaps(const std::vector<LinePair> &pairs, LineChange change, LineIndexes older, LineIndexes newer, Function function)
    {
        for (const LinePair &pair : pairs) {
            function(LineIndexes {older.begin, pair.older}, LineIndexes {newer.begin, pair.newer});
            m_text.rows.push_back({pair.older, pair.newer, change});
            older.begin = pair.older + 1;
            newer.begin = pair.newer + 1;
        }
        function(older, newer);
    }

    /// Of lines that differ, those with equal labels stand beside each other.
    void alignLabels(LineIndexes older, LineIndexes newer)
    {
        if (older.size() == 0 || newer.size() == 0)
            addRest(older, newer);
        else
            forGaps(m_labels.match(older, newer), LineChange::Changed, older, newer, [this](LineIndexes a, LineIndexes b) { addRest(a, b); });
    }

    void addRest(LineIndexes older, LineIndexes newer)
    {
        if (older.size() == newer.size()) {
            for (int i = 0; i < older.size(); ++i)
                m_text.rows.push_back({older.begin + i, newer.begin + i, LineChange::Changed});
            return;
        }
        for (int i = older.begin; i < older.end; ++i)
            m_text.rows.push_back({i, -1, LineChange::Removed});
        for (int i = newer.begin; i < newer.end; ++i)
            m_text.rows.push_back({-1, i, LineChange::Added});
    }

    AlignedText &m_text;
    std::size_t m_budget = mostWork;
    std::vector<int> m_olderTexts;
    std::vector<int> m_newerTexts;
    std::vector<int> m_olderLabels;
    std::vector<int> m_newerLabels;
    LineMatcher m_texts;
    LineMatcher m_labels;
};

} // namespace

LineIndexes AlignedText::rowsOf(const QString &section) const
{
    if (section.isEmpty())
        return {0, int(rows.size())};
    LineIndexes result;
    for (const AlignedSection &candidate : sections) {
        if (candidate.section != section)
            continue;
        if (result.size() == 0)
            result.begin = candidate.rows.begin;
        result.end = candidate.rows.end;
    }
    return result;
}

AlignedText alignTexts(const Document &older, const Document &newer, const std::vector<SectionPair> &sections)
{
    AlignedText text;
    text.olderDocument = older;
    text.newerDocument = newer;
    std::vector<LineIndexes> olderRanges;
    std::vector<LineIndexes> newerRanges;
    for (const SectionPair &pair : sections) {
        olderRanges.push_back(addSection(text.older, older, pair.older));
        newerRanges.push_back(addSection(text.newer, newer, pair.newer));
    }
    LineKeys keys(older.states() | newer.states());
    Aligner aligner(text, keys);
    for (std::size_t i = 0; i < sections.size(); ++i) {
        const int begin = int(text.rows.size());
        aligner.align(olderRanges[i], newerRanges[i]);
        text.sections.push_back({sections[i].section, {begin, int(text.rows.size())}, olderRanges[i], newerRanges[i]});
    }
    return text;
}

LineIndexes linesAt(const std::vector<AlignedLine> &lines, LineIndexes among, int begin, int end)
{
    if (among.size() == 0)
        return {};
    const auto isAfter = [](int offset, const AlignedLine &line) { return offset < line.begin; };
    const auto first = lines.begin() + among.begin;
    const auto after = std::upper_bound(first, lines.begin() + among.end, begin, isAfter);
    const int index = int((after == first ? after : after - 1) - lines.begin());
    int last = index + 1;
    while (last < among.end && lines[std::size_t(last)].begin < end)
        ++last;
    return {index, last};
}
