#include "json_keys.h"

#include "json_names.h"
#include "line_plan.h"
#include "report_tree.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>
#include <vector>

namespace velkor {
namespace Reports {

namespace {

struct KeyTable
{
    KeyTable();

    std::vector<std::string> names; // sorted
    std::vector<bool> ofFacts;
    std::vector<bool> ofLists;
    std::map<std::pair<int, int>, int> rowsOfSections; // by section and key
    std::map<std::pair<int, int>, int> rowsOfItems;    // by kind and key

    int number(const std::string &name) const;

private:
    void addRow(int row);
};

KeyTable::KeyTable()
{
    namespace Key = Json::Key;
    names = {Key::format, Key::schemaVersion, Key::redaction, Key::incomplete, Key::sha256, Key::states, Key::encoding, Key::byteOrderMark,
             Key::tail, Key::lineEnd, Key::linePrefix, Key::blanks, Key::reports, Key::sections, Key::name, Key::facts,
             Key::leftOut, Key::value, Key::text, Key::base64, Key::layout};
    for (const FactRow &row : factRows()) {
        if (*row.key != '\0')
            names.emplace_back(row.key);
    }
    for (const ItemRow &row : itemRows())
        names.emplace_back(row.list);
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    ofFacts.resize(names.size());
    ofLists.resize(names.size());
    for (size_t i = 0; i < factRows().size(); ++i)
        addRow(int(i));
    for (const ItemRow &row : itemRows())
        ofLists[size_t(number(row.list))] = true;
}

void KeyTable::addRow(int row)
{
    const FactRow &fact = factRows()[size_t(row)];
    if (*fact.key == '\0')
        return;
    const int key = number(fact.key);
    ofFacts[size_t(key)] = true;
    const std::vector<ItemRow> &kinds = itemRows();
    for (size_t i = 0; i < kinds.size(); ++i) {
        if (std::strcmp(kinds[i].section, fact.section) == 0 && std::strcmp(kinds[i].kind, fact.item) == 0)
            rowsOfItems.emplace(std::make_pair(int(i), key), row);
    }
    for (size_t i = 0; i < sectionRows().size() && *fact.item == '\0'; ++i) {
        if (std::strcmp(sectionRows()[i].facts, fact.section) == 0)
            rowsOfSections.emplace(std::make_pair(int(i), key), row);
    }
}

int KeyTable::number(const std::string &name) const
{
    const auto found = std::lower_bound(names.begin(), names.end(), name);
    return found != names.end() && *found == name ? int(found - names.begin()) : -1;
}

const KeyTable &table()
{
    static const KeyTable keys;
    return keys;
}

} // namespace

int keyNumber(const std::string &key)
{
    return table().number(key);
}

const std::string &keyName(int key)
{
    return table().names[size_t(key)];
}

bool isFactKey(int key)
{
    return table().ofFacts[size_t(key)];
}

bool isListKey(int key)
{
    return table().ofLists[size_t(key)];
}

int factRowOf(int sectionRow, int kind, int key)
{
    const auto &rows = kind == sectionItself ? table().rowsOfSections : table().rowsOfItems;
    const auto found = rows.find({kind == sectionItself ? sectionRow : kind, key});
    return found == rows.end() ? -1 : found->second;
}

int kindOfList(int sectionRow, int key)
{
    const std::vector<ItemRow> &kinds = itemRows();
    for (size_t i = 0; i < kinds.size(); ++i) {
        if (sectionHasKind(sectionRow, int(i)) && keyName(key) == kinds[i].list)
            return int(i);
    }
    return -1;
}

int sectionRowOf(const std::string &name)
{
    const std::vector<SectionRow> &rows = sectionRows();
    for (size_t i = 0; i < rows.size(); ++i) {
        if (name == rows[i].name)
            return int(i);
    }
    return -1;
}

} // namespace Reports
} // namespace velkor
