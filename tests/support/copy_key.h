// Copies of described registry keys.
#pragma once

#include "registry_tree.h"

/// Adds the values and sub-keys of \a from to \a to, and copies whether it is denied.
inline void copyKey(const machine::RegistryKey &from, machine::RegistryKey &to)
{
    to.setDenied(from.isDenied());
    for (const machine::RegistryValue &value : from.values())
        to.setValue(value);
    for (std::size_t i = 0; i < from.subKeyCount(); ++i) {
        const auto subKey = from.subKeyAt(i);
        copyKey(*subKey, *to.createSubKey(subKey->name()));
    }
}
