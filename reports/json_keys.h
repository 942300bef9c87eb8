// The keys that objects of the JSON form can have, by number.
#pragma once

#include <string>

namespace velkor {
namespace Reports {

/// The number of a key; -1 if nothing in the JSON form has it.
int keyNumber(const std::string &key);
const std::string &keyName(int key);

bool isFactKey(int key);
/// True if it is the name of a list of items. No fact has such a key.
bool isListKey(int key);

/// The fact with that key, index in factRows(); -1 if the section or the kind of item has none.
int factRowOf(int sectionRow, int kind, int key);
/// The kind of the items in that list; -1 if the section has none.
int kindOfList(int sectionRow, int key);
/// The section of that name, index in sectionRows(); -1 if there is none.
int sectionRowOf(const std::string &name);

} // namespace Reports
} // namespace velkor
