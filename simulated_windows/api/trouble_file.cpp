#include "trouble_file.h"

#include <QtCore/QFile>
#include <algorithm>

namespace simulated {
namespace {

constexpr int longestLine = 4096; // bytes, without the line end
constexpr int longestFile = 1024 * 1024;
constexpr int mostFields = 4;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Unlike QString::fromUtf8(QByteArray), does not stop at a null byte.
QString fromUtf8(const QByteArray &text)
{
    return QString::fromUtf8(text.constData(), text.size());
}

/// A decimal number of digits only, up to \a largest.
std::optional<quint32> readNumber(const QByteArray &text, quint32 largest)
{
    if (text.isEmpty() || !std::all_of(text.begin(), text.end(), isDigit))
        return std::nullopt;
    bool fits = false;
    const quint32 number = text.toUInt(&fits);
    return fits && number <= largest ? std::optional(number) : std::nullopt;
}

std::optional<TroubleKind> readKind(const QByteArray &text)
{
    if (text == "hang")
        return TroubleKind::hang();
    if (text == "crash")
        return TroubleKind::crash();
    if (text == "abort")
        return TroubleKind::abort();
    const int equals = text.indexOf('=');
    const QByteArray name = text.left(equals);
    const QByteArray number = equals < 0 ? QByteArray() : text.mid(equals + 1);
    const auto milliseconds = readNumber(number, 0xffffffff);
    if (name == "sleep" && milliseconds)
        return TroubleKind::sleep(*milliseconds);
    const auto code = readNumber(number, 0xff);
    if (name == "exit" && code)
        return TroubleKind::exit(quint8(*code));
    return std::nullopt;
}

bool isCallName(const QByteArray &text)
{
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    const auto isNamePart = [&](char c) { return isDigit(c) || isLetter(c) || c == '_'; };
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), isNamePart);
}

/// The field with that number; none if it is missing or matches anything.
std::optional<QByteArray> field(const QList<QByteArray> &fields, int number)
{
    if (number >= fields.size() || fields.at(number) == "*")
        return std::nullopt;
    return fields.at(number);
}

std::optional<QString> textField(const QList<QByteArray> &fields, int number)
{
    const auto bytes = field(fields, number);
    return bytes ? std::optional(fromUtf8(*bytes)) : std::nullopt;
}

/// Returns no line, and sets \a problem, if \a text cannot be read.
std::optional<TroubleLine> readLine(const QByteArray &text, QString &problem)
{
    const auto refuse = [&](const QString &reason) {
        problem = reason;
        return std::nullopt;
    };
    if (text.size() > longestLine)
        return refuse(QStringLiteral("longer than %1 bytes").arg(longestLine));
    if (fromUtf8(text).toUtf8() != text)
        return refuse(QStringLiteral("not UTF-8, or with a byte-order mark"));
    const QList<QByteArray> fields = text.split('\t');
    if (fields.size() < 2)
        return refuse(QStringLiteral("the call is missing"));
    if (fields.size() > mostFields)
        return refuse(QStringLiteral("more than %1 fields").arg(mostFields));
    const auto kind = readKind(fields.at(0));
    if (!kind)
        return refuse(QStringLiteral("unknown kind of trouble"));
    const auto call = field(fields, 1);
    if (call && !isCallName(*call))
        return refuse(QStringLiteral("the second field is not the name of a call"));
    return TroubleLine {{call, textField(fields, 2), textField(fields, 3)}, *kind};
}

} // namespace

std::vector<TroubleLine> readTroubleLines(const QByteArray &text, QStringList &problems)
{
    std::vector<TroubleLine> result;
    int number = 0;
    for (QByteArray line : text.split('\n')) {
        ++number;
        if (line.endsWith('\r'))
            line.chop(1);
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        QString problem;
        if (const auto read = readLine(line, problem))
            result.push_back(*read);
        else
            problems += QStringLiteral("%1: %2").arg(QString::number(number), problem);
    }
    return result;
}

std::vector<TroubleLine> troubleLinesOfEnvironment()
{
    const QString name = qEnvironmentVariable("VKSYSTEMINFO_TROUBLE");
    if (name.isEmpty() || !QFile::exists(name))
        return {};
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("%s: %s", qPrintable(name), qPrintable(file.errorString()));
        return {};
    }
    const QByteArray text = file.read(longestFile + 1);
    if (text.size() > longestFile) {
        qWarning("%s: larger than %d bytes", qPrintable(name), longestFile);
        return {};
    }
    QStringList problems;
    std::vector<TroubleLine> result = readTroubleLines(text, problems);
    for (const QString &problem : qAsConst(problems))
        qWarning("%s:%s", qPrintable(name), qPrintable(problem));
    return result;
}

} // namespace simulated
