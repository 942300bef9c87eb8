// Copies of described registry keys.
#pragma once

#include "registry_tree.h"

/// Adds what \a from holds to \a to, with all keys below it.
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
