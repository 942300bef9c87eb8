// Makes calls return counted text without its terminator.
#pragma once

#include <QtCore/QString>
#include <algorithm>
#include <windows.h>

namespace simulated {

/// While it exists, GetUserNameW and ExpandEnvironmentStringsW neither write nor count a
/// terminator. No known Windows does this, but sections must handle it.
class UnterminatedTexts
{
public:
    UnterminatedTexts() { s_inUse = true; }
    ~UnterminatedTexts() { s_inUse = false; }
    UnterminatedTexts(const UnterminatedTexts &) = delete;
    UnterminatedTexts &operator=(const UnterminatedTexts &) = delete;

    static bool inUse() { return s_inUse; }

private:
    inline static bool s_inUse = false;
};

/// The number of units that these calls return for \a text.
inline DWORD countedUnits(const QString &text)
{
    return DWORD(text.size()) + (UnterminatedTexts::inUse() ? 0 : 1);
}

/// Copies what countedUnits() counts; \a buffer must be large enough.
inline void copyCounted(const QString &text, LPWSTR buffer)
{
    std::copy_n(text.utf16(), countedUnits(text), buffer);
}

} // namespace simulated
