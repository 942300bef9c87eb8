// Opens a registry key by the wide call.
#pragma once

#include "wide_text.h"
#include "win/registry_key.h"

using velkor::SystemInfo::WinSysInfo::RegistryKey;

/// Null if the key cannot be opened.
inline RegistryKey openKeyWide(HKEY root, const QString &path, REGSAM access = KEY_READ)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, wide(path), 0, access, &key) != ERROR_SUCCESS)
        return nullptr;
    return RegistryKey(key);
}
