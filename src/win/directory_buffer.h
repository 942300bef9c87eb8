// Reads the path of a system directory.
#pragma once

#include "win/registry_key.h"

#include <algorithm>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// Quirk: a path that does not fit leaves the previous path in the buffer.
class DirectoryBuffer
{
public:
    static constexpr UINT size = 1024; // in units

    /// Calls GetSystemWindowsDirectoryW or a call like it and returns its result.
    UINT read(UINT(WINAPI *call)(wchar_t *, UINT)) { return m_length = call(m_units, size); }

    /// The last call needed a larger buffer.
    bool isTooSmall() const { return m_length > size; }
    /// The path that the last call returned; if the buffer is too small, the previous path.
    QString text() const
    {
        return isTooSmall() ? wideText(m_units, size) : wideUnits(m_units, m_length);
    }

private:
    wchar_t m_units[size] = {};
    UINT m_length = 0;
};

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
