#include "values.h"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <QtCore/QStringList>
#include <cmath>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

int digitOf(char character, int base)
{
    if (character >= '0' && character <= '9')
        return character - '0';
    if (base == 16 && character >= 'a' && character <= 'f')
        return character - 'a' + 10;
    return -1;
}

int skipSpaces(const QByteArray &text)
{
    int at = 0;
    while (at < text.size() && (text[at] == ' ' || uchar(text[at]) == 0xc2 || uchar(text[at]) == 0xa0))
        ++at;
    return at;
}

/// Reads digits from \a at on and moves it behind them. Empty if there are none or too many.
std::optional<quint64> digits(const QByteArray &text, int &at, int base)
{
    const int begin = at;
    quint64 value = 0;
    for (; at < text.size() && digitOf(text[at], base) >= 0; ++at) {
        const quint64 digit = quint64(digitOf(text[at], base));
        if (value > (~quint64(0) - digit) / quint64(base))
            return std::nullopt;
        value = value * quint64(base) + digit;
    }
    return at > begin ? std::optional<quint64>(value) : std::nullopt;
}

struct Unit
{
    const char *name;
    int shift;
};

constexpr Unit units[] = {{"GByte", 30}, {"MByte", 20}, {"KByte", 10}};

/// The smallest count of bytes that is written as \a whole and \a tenths of a unit.
quint64 smallestCount(quint64 whole, quint64 tenths, int shift)
{
    const quint64 parts = (tenths * 1024 + 9) / 10;
    return (whole << shift) + (parts << (shift - 10));
}

QString asciiDigits(const QString &text)
{
    QString result;
    for (const QChar character : text)
        result += character.isDigit() ? QChar(ushort('0' + character.digitValue())) : character;
    return result;
}

QString iso(int year, int month, int day)
{
    const QDate date(year, month, day);
    return date.isValid() && year >= 1 ? date.toString(Qt::ISODate) : QString();
}

/// Three numbers with \a separator between them; empty if \a text is anything else.
QVector<int> threeNumbers(const QString &text, char separator)
{
    QVector<int> numbers;
    const QStringList parts = text.split(QLatin1Char(separator));
    for (const QString &part : parts) {
        bool valid = false;
        const uint number = part.toUInt(&valid);
        if (!valid || part.size() > 4)
            return {};
        numbers += int(number);
    }
    return numbers.size() == 3 ? numbers : QVector<int>();
}

int wholeYear(const QString &text, char separator, int year)
{
    if (text.section(QLatin1Char(separator), 2, 2).size() > 2)
        return year;
    return year >= 70 ? 1900 + year : 2000 + year;
}

QString isoTime(const QString &text)
{
    const QTime time = QTime::fromString(text, QStringLiteral("hh:mm:ss"));
    return time.isValid() ? time.toString(Qt::ISODate) : QString();
}

/// "Tue Dec 05 09:41:07 2023", as asctime() writes it.
QString isoOfAscTime(const QString &text)
{
    static const QStringList months = {
        QStringLiteral("Jan"), QStringLiteral("Feb"), QStringLiteral("Mar"), QStringLiteral("Apr"), QStringLiteral("May"),
        QStringLiteral("Jun"), QStringLiteral("Jul"), QStringLiteral("Aug"), QStringLiteral("Sep"), QStringLiteral("Oct"),
        QStringLiteral("Nov"), QStringLiteral("Dec")};
    const QStringList parts = text.simplified().split(QLatin1Char(' '));
    if (parts.size() != 5 || !months.contains(parts[1]))
        return {};
    const QString date = iso(parts[4].toInt(), months.indexOf(parts[1]) + 1, parts[2].toInt());
    const QString time = isoTime(parts[3]);
    return date.isEmpty() || time.isEmpty() ? QString() : date + QLatin1Char('T') + time;
}

} // namespace

std::optional<qint64> integerOf(const QByteArray &text)
{
    int at = skipSpaces(text);
    const bool negative = at < text.size() && text[at] == '-';
    at += negative ? 1 : 0;
    const bool hexadecimal = !negative && text.mid(at, 2) == "0x";
    at += hexadecimal ? 2 : 0;
    const std::optional<quint64> value = digits(text, at, hexadecimal ? 16 : 10);
    const quint64 largest = quint64(1) << 63;
    if (!value || *value > largest || (*value == largest && !negative))
        return std::nullopt;
    return negative ? qint64(0 - *value) : qint64(*value);
}

std::optional<quint64> bytesOf(const QByteArray &text)
{
    int at = skipSpaces(text);
    const std::optional<quint64> whole = digits(text, at, 10);
    if (!whole || at == text.size() || text[at] != '.')
        return whole;
    ++at;
    const std::optional<quint64> tenths = digits(text, at, 10);
    at += at < text.size() ? 1 : 0;
    for (const Unit &unit : units) {
        if (tenths && *tenths < 10 && text.mid(at, int(std::strlen(unit.name))) == unit.name && *whole >> (63 - unit.shift) == 0)
            return smallestCount(*whole, *tenths, unit.shift);
    }
    return std::nullopt;
}

std::optional<double> realOf(const QByteArray &text)
{
    bool valid = false;
    const QString number = QString::fromUtf8(text).trimmed().section(QLatin1Char(' '), 0, 0);
    const double value = QLocale::c().toDouble(number, &valid);
    return valid && std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

QString isoDateOf(const QString &value)
{
    const QString text = asciiDigits(value.trimmed());
    for (const char separator : {'/', '-'}) {
        const QVector<int> numbers = threeNumbers(text, separator);
        if (!numbers.isEmpty())
            return iso(wholeYear(text, separator, numbers[2]), numbers[0], numbers[1]);
    }
    const QVector<int> numbers = threeNumbers(text.section(QLatin1Char(' '), 0, 0), '.');
    if (!numbers.isEmpty()) {
        const QString date = iso(numbers[2], numbers[1], numbers[0]);
        const QString time = isoTime(text.section(QLatin1Char(' '), 1));
        return date.isEmpty() || time.isEmpty() ? QString() : date + QLatin1Char('T') + time;
    }
    return isoOfAscTime(text);
}

} // namespace Reports
} // namespace velkor
