// Counted texts without the terminator that belongs to them.
#pragma once

#include <QtCore/QString>
#include <algorithm>
#include <windows.h>

namespace simulated {

/// For as long as it lives GetUserNameW and ExpandEnvironmentStringsW neither write nor
/// count a terminator. No Windows does so; sections are to bear it all the same.
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

/// The units of \a text as such a call counts them.
inline DWORD countedUnits(const QString &text)
{
    return DWORD(text.size()) + (UnterminatedTexts::inUse() ? 0 : 1);
}

/// Copies what countedUnits() counts; the caller has made sure of the room.
inline void copyCounted(const QString &text, LPWSTR buffer)
{
    std::copy_n(text.utf16(), countedUnits(text), buffer);
}

} // namespace simulated
