// Finds the lines that two texts have in common.
#pragma once

#include <cstddef>
#include <vector>

/// Indexes from begin up to, but not including, end.
struct LineIndexes
{
    int begin = 0;
    int end = 0;
    int size() const { return end - begin; }
};

struct LinePair
{
    int older = 0;
    int newer = 0;
};

/// Texts are vectors with a key for each line: equal lines have equal keys. A negative key equals none.
///
/// Lines that occur once in both texts are anchors; between two of them the same is done again. So a block that moved is
/// found to be added and removed as a whole. The work is bounded, whatever the texts are: what remains when it is used
/// up has no pairs.
class LineMatcher
{
public:
    /// Keys are less than \a keys. \a budget is about the number of lines that may be looked at.
    LineMatcher(const std::vector<int> &older, const std::vector<int> &newer, int keys, std::size_t &budget);

    /// Pairs of equal lines, ascending in both texts.
    std::vector<LinePair> match(LineIndexes older, LineIndexes newer);

private:
    struct Occurrence
    {
        int older = 0; ///< how often
        int newer = 0;
        int newerIndex = 0;
    };
    struct Part
    {
        LineIndexes older;
        LineIndexes newer;
    };

    bool isEqual(int older, int newer) const;
    void takeEnds(Part &part);
    bool take(std::size_t cost);
    void count(const Part &part);
    void forget(const Part &part);
    bool hasCommon(const Part &part) const;
    std::vector<LinePair> anchors(const Part &part) const;
    void matchSmall(const Part &part);

    const std::vector<int> &m_older;
    const std::vector<int> &m_newer;
    std::size_t &m_budget;
    std::vector<Occurrence> m_occurrences; ///< for each key; all zero between two parts
    std::vector<LinePair> m_pairs;
};
