// What the texts of values mean.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <optional>

namespace velkor {
namespace Reports {

/// The integer at the beginning of \a text: "40457 = 0x9e09", "0x3d1b3fff", "3600 MHz", "-60", "45%".
/// Spaces may precede it. Empty if there is none or if it does not fit.
std::optional<qint64> integerOf(const QByteArray &text);

/// The count of bytes at the beginning of \a text: "17055318016 Byte = 15.8 GByte", "4096". Of
/// "70.6 GByte" the smallest count that is written so.
std::optional<quint64> bytesOf(const QByteArray &text);

/// The number at the beginning of \a text, as the format writes it: "95.9161", "60.02 Hz"; not infinite.
std::optional<double> realOf(const QByteArray &text);

/// The date of \a text in ISO 8601, or an empty text. Understands the forms that a report has:
/// "07/19/2021", "07/19/21", "6-21-2006", "05.12.2023 09:41:07", "Tue Dec 05 09:41:07 2023". Digits
/// can be those of any script. Two digits of a year: 70 to 99 are of the twentieth century.
QString isoDateOf(const QString &text);

} // namespace Reports
} // namespace velkor
