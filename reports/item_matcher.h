// Pairs the items of several documents.
#pragma once

#include "pairing.h"

#include <QtCore/QHash>

namespace velkor {
namespace Reports {

/// What identifies items that are paired.
struct ItemKey
{
    int parent; ///< index of the node around it
    int kind;
    QString identity; ///< in lower case
};

inline bool operator==(const ItemKey &a, const ItemKey &b)
{
    return a.parent == b.parent && a.kind == b.kind && a.identity == b.identity;
}

inline uint qHash(const ItemKey &key, uint seed = 0)
{
    return ::qHash(key.identity, seed) ^ (::qHash(key.parent, seed) * 31U) ^ ::qHash(key.kind, seed);
}

/// Adds the items of one document after the other.
class ItemMatcher
{
public:
    explicit ItemMatcher(Pairing &pairing) : m_pairing(pairing) { }

    void addItems(std::size_t document, const std::vector<int> &sectionNodes);

private:
    struct Group
    {
        std::vector<int> nodes;   ///< with equal keys, in order
        std::vector<int> pending; ///< items of the current document that have no node yet
        QString identity;
    };

    void addLevel(std::size_t document, const std::vector<int> &items, const std::vector<int> &sectionNodes,
                  std::vector<int> &nodeOfItem);
    void assign(std::size_t document, const ItemKey &key, Group &group, std::vector<int> &nodeOfItem);
    void pairEqualItems(std::size_t document, Group &group, std::vector<int> &nodeOfItem);
    int newNode(const ItemKey &key, Group &group);
    bool hasPlace(int node, std::size_t document) const { return m_pairing.place(node, document) >= 0; }

    Pairing &m_pairing;
    QHash<ItemKey, int> m_groupOfKey;
    std::vector<Group> m_groups;
};

} // namespace Reports
} // namespace velkor
