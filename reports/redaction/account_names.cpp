#include "account_names.h"

#include "folding.h"
#include "known_folders.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

bool isAlnum(char byte)
{
    return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool isNameByte(char byte)
{
    return isAlnum(byte) || static_cast<unsigned char>(byte) >= 0x80;
}

bool isLocalByte(char byte)
{
    return isNameByte(byte) || (byte != '\0' && std::strchr("._%+-'", byte) != nullptr);
}

bool isDomainByte(char byte)
{
    return isNameByte(byte) || byte == '.' || byte == '-';
}

template <typename Is>
std::size_t runBefore(std::string_view text, std::size_t at, Is is)
{
    while (at > 0 && is(text[at - 1]))
        --at;
    return at;
}

template <typename Is>
std::size_t runAfter(std::string_view text, std::size_t at, Is is)
{
    while (at < text.size() && is(text[at]))
        ++at;
    return at;
}

bool isFileExtension(std::string_view label)
{
    static constexpr const char *extensions[] = {"png", "svg", "jpg", "ico", "txt", "log", "ini", "xml", "json", "html"};
    const std::u16string name = folded(label);
    return isProgramFile(u"x." + name) || std::any_of(std::begin(extensions), std::end(extensions), [&name](const char *extension) {
               return name == folded(std::string_view(extension));
           });
}

/// Whether \a domain looks like one of the Internet: "birkental.example".
bool hasTopLevel(std::string_view domain)
{
    const std::size_t point = domain.rfind('.');
    if (point == std::string_view::npos || point == 0 || domain.size() - point < 3)
        return false;
    const std::string_view last = domain.substr(point + 1);
    return std::none_of(last.begin(), last.end(), [](char byte) { return byte >= '0' && byte <= '9'; }) && !isFileExtension(last);
}

void add(Findings &findings, std::size_t begin, std::size_t end, AliasKind kind)
{
    if (end > begin)
        findings.push_back({int(begin), int(end), kind, Reason::Form});
}

void findMailAddress(std::string_view text, std::size_t at, bool isFree, Findings &findings)
{
    std::size_t begin = runBefore(text, at, isLocalByte);
    while (begin < at && !isNameByte(text[begin]))
        ++begin;
    std::size_t end = runAfter(text, at + 1, isDomainByte);
    while (end > at + 1 && !isNameByte(text[end - 1]))
        --end;
    if (begin == at || end == at + 1)
        return;
    const std::string_view domain = text.substr(at + 1, end - at - 1);
    const bool isInternet = hasTopLevel(domain);
    if (!isInternet && (!isFree || domain.find('.') != std::string_view::npos))
        return;
    add(findings, begin, at, AliasKind::User);
    add(findings, at + 1, end, AliasKind::Domain);
}

/// "//user:password@host:80/": \a begin is behind the slashes.
void findAuthority(std::string_view text, std::size_t begin, Findings &findings)
{
    const std::size_t end = std::min(text.find_first_of(" \t\n\"'<>/\\;,", begin), text.size());
    const std::string_view authority = text.substr(begin, end - begin);
    const std::size_t at = authority.rfind('@');
    if (at == std::string_view::npos)
        return;
    const std::size_t colon = std::min(authority.find(':'), at);
    add(findings, begin, begin + colon, AliasKind::User);
    std::size_t hostEnd = runAfter(text, begin + at + 1, isDomainByte);
    hostEnd = std::min(hostEnd, end);
    const std::string_view host = text.substr(begin + at + 1, hostEnd - begin - at - 1);
    const bool hasLetter = std::any_of(host.begin(), host.end(), [](char byte) { return isNameByte(byte) && (byte < '0' || byte > '9'); });
    if (hasLetter)
        add(findings, begin + at + 1, hostEnd, AliasKind::Host);
}

void findSecurityIdentifier(std::string_view text, std::size_t at, Findings &findings)
{
    constexpr std::string_view start = "S-1-5-21-";
    if (text.compare(at, start.size(), start) != 0 || (at > 0 && isAlnum(text[at - 1])))
        return;
    const std::size_t end = runAfter(text, at + start.size(), [](char byte) { return byte == '-' || (byte >= '0' && byte <= '9'); });
    if (end > at + start.size())
        add(findings, at, end, AliasKind::User);
}

bool isAccountByte(char byte)
{
    return isNameByte(byte) || byte == '_' || byte == '.' || byte == '-' || byte == '$';
}

} // namespace

void findAccountNames(std::string_view text, bool isFree, Findings &findings)
{
    for (std::size_t at = text.find('@'); at != std::string_view::npos; at = text.find('@', at + 1))
        findMailAddress(text, at, isFree, findings);
    for (std::size_t at = text.find("://"); at != std::string_view::npos; at = text.find("://", at + 3))
        findAuthority(text, at + 3, findings);
    for (std::size_t at = text.find("S-1-5-21-"); at != std::string_view::npos; at = text.find("S-1-5-21-", at + 1))
        findSecurityIdentifier(text, at, findings);
}

void findAccountPairs(std::string_view text, std::vector<AccountPair> &pairs)
{
    for (std::size_t at = text.find('\\'); at != std::string_view::npos; at = text.find('\\', at + 1)) {
        const std::size_t begin = runBefore(text, at, isAccountByte);
        const std::size_t next = runAfter(text, at, [](char byte) { return byte == '\\'; }); // "\\" of a programming language
        const std::size_t end = runAfter(text, next, isAccountByte);
        const bool isPath = (begin > 0 && std::strchr("\\/:", text[begin - 1])) || (end < text.size() && std::strchr("\\/", text[end]));
        const bool isPair = begin < at && end > next && next - at <= 2 && !isPath;
        if (isPair)
            pairs.push_back({{int(begin), int(at), AliasKind::Domain, Reason::Form}, {int(next), int(end), AliasKind::User, Reason::Form}});
        at = next - 1;
    }
}

} // namespace Reports
} // namespace velkor
