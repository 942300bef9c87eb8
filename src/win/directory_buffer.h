// The buffer that paths of system directories are read into.
#pragma once

#include "win/registry_key.h"

#include <algorithm>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// Keeps what it held when a path does not fit.
class DirectoryBuffer
{
public:
    static constexpr UINT size = 1024; // in units

    /// Calls GetSystemWindowsDirectoryW or one like it; its result.
    UINT read(UINT(WINAPI *call)(wchar_t *, UINT)) { return m_length = call(m_units, size); }

    /// The last call needed a larger buffer.
    bool isTooSmall() const { return m_length > size; }
    /// As many units as the last call returned; what the buffer holds where it is too small.
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
