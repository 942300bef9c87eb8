#include "replacements.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

class Composer
{
public:
    explicit Composer(const Replacements &firstRound)
        : first(firstRound)
    {
    }

    Replacements run(const Replacements &second)
    {
        for (const Replacement &replacement : second)
            add(replacement);
        while (next < first.size())
            takeOver(first[next++]);
        return std::move(result);
    }

private:
    /// A replacement of the first round that the second left as it is.
    void takeOver(Replacement replacement)
    {
        toFirst = replacement.originalEnd - replacement.end;
        replacement.begin += toThird;
        replacement.end += toThird;
        result.push_back(replacement);
    }

    /// A replacement of the second round, and what it overlaps of those of the first one.
    void add(const Replacement &second)
    {
        while (next < first.size() && first[next].end <= second.originalBegin)
            takeOver(first[next++]);
        int begin = second.originalBegin; // in the second text
        int end = second.originalEnd;
        const bool continuesLast = begin < endOfLast;
        if (!continuesLast && next < first.size() && first[next].begin < begin)
            begin = first[next].begin;
        Replacement whole = second;
        whole.begin -= second.originalBegin - begin;
        whole.originalBegin = begin + toFirst;
        for (; next < first.size() && first[next].begin < end; ++next) {
            toFirst = first[next].originalEnd - first[next].end;
            end = std::max(end, first[next].end);
        }
        end = std::max(end, endOfLast);
        whole.end += end - second.originalEnd;
        whole.originalEnd = end + toFirst;
        if (continuesLast) { // both overlap the same replacement of the first round
            whole.begin = result.back().begin;
            whole.originalBegin = result.back().originalBegin;
            result.pop_back();
        }
        result.push_back(whole);
        endOfLast = end;
        toThird = second.end - second.originalEnd;
    }

    const Replacements &first;
    Replacements result;
    std::size_t next = 0;
    int toFirst = 0;   ///< what is added to an offset in the second text to get one in the first
    int toThird = 0;   ///< the same for the third text
    int endOfLast = 0; ///< of the last replacement of the second round, in the second text
};

} // namespace

Replacements composed(const Replacements &first, const Replacements &second)
{
    return Composer(first).run(second);
}

} // namespace Reports
} // namespace velkor
