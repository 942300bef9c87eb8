// A part of a text.
#pragma once

/// Offsets of bytes: \a end is that after the last byte.
struct TextRange
{
    int begin = 0;
    int end = 0;
};

inline bool operator==(TextRange a, TextRange b) { return a.begin == b.begin && a.end == b.end; }
inline bool operator!=(TextRange a, TextRange b) { return !(a == b); }
