// Finds many names in one pass (Aho and Corasick, 1975).
#pragma once

#include "folding.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace velkor {
namespace Reports {

/// Where a spelling counts.
enum class Boundaries {
    Substring, ///< also inside a word
    Anywhere,  ///< also inside a word, unless that is an ordinary one
    Word,      ///< not inside a word; case, digits and punctuation end words
    Whole,     ///< not beside a letter or digit
    Component, ///< as a whole component of a path
};

struct NamePlace
{
    int begin = 0;
    int end = 0;
    int name = 0; ///< what was given to add()
};

class NameSearch
{
public:
    NameSearch();

    /// Adds a spelling of a name, as symbols. Of equal spellings the first counts. One of more than 600 symbols is ignored.
    void add(const std::u16string &spelling, int name, Boundaries boundaries);
    /// To be called after the last add().
    void build();
    bool isEmpty() const { return spellings.empty(); }
    /// Replaces \a places by the longest matches in \a text, in ascending order without overlaps.
    /// Matches that overlap in part become one place.
    void find(std::string_view text, std::vector<NamePlace> &places);

private:
    struct Node
    {
        int fail = 0;
        int spelling = -1; ///< that ends here
        int shorter = -1;  ///< next node along the failure links with a spelling
        int depth = 0;
    };
    struct Spelling
    {
        int name;
        Boundaries boundaries;
    };
    struct Edge
    {
        int from;
        char16_t code;
        int to;
    };

    using ByteSet = std::bitset<256>;

    static std::uint64_t edgeKey(int node, char16_t code) { return (std::uint64_t(node) << 16U) | code; }
    int child(int node, char16_t code) const;
    void addEdge(int node, char16_t code, int to);
    void grow();
    int step(int node, char16_t code) const;
    static const ByteSet &specialBytes();
    static std::vector<std::size_t> bytesOf(char16_t symbol);
    void allowStart(const std::u16string &spelling);
    bool canStart(char first, char second) const
    {
        return starts[static_cast<unsigned char>(first)][static_cast<unsigned char>(second)];
    }

    std::vector<Node> nodes;
    std::array<int, 128> rootChildren; ///< by symbol, of ASCII
    std::array<ByteSet, 256> starts;   ///< by a byte: which bytes can follow it if a spelling begins with it
    std::vector<std::uint64_t> keys;   ///< open addressing; 0 is free
    std::vector<int> targets;
    std::size_t edges = 0;
    std::vector<Edge> order; ///< in the order of creation
    std::vector<Spelling> spellings;
    std::vector<Symbol> ring; ///< the last symbols of a text

    friend class NameScan;
};

} // namespace Reports
} // namespace velkor
