#include "line_pairs.h"

#include <QtCore/QHash>
#include <algorithm>

namespace {

constexpr int deepest = 16;              // of ranges between lines that occur once
constexpr qint64 largestTable = 250000;  // cells of one table
constexpr qint64 mostCells = 20'000'000; // of all tables
constexpr int farthest = 200;            // lines, if there are too many for a table

class Pairing
{
public:
    Pairing(const std::vector<QByteArray> &leftLines, const std::vector<QByteArray> &rightLines)
    {
        left = numbersOf(leftLines);
        right = numbersOf(rightLines);
    }

    std::vector<std::pair<int, int>> run()
    {
        pair({0, int(left.size()), 0, int(right.size())}, 0);
        return std::move(pairs);
    }

private:
    struct Range
    {
        int begin;
        int end;
        int otherBegin;
        int otherEnd;

        bool isEmpty() const { return begin == end || otherBegin == otherEnd; }
        qint64 cells() const { return qint64(end - begin) * (otherEnd - otherBegin); }
    };

    struct Count
    {
        int count = 0;
        int otherCount = 0;
        int at = 0;
        int otherAt = 0;
    };

    /// Equal lines have equal numbers.
    std::vector<int> numbersOf(const std::vector<QByteArray> &lines)
    {
        std::vector<int> numbers;
        for (const QByteArray &line : lines) {
            const auto known = numberOf.constFind(line);
            numbers.push_back(known == numberOf.constEnd() ? *numberOf.insert(line, numberOf.size()) : *known);
        }
        return numbers;
    }

    void pair(Range range, int depth)
    {
        while (!range.isEmpty() && left[std::size_t(range.begin)] == right[std::size_t(range.otherBegin)])
            pairs.emplace_back(range.begin++, range.otherBegin++);
        int same = 0;
        while (range.begin < range.end - same && range.otherBegin < range.otherEnd - same
               && left[std::size_t(range.end - same - 1)] == right[std::size_t(range.otherEnd - same - 1)])
            ++same;
        range.end -= same;
        range.otherEnd -= same;
        if (!range.isEmpty())
            pairDifferent(range, depth);
        for (int i = 0; i < same; ++i)
            pairs.emplace_back(range.end + i, range.otherEnd + i);
    }

    void pairDifferent(const Range &range, int depth)
    {
        if (range.cells() <= largestTable && cells + range.cells() <= mostCells) {
            pairByTable(range);
            return;
        }
        const std::vector<std::pair<int, int>> anchors = depth < deepest ? anchorsIn(range) : std::vector<std::pair<int, int>>();
        if (anchors.empty()) {
            pairNext(range);
            return;
        }
        Range part = range;
        for (const auto &anchor : anchors) {
            part.end = anchor.first;
            part.otherEnd = anchor.second;
            pair(part, depth + 1);
            pairs.push_back(anchor);
            part.begin = anchor.first + 1;
            part.otherBegin = anchor.second + 1;
        }
        part.end = range.end;
        part.otherEnd = range.otherEnd;
        pair(part, depth + 1);
    }

    /// The longest common sequence.
    void pairByTable(const Range &range)
    {
        cells += range.cells();
        const int rows = range.end - range.begin;
        const int columns = range.otherEnd - range.otherBegin;
        const auto at = [columns](int row, int column) { return std::size_t(row) * std::size_t(columns + 1) + std::size_t(column); };
        std::vector<int> lengths(at(rows, columns) + 1);
        const auto isEqual = [&](int row, int column) {
            return left[std::size_t(range.begin) + std::size_t(row)] == right[std::size_t(range.otherBegin) + std::size_t(column)];
        };
        for (int row = rows - 1; row >= 0; --row) {
            for (int column = columns - 1; column >= 0; --column) {
                lengths[at(row, column)] = isEqual(row, column) ? lengths[at(row + 1, column + 1)] + 1
                                                                : std::max(lengths[at(row + 1, column)], lengths[at(row, column + 1)]);
            }
        }
        for (int row = 0, column = 0; row < rows && column < columns;) {
            if (isEqual(row, column))
                pairs.emplace_back(range.begin + row++, range.otherBegin + column++);
            else if (lengths[at(row + 1, column)] >= lengths[at(row, column + 1)])
                ++row;
            else
                ++column;
        }
    }

    /// Lines that occur once on each side, as far as they are in the same order.
    std::vector<std::pair<int, int>> anchorsIn(const Range &range) const
    {
        QHash<int, Count> counts;
        for (int i = range.begin; i < range.end; ++i) {
            Count &count = counts[left[std::size_t(i)]];
            ++count.count;
            count.at = i;
        }
        for (int i = range.otherBegin; i < range.otherEnd; ++i) {
            Count &count = counts[right[std::size_t(i)]];
            ++count.otherCount;
            count.otherAt = i;
        }
        std::vector<std::pair<int, int>> unique;
        for (const Count &count : qAsConst(counts)) {
            if (count.count == 1 && count.otherCount == 1)
                unique.emplace_back(count.at, count.otherAt);
        }
        std::sort(unique.begin(), unique.end());
        return longestRising(unique);
    }

    static std::vector<std::pair<int, int>> longestRising(const std::vector<std::pair<int, int>> &all)
    {
        std::vector<int> last; // of the rising sequence of each length the smallest end
        std::vector<int> before(all.size(), -1);
        for (int i = 0; i < int(all.size()); ++i) {
            const auto end = std::lower_bound(last.begin(), last.end(), all[std::size_t(i)].second,
                                              [&all](int index, int value) { return all[std::size_t(index)].second < value; });
            if (end != last.begin())
                before[std::size_t(i)] = *(end - 1);
            if (end == last.end())
                last.push_back(i);
            else
                *end = i;
        }
        std::vector<std::pair<int, int>> rising;
        for (int i = last.empty() ? -1 : last.back(); i >= 0; i = before[std::size_t(i)])
            rising.push_back(all[std::size_t(i)]);
        std::reverse(rising.begin(), rising.end());
        return rising;
    }

    /// Each line with the next equal one, if that is near.
    void pairNext(const Range &range)
    {
        int other = range.otherBegin;
        for (int i = range.begin; i < range.end; ++i) {
            const int limit = std::min(other + farthest, range.otherEnd);
            const auto found = std::find(right.begin() + other, right.begin() + limit, left[std::size_t(i)]);
            if (found == right.begin() + limit)
                continue;
            pairs.emplace_back(i, int(found - right.begin()));
            other = int(found - right.begin()) + 1;
        }
    }

    QHash<QByteArray, int> numberOf;
    std::vector<int> left;
    std::vector<int> right;
    std::vector<std::pair<int, int>> pairs;
    qint64 cells = 0;
};

} // namespace

std::vector<std::pair<int, int>> equalLines(const std::vector<QByteArray> &left, const std::vector<QByteArray> &right)
{
    return Pairing(left, right).run();
}
