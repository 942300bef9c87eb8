// The owner of an open registry key.
#pragma once

#include "wide_text.h"

class OpenKey
{
public:
    OpenKey(HKEY root, const QString &path, REGSAM access = KEY_READ)
    {
        if (RegOpenKeyExW(root, wide(path), 0, access, &m_key) != LSTATUS(ERROR_SUCCESS))
            m_key = nullptr;
    }
    /// Takes ownership of \a key.
    static OpenKey owning(HKEY key) { return OpenKey(key); }
    ~OpenKey()
    {
        if (m_key)
            RegCloseKey(m_key);
    }
    OpenKey(const OpenKey &) = delete;
    OpenKey &operator=(const OpenKey &) = delete;

    /// Null if the key cannot be opened.
    HKEY handle() const { return m_key; }

private:
    explicit OpenKey(HKEY key) : m_key(key) { }

    HKEY m_key = nullptr;
};
