// UTF-16 and UTF-8, both ways without loss.
#pragma once

#include <QtCore/QByteArray>

namespace velkor {
namespace Reports {

enum class Encoding {
    Utf8,
    Utf16LittleEndian,
    Utf16BigEndian,
};

/// The encoding of \a bytes by its mark, or by the zeros that UTF-16 has in every second byte.
Encoding detectEncoding(const QByteArray &bytes);

/// UTF-8 of the UTF-16 in \a bytes. An unpaired surrogate becomes three bytes. The last byte of an
/// odd number of bytes is ignored.
QByteArray fromUtf16(const QByteArray &bytes, Encoding encoding);

/// The inverse of fromUtf16(). Bytes that are no UTF-8 are not expected.
QByteArray toUtf16(const QByteArray &text, Encoding encoding);

/// True if \a bytes are UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF.
bool isUtf8(const QByteArray &bytes);

} // namespace Reports
} // namespace velkor
