// Bytes of reports as text.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace velkor {
namespace Reports {

/// All of \a utf8. In Qt 5, QString::fromUtf8() of a QByteArray ends at the first null, which a report
/// can contain.
inline QString decodedText(const QByteArray &utf8)
{
    return QString::fromUtf8(utf8.constData(), utf8.size());
}

} // namespace Reports
} // namespace velkor
