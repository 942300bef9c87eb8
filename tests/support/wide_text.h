// Passes a QString to the wide calls of Windows.
#pragma once

#include <QtCore/QString>
#include <windows.h>

inline const WCHAR *wide(const QString &text)
{
    return reinterpret_cast<const WCHAR *>(text.utf16());
}
