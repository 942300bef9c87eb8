// Text for consoles of Windows.
#pragma once

#include <QtCore/QString>

/// One call writes at most this many UTF-16 units: consoles before Windows 8 accept less than 64 KByte.
constexpr int largestConsolePiece = 8192;

/// The length of the piece of \a text that starts at \a position. It does not end inside a surrogate pair, which a
/// console would show as two unknown characters.
int consolePieceLength(const QString &text, int position);
