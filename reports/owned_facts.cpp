#include "owned_facts.h"

#include <algorithm>
#include <map>
#include <string>
#include <tuple>

namespace velkor {
namespace Reports {

namespace {

std::vector<int> findKeyRows()
{
    std::map<std::tuple<std::string, std::string, std::string>, int> first;
    std::vector<int> result;
    for (const FactRow &row : factRows())
        result.push_back(first.emplace(std::make_tuple(row.section, row.item, row.key), int(result.size())).first->second);
    return result;
}

} // namespace

int keyRow(int row)
{
    static const std::vector<int> rows = findKeyRows();
    return rows[std::size_t(row)];
}

OwnedFacts::OwnedFacts(const Document &document) : items(int(document.items().size()))
{
    std::vector<int> owners(document.facts().size(), -1);
    for (std::size_t section = 0; section < document.sections().size(); ++section) {
        const Section &place = document.sections()[section];
        std::fill(owners.begin() + place.firstFact, owners.begin() + place.lastFact, items + int(section));
    }
    first.assign(document.items().size() + document.sections().size() + 1, 0);
    for (std::size_t i = 0; i < owners.size(); ++i) {
        const Fact &fact = document.facts()[i];
        if (document.row(fact).key[0] == '\0')
            owners[i] = -1; // a fixed line
        else if (fact.item >= 0)
            owners[i] = fact.item;
        if (owners[i] >= 0)
            ++first[std::size_t(owners[i]) + 1];
    }
    for (std::size_t i = 1; i < first.size(); ++i)
        first[i] += first[i - 1];
    facts.resize(first.back());
    std::vector<std::size_t> next = first;
    for (std::size_t i = 0; i < owners.size(); ++i) {
        if (owners[i] >= 0)
            facts[next[std::size_t(owners[i])]++] = &document.facts()[i];
    }
    const auto isBefore = [](const Fact *a, const Fact *b) { return keyRow(a->row) < keyRow(b->row); };
    for (std::size_t i = 0; i + 1 < first.size(); ++i) {
        const auto from = facts.begin() + std::ptrdiff_t(first[i]);
        const auto to = facts.begin() + std::ptrdiff_t(first[i + 1]);
        if (!std::is_sorted(from, to, isBefore))
            std::stable_sort(from, to, isBefore);
    }
}

} // namespace Reports
} // namespace velkor
