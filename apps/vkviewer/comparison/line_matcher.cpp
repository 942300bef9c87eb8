#include "line_matcher.h"

#include <algorithm>
#include <cstdint>

namespace {

/// The longest subsequence that ascends in both texts, of pairs that ascend in the older one.
std::vector<LinePair> ascending(const std::vector<LinePair> &pairs)
{
    std::vector<int> lasts; // for each length the pair that ends such a subsequence and has the smallest newer line
    std::vector<int> previous(pairs.size(), -1);
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        const auto place = std::lower_bound(lasts.begin(), lasts.end(), pairs[i].newer,
                                            [&](int pair, int line) { return pairs[std::size_t(pair)].newer < line; });
        if (place != lasts.begin())
            previous[i] = *(place - 1);
        if (place == lasts.end())
            lasts.push_back(int(i));
        else
            *place = int(i);
    }
    std::vector<LinePair> result;
    for (int i = lasts.empty() ? -1 : lasts.back(); i >= 0; i = previous[std::size_t(i)])
        result.push_back(pairs[std::size_t(i)]);
    std::reverse(result.begin(), result.end());
    return result;
}

constexpr std::size_t mostCells = 250000; ///< of the table of matchSmall()

} // namespace

LineMatcher::LineMatcher(const std::vector<int> &older, const std::vector<int> &newer, int keys, std::size_t &budget)
    : m_older(older), m_newer(newer), m_budget(budget), m_occurrences(std::size_t(keys))
{
}

std::vector<LinePair> LineMatcher::match(LineIndexes older, LineIndexes newer)
{
    m_pairs.clear();
    std::vector<Part> parts {Part {older, newer}};
    while (!parts.empty()) {
        Part part = parts.back();
        parts.pop_back();
        takeEnds(part);
        if (part.older.size() == 0 || part.newer.size() == 0 || !take(std::size_t(part.older.size()) + std::size_t(part.newer.size())))
            continue;
        count(part);
        const std::vector<LinePair> found = anchors(part);
        const bool common = hasCommon(part);
        forget(part);
        if (found.empty()) {
            if (common)
                matchSmall(part);
            continue;
        }
        m_pairs.insert(m_pairs.end(), found.begin(), found.end());
        Part next {{part.older.begin, part.older.begin}, {part.newer.begin, part.newer.begin}};
        for (const LinePair &pair : found) {
            next.older.end = pair.older;
            next.newer.end = pair.newer;
            parts.push_back(next);
            next = {{pair.older + 1, pair.older + 1}, {pair.newer + 1, pair.newer + 1}};
        }
        next.older.end = part.older.end;
        next.newer.end = part.newer.end;
        parts.push_back(next);
    }
    std::sort(m_pairs.begin(), m_pairs.end(), [](const LinePair &a, const LinePair &b) { return a.older < b.older; });
    return m_pairs;
}

bool LineMatcher::isEqual(int older, int newer) const
{
    return m_older[std::size_t(older)] >= 0 && m_older[std::size_t(older)] == m_newer[std::size_t(newer)];
}

void LineMatcher::takeEnds(Part &part)
{
    LineIndexes &older = part.older;
    LineIndexes &newer = part.newer;
    for (; older.size() > 0 && newer.size() > 0 && isEqual(older.begin, newer.begin); ++older.begin, ++newer.begin)
        m_pairs.push_back({older.begin, newer.begin});
    for (; older.size() > 0 && newer.size() > 0 && isEqual(older.end - 1, newer.end - 1); --older.end, --newer.end)
        m_pairs.push_back({older.end - 1, newer.end - 1});
}

bool LineMatcher::take(std::size_t cost)
{
    if (cost > m_budget)
        return false;
    m_budget -= cost;
    return true;
}

void LineMatcher::count(const Part &part)
{
    for (int i = part.older.begin; i < part.older.end; ++i) {
        if (m_older[std::size_t(i)] >= 0)
            ++m_occurrences[std::size_t(m_older[std::size_t(i)])].older;
    }
    for (int i = part.newer.begin; i < part.newer.end; ++i) {
        if (m_newer[std::size_t(i)] < 0)
            continue;
        Occurrence &occurrence = m_occurrences[std::size_t(m_newer[std::size_t(i)])];
        ++occurrence.newer;
        occurrence.newerIndex = i;
    }
}

void LineMatcher::forget(const Part &part)
{
    for (int i = part.older.begin; i < part.older.end; ++i) {
        if (m_older[std::size_t(i)] >= 0)
            m_occurrences[std::size_t(m_older[std::size_t(i)])] = {};
    }
    for (int i = part.newer.begin; i < part.newer.end; ++i) {
        if (m_newer[std::size_t(i)] >= 0)
            m_occurrences[std::size_t(m_newer[std::size_t(i)])] = {};
    }
}

bool LineMatcher::hasCommon(const Part &part) const
{
    for (int i = part.older.begin; i < part.older.end; ++i) {
        if (m_older[std::size_t(i)] >= 0 && m_occurrences[std::size_t(m_older[std::size_t(i)])].newer > 0)
            return true;
    }
    return false;
}

std::vector<LinePair> LineMatcher::anchors(const Part &part) const
{
    std::vector<LinePair> pairs;
    for (int i = part.older.begin; i < part.older.end; ++i) {
        if (m_older[std::size_t(i)] < 0)
            continue;
        const Occurrence &occurrence = m_occurrences[std::size_t(m_older[std::size_t(i)])];
        if (occurrence.older == 1 && occurrence.newer == 1)
            pairs.push_back({i, occurrence.newerIndex});
    }
    return ascending(pairs);
}

/// The longest common subsequence, from a table of the lengths of those of all ends.
void LineMatcher::matchSmall(const Part &part)
{
    const std::size_t columns = std::size_t(part.newer.size()) + 1;
    const std::size_t cells = (std::size_t(part.older.size()) + 1) * columns;
    if (cells > mostCells || !take(cells / 16)) // a cell is cheap compared with a line
        return;
    std::vector<std::int32_t> lengths(cells, 0);
    const auto length = [&](int i, int j) -> std::int32_t & { return lengths[std::size_t(i) * columns + std::size_t(j)]; };
    for (int i = part.older.size() - 1; i >= 0; --i) {
        for (int j = part.newer.size() - 1; j >= 0; --j) {
            length(i, j) = isEqual(part.older.begin + i, part.newer.begin + j) ? length(i + 1, j + 1) + 1
                                                                               : std::max(length(i + 1, j), length(i, j + 1));
        }
    }
    for (int i = 0, j = 0; i < part.older.size() && j < part.newer.size();) {
        if (isEqual(part.older.begin + i, part.newer.begin + j)) {
            m_pairs.push_back({part.older.begin + i, part.newer.begin + j});
            ++i;
            ++j;
        } else if (length(i + 1, j) >= length(i, j + 1)) {
            ++i;
        } else {
            ++j;
        }
    }
}
