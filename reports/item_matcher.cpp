#include "item_matcher.h"

#include "owned_facts.h"

namespace velkor {
namespace Reports {

namespace {

/// Equal for items with equal facts, apart from those that change by themselves. It hashes the bytes, not the
/// values: items whose bytes differ and whose values do not are paired in order.
uint fingerprint(const Document &document, int item)
{
    const Item &place = document.items()[std::size_t(item)];
    uint result = 0;
    for (int i = place.firstFact; i < place.lastFact; ++i) {
        const Fact &fact = document.facts()[std::size_t(i)];
        if (document.row(fact).changes != Changes::Rarely)
            continue;
        int end = fact.end;
        while (end > fact.begin && document.text().at(end - 1) == ' ')
            --end;
        result = result * 31U + qHashBits(document.text().constData() + fact.begin, std::size_t(end - fact.begin), uint(keyRow(fact.row)));
    }
    return result;
}

} // namespace

void ItemMatcher::addItems(std::size_t document, const std::vector<int> &sectionNodes)
{
    const std::vector<Item> &items = m_pairing.documents()[document].items();
    std::vector<std::vector<int>> levels;
    std::vector<std::size_t> depths;
    for (std::size_t item = 0; item < items.size(); ++item) {
        const int parent = items[item].parent;
        depths.push_back(parent < 0 ? 0 : depths[std::size_t(parent)] + 1); // an item follows the one around it
        if (levels.size() <= depths.back())
            levels.resize(depths.back() + 1);
        levels[depths.back()].push_back(int(item));
    }
    std::vector<int> nodeOfItem(items.size(), -1);
    for (const std::vector<int> &level : levels)
        addLevel(document, level, sectionNodes, nodeOfItem);
}

void ItemMatcher::addLevel(std::size_t document, const std::vector<int> &items,
                           const std::vector<int> &sectionNodes, std::vector<int> &nodeOfItem)
{
    const Document &source = m_pairing.documents()[document];
    std::vector<std::pair<ItemKey, int>> touched;
    for (const int item : items) {
        const Item &place = source.items()[std::size_t(item)];
        const int parent = place.parent < 0 ? sectionNodes[std::size_t(place.section)] : nodeOfItem[std::size_t(place.parent)];
        if (parent < 0 || m_pairing.nodes()[std::size_t(parent)].identical)
            continue;
        const QString identity = source.identity(item);
        const ItemKey key = {parent, place.kind, identity.toLower()};
        const auto found = m_groupOfKey.constFind(key);
        const int group = found == m_groupOfKey.constEnd() ? int(m_groups.size()) : *found;
        if (found == m_groupOfKey.constEnd()) {
            m_groupOfKey.insert(key, group);
            m_groups.push_back({{}, {}, identity});
        }
        std::vector<int> &pending = m_groups[std::size_t(group)].pending;
        if (pending.empty())
            touched.emplace_back(key, group);
        pending.push_back(item);
    }
    for (const auto &[key, group] : touched)
        assign(document, key, m_groups[std::size_t(group)], nodeOfItem);
}

void ItemMatcher::assign(std::size_t document, const ItemKey &key, Group &group, std::vector<int> &nodeOfItem)
{
    if (!group.nodes.empty() && (group.nodes.size() > 1 || group.pending.size() > 1))
        pairEqualItems(document, group, nodeOfItem);
    std::size_t next = 0;
    for (const int item : group.pending) {
        int &node = nodeOfItem[std::size_t(item)];
        if (node < 0) {
            while (next < group.nodes.size() && hasPlace(group.nodes[next], document))
                ++next;
            node = next < group.nodes.size() ? group.nodes[next] : newNode(key, group);
            m_pairing.setPlace(node, document, item);
        }
    }
    group.pending.clear();
    if (group.nodes.size() > 1) {
        for (const int node : group.nodes)
            m_pairing.markSameIdentity(node);
    }
}

void ItemMatcher::pairEqualItems(std::size_t document, Group &group, std::vector<int> &nodeOfItem)
{
    QHash<uint, std::vector<int>> nodes; // the first one of equal nodes is the last of the vector
    for (auto node = group.nodes.rbegin(); node != group.nodes.rend(); ++node) {
        std::size_t other = 0;
        while (!hasPlace(*node, other))
            ++other;
        nodes[fingerprint(m_pairing.documents()[other], m_pairing.place(*node, other))].push_back(*node);
    }
    for (const int item : group.pending) {
        const auto equal = nodes.find(fingerprint(m_pairing.documents()[document], item));
        if (equal == nodes.end() || equal->empty())
            continue;
        nodeOfItem[std::size_t(item)] = equal->back();
        m_pairing.setPlace(equal->back(), document, item);
        equal->pop_back();
    }
}

int ItemMatcher::newNode(const ItemKey &key, Group &group)
{
    Node node;
    node.parent = key.parent;
    node.sectionRow = m_pairing.nodes()[std::size_t(key.parent)].sectionRow;
    node.kind = key.kind;
    node.occurrence = int(group.nodes.size());
    node.identity = group.identity;
    group.nodes.push_back(m_pairing.addNode(std::move(node)));
    return group.nodes.back();
}

} // namespace Reports
} // namespace velkor
