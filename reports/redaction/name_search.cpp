#include "name_search.h"

#include "ordinary_words.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

constexpr int maximalLength = 600; // of a spelling

bool isSeparator(char16_t code)
{
    return code == u'\\' || code == u'/' || code == u';' || code == u'"' || code == u'\'' || code == u'\n' || code == u'=';
}

bool isLetter(SymbolClass kind)
{
    return kind == SymbolClass::Lower || kind == SymbolClass::Upper;
}

/// Whether a word can end between two symbols.
bool isBoundary(SymbolClass left, SymbolClass right)
{
    if (!isWordSymbol(left) || !isWordSymbol(right))
        return true;
    if (isLetter(left) != isLetter(right))
        return true;
    return left == SymbolClass::Lower && right == SymbolClass::Upper;
}

} // namespace

/// One pass over a text.
class NameScan
{
public:
    static constexpr std::size_t ringSize = 1024; // more than the longest spelling

    NameScan(NameSearch &search, std::string_view text, std::vector<NamePlace> &places)
        : names(search), bytes(text), found(places), ring(search.ring.data())
    {
    }

    void run()
    {
        SymbolReader reader(bytes);
        Symbol symbol;
        int node = 0;
        for (;;) {
            if (node == 0 && pending < 0 && !reader.isInLetter())
                skip(reader);
            if (!reader.next(symbol))
                break;
            if (pending >= 0)
                accept(&symbol);
            ring[count++ % ringSize] = symbol;
            node = names.step(node, symbol.code);
            const NameSearch::Node &reached = names.nodes[std::size_t(node)];
            pending = reached.spelling >= 0 ? node : reached.shorter;
        }
        if (pending >= 0)
            accept(nullptr);
    }

private:
    /// Skips bytes with which no spelling begins. The last one of them is remembered: it tells whether a word begins.
    void skip(SymbolReader &reader)
    {
        const std::size_t begin = reader.position();
        std::size_t at = begin;
        while (at + 1 < bytes.size() && !names.canStart(bytes[at], bytes[at + 1]))
            ++at;
        if (at == begin)
            return;
        const char last = bytes[at - 1];
        ring[count++ % ringSize] = {foldedAscii(last).code, foldedAscii(last).kind, int(at - 1), int(at)};
        reader.skipTo(at);
    }

    const Symbol &before(std::size_t symbols) const { return ring[(count - symbols) % ringSize]; }

    /// Takes the longest spelling that ends before \a next and counts there.
    void accept(const Symbol *next)
    {
        for (int node = pending; node >= 0; node = names.nodes[std::size_t(node)].shorter) {
            const NameSearch::Node &reached = names.nodes[std::size_t(node)];
            const auto length = std::size_t(reached.depth);
            const Symbol *previous = count > length ? &before(length + 1) : nullptr;
            const Symbol &first = before(length);
            const Symbol &last = before(1);
            if (next && next->begin == last.begin) // inside of a letter that stands for two
                continue;
            const NameSearch::Spelling &spelling = names.spellings[std::size_t(reached.spelling)];
            if (!counts(spelling.boundaries, previous, first, last, next))
                continue;
            put({first.begin, last.end, spelling.name});
            break;
        }
        pending = -1;
    }

    bool counts(Boundaries boundaries, const Symbol *previous, const Symbol &first, const Symbol &last, const Symbol *next) const
    {
        const bool startsWord = !previous || isBoundary(previous->kind, first.kind);
        const bool endsWord = !next || isBoundary(last.kind, next->kind);
        switch (boundaries) {
        case Boundaries::Substring:
            return true;
        case Boundaries::Component:
            return isComponent(previous, next);
        case Boundaries::Whole:
            return (!previous || !isWordSymbol(previous->kind)) && (!next || !isWordSymbol(next->kind));
        case Boundaries::Word:
            return startsWord && endsWord;
        case Boundaries::Anywhere:
            break;
        }
        return (startsWord && endsWord) || !isInOrdinaryWord(first.begin, last.end);
    }

    static bool isComponent(const Symbol *previous, const Symbol *next)
    {
        const auto isSlash = [](const Symbol *symbol) { return symbol && (symbol->code == u'\\' || symbol->code == u'/'); };
        return (isSlash(previous) || isSlash(next)) && (!previous || isSeparator(previous->code)) && (!next || isSeparator(next->code));
    }

    bool isInOrdinaryWord(int begin, int end) const
    {
        const auto isWordByte = [](char byte) { return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z'); };
        constexpr int longestWord = 32;
        const int lowest = std::max(0, begin - longestWord);
        const int highest = std::min(int(bytes.size()), end + longestWord);
        while (begin > lowest && isWordByte(bytes[std::size_t(begin - 1)]))
            --begin;
        while (end < highest && isWordByte(bytes[std::size_t(end)]))
            ++end;
        return isOrdinaryWord(folded(bytes.substr(std::size_t(begin), std::size_t(end - begin))));
    }

    void put(NamePlace place)
    {
        while (!found.empty() && found.back().end > place.begin) {
            const NamePlace last = found.back();
            if (last.begin < place.begin) {
                found.back().end = std::max(last.end, place.end);
                return;
            }
            found.pop_back();
            place.end = std::max(place.end, last.end);
        }
        found.push_back(place);
    }

    const NameSearch &names;
    std::string_view bytes;
    std::vector<NamePlace> &found;
    Symbol *ring;
    std::size_t count = 0;
    int pending = -1; ///< node whose spelling ends with the last symbol
};

NameSearch::NameSearch()
    : nodes(1), rootChildren(), starts(), keys(256), targets(256)
{
    starts.fill(specialBytes());
    for (int byte = 0; byte < 256; ++byte) {
        if (specialBytes()[std::size_t(byte)])
            starts[std::size_t(byte)].set();
    }
}

/// Bytes that are not one symbol each; what follows one is looked at in any case.
const NameSearch::ByteSet &NameSearch::specialBytes()
{
    static const ByteSet bytes = [] {
        ByteSet special;
        for (int byte = 0; byte < 256; ++byte)
            special[std::size_t(byte)] = byte < ' ' || byte >= 0x7f || byte == '%';
        return special;
    }();
    return bytes;
}

/// The bytes of ASCII that are the symbol.
std::vector<std::size_t> NameSearch::bytesOf(char16_t symbol)
{
    static const std::array<std::vector<std::size_t>, 128> bytes = [] {
        std::array<std::vector<std::size_t>, 128> bySymbol;
        for (std::size_t byte = ' '; byte < 0x7f; ++byte)
            bySymbol[foldedAscii(char(byte)).code].push_back(byte);
        return bySymbol;
    }();
    return symbol < bytes.size() ? bytes[symbol] : std::vector<std::size_t>();
}

/// To be called for each spelling: the search skips what it does not begin with.
void NameSearch::allowStart(const std::u16string &spelling)
{
    for (const std::size_t first : bytesOf(spelling[0])) {
        if (spelling.size() < 2)
            starts[first].set();
        for (const std::size_t second : bytesOf(spelling[spelling.size() > 1 ? 1 : 0]))
            starts[first].set(second);
    }
}

int NameSearch::child(int node, char16_t code) const
{
    if (node == 0 && code < rootChildren.size())
        return rootChildren[code];
    const std::uint64_t key = edgeKey(node, code);
    const std::size_t mask = keys.size() - 1;
    for (std::size_t slot = std::size_t((key * 0x9e3779b97f4a7c15ULL) >> 20U) & mask; keys[slot] != 0; slot = (slot + 1) & mask) {
        if (keys[slot] == key)
            return targets[slot];
    }
    return 0;
}

void NameSearch::grow()
{
    std::vector<std::uint64_t> oldKeys(keys.size() * 2);
    std::vector<int> oldTargets(targets.size() * 2);
    oldKeys.swap(keys);
    oldTargets.swap(targets);
    edges = 0;
    for (std::size_t i = 0; i < oldKeys.size(); ++i) {
        if (oldKeys[i] != 0)
            addEdge(int(oldKeys[i] >> 16U), char16_t(oldKeys[i] & 0xffffU), oldTargets[i]);
    }
}

void NameSearch::addEdge(int node, char16_t code, int to)
{
    if (node == 0 && code < rootChildren.size()) {
        rootChildren[code] = to;
        return;
    }
    if (edges * 2 >= keys.size())
        grow();
    const std::uint64_t key = edgeKey(node, code);
    const std::size_t mask = keys.size() - 1;
    std::size_t slot = std::size_t((key * 0x9e3779b97f4a7c15ULL) >> 20U) & mask;
    while (keys[slot] != 0)
        slot = (slot + 1) & mask;
    keys[slot] = key;
    targets[slot] = to;
    ++edges;
}

void NameSearch::add(const std::u16string &spelling, int name, Boundaries boundaries)
{
    if (spelling.empty() || spelling.size() > std::size_t(maximalLength))
        return;
    allowStart(spelling);
    int node = 0;
    for (const char16_t code : spelling) {
        int next = child(node, code);
        if (next == 0) {
            next = int(nodes.size());
            nodes.emplace_back();
            nodes.back().depth = nodes[std::size_t(node)].depth + 1;
            addEdge(node, code, next);
            order.push_back({node, code, next});
        }
        node = next;
    }
    Node &last = nodes[std::size_t(node)];
    if (last.spelling >= 0)
        return;
    last.spelling = int(spellings.size());
    spellings.push_back({name, boundaries});
}

void NameSearch::build()
{
    ring.resize(NameScan::ringSize);
    std::stable_sort(order.begin(), order.end(), [this](const Edge &left, const Edge &right) {
        return nodes[std::size_t(left.to)].depth < nodes[std::size_t(right.to)].depth;
    });
    for (const Edge &edge : order) {
        Node &node = nodes[std::size_t(edge.to)];
        node.fail = edge.from == 0 ? 0 : step(nodes[std::size_t(edge.from)].fail, edge.code);
        const Node &suffix = nodes[std::size_t(node.fail)];
        node.shorter = suffix.spelling >= 0 ? node.fail : suffix.shorter;
    }
}

int NameSearch::step(int node, char16_t code) const
{
    for (;;) {
        const int next = child(node, code);
        if (next != 0 || node == 0)
            return next;
        node = nodes[std::size_t(node)].fail;
    }
}

void NameSearch::find(std::string_view text, std::vector<NamePlace> &places)
{
    places.clear();
    if (isEmpty())
        return;
    NameScan(*this, text, places).run();
}

} // namespace Reports
} // namespace velkor
