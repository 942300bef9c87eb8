#include "alias_text.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QMessageAuthenticationCode>
#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

constexpr int kinds = int(AliasKind::Word) + 1;
constexpr std::string_view lengthName = "length";
constexpr int keyedDigits = 12;

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool isAliasByte(char byte)
{
    return isDigit(byte) || (byte >= 'a' && byte <= 'z') || byte == '-';
}

const std::vector<std::string> &aliasNames()
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all {std::string(lengthName)};
        for (int kind = 0; kind < kinds; ++kind)
            all.push_back(aliasKindName(AliasKind(kind)).toStdString());
        return all;
    }();
    return names;
}

/// Whether the name of a kind ends with the two letters.
bool endsAliasName(char first, char second)
{
    const std::vector<std::string> &names = aliasNames();
    return std::any_of(names.begin(), names.end(), [=](const std::string &name) {
        return name[name.size() - 2] == first && name[name.size() - 1] == second;
    });
}

/// Decimal digits of \a hash, one for each of its first bytes.
QByteArray digitsOf(const QByteArray &hash, int count)
{
    QByteArray digits;
    unsigned value = 0;
    for (int i = 0; i < count; ++i) { // two bytes a digit: no digit is noticeably more frequent
        value = static_cast<unsigned char>(hash[2 * i]) * 256U + static_cast<unsigned char>(hash[2 * i + 1]);
        digits += char('0' + value % 10);
    }
    return digits;
}

} // namespace

QByteArray lengthAlias(int characters)
{
    return QByteArray(lengthName.data(), int(lengthName.size())) + '-' + QByteArray::number(characters);
}

std::size_t aliasLength(std::string_view text)
{
    for (const std::string &name : aliasNames()) {
        if (text.size() < name.size() + 2 || text.compare(0, name.size(), name) != 0 || text[name.size()] != '-')
            continue;
        std::size_t end = name.size() + 1;
        while (end < text.size() && isDigit(text[end]))
            ++end;
        const bool isAddress = end + 1 < text.size() && text[end] == '-' && isDigit(text[end + 1]); // "host-192-0-2-57"
        return end > name.size() + 1 && !isAddress ? end : 0;
    }
    return 0;
}

bool isInAlias(std::string_view text, std::size_t begin, std::size_t end)
{
    constexpr std::size_t longest = 40;
    if (end - begin > longest)
        return false;
    for (std::size_t start = begin;; --start) {
        const std::size_t length = aliasLength(text.substr(start));
        if (length > 0 && start + length >= end)
            return true;
        if (start == 0 || begin - start >= longest || !isAliasByte(text[start - 1]))
            return false;
    }
}

bool hasAlias(std::string_view text)
{
    for (std::size_t at = text.find('-'); at != std::string_view::npos; at = text.find('-', at + 1)) {
        if (at + 1 < text.size() && isDigit(text[at + 1]) && isInAlias(text, at, at + 2))
            return true;
    }
    return false;
}

bool hasOnlyAliases(std::string_view text)
{
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t length = aliasLength(text.substr(at));
        const bool isNameByte = static_cast<unsigned char>(text[at]) >= 0x80 || isDigit(text[at]) || (text[at] >= 'a' && text[at] <= 'z')
            || (text[at] >= 'A' && text[at] <= 'Z');
        if (length == 0 && isNameByte)
            return false;
        at += std::max<std::size_t>(length, 1);
    }
    return true;
}

AliasMaker::AliasMaker(const QByteArray &key)
    : hmacKey(key)
{
}

void AliasMaker::reserve(std::string_view text)
{
    if (!hmacKey.isEmpty())
        return;
    for (std::size_t at = text.find('-'); at != std::string_view::npos; at = text.find('-', at + 1)) {
        const bool isPossible = at > 1 && text[at - 1] >= 'a' && text[at - 2] >= 'a' && at + 1 < text.size() && isDigit(text[at + 1]) && endsAliasName(text[at - 2], text[at - 1]);
        if (!isPossible)
            continue;
        std::size_t begin = at;
        while (begin > 0 && text[begin - 1] >= 'a' && text[begin - 1] <= 'z' && at - begin < lengthName.size() + 2)
            --begin;
        for (; begin < at; ++begin) {
            if (const std::size_t length = aliasLength(text.substr(begin)))
                taken.insert(std::string(text.substr(begin, length)));
        }
    }
}

bool AliasMaker::take(const QByteArray &alias)
{
    return taken.insert(alias.toStdString()).second;
}

QString AliasMaker::make(AliasKind kind, const QByteArray &canonical)
{
    const QByteArray start = aliasKindName(kind).toLatin1() + '-';
    QByteArray alias;
    if (hmacKey.isEmpty()) {
        do
            alias = start + QByteArray::number(++numbers[int(kind)]);
        while (!take(alias));
        return QString::fromLatin1(alias);
    }
    const QByteArray hash = QMessageAuthenticationCode::hash(start + canonical, hmacKey, QCryptographicHash::Sha256);
    for (int digits = keyedDigits; digits <= hash.size() / 2; ++digits) { // more only if two things have the same digits
        alias = start + digitsOf(hash, digits);
        if (take(alias))
            break;
    }
    return QString::fromLatin1(alias);
}

} // namespace Reports
} // namespace velkor
