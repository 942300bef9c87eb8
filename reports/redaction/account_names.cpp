#include "account_names.h"

#include "byte_set.h"
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

bool isHostByte(char byte)
{
    return isDomainByte(byte) || byte == '_';
}

bool isLetterOrDigit(char16_t symbol)
{
    return symbol >= 0x80 || isAlnum(char(symbol));
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

bool isNumber(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char byte) { return byte >= '0' && byte <= '9'; });
}

void add(Findings &findings, std::size_t begin, std::size_t end, AliasKind kind)
{
    if (end > begin)
        findings.push_back({int(begin), int(end), kind, Reason::Form});
}

/// Whether \a begin is behind the colon of "//user:password@".
bool isPassword(std::string_view text, std::size_t begin)
{
    constexpr std::size_t farthest = 256;
    if (begin == 0 || text[begin - 1] != ':')
        return false;
    const std::size_t start = begin > farthest ? begin - farthest : 0;
    const std::string_view before = text.substr(start, begin - start);
    const std::size_t slashes = before.rfind("//");
    return slashes != std::string_view::npos && before.find_first_of(" \t\n\"'", slashes) == std::string_view::npos;
}

void findMailAddress(std::string_view text, std::size_t at, bool isFree, Findings &findings)
{
    std::size_t begin = runBefore(text, at, isLocalByte);
    while (begin < at && !isNameByte(text[begin]))
        ++begin;
    std::size_t end = runAfter(text, at + 1, isDomainByte);
    while (end > at + 1 && !isNameByte(text[end - 1]))
        --end;
    if (begin == at || end == at + 1 || isPassword(text, begin))
        return;
    const std::string_view domain = text.substr(at + 1, end - at - 1);
    if (isNumber(text.substr(begin, at - begin))) { // "27000@licences": the port of a licence server
        add(findings, at + 1, end, AliasKind::Host);
        return;
    }
    const bool isInternet = hasTopLevel(domain);
    if (!isInternet && !isFree)
        return;
    add(findings, begin, at, AliasKind::User);
    add(findings, at + 1, end, AliasKind::Domain);
}

/// Whether everybody knows the host: of a manufacturer, or of this machine itself.
bool isPublicHost(std::string_view host)
{
    static constexpr const char *domains[] = {"microsoft.com", "windows.com", "windowsupdate.com", "office.com", "live.com",
                                              "google.com", "github.com", "gitlab.com", "qt.io", "mozilla.org", "python.org",
                                              "debian.org", "winehq.org", "apple.com", "intel.com", "amd.com", "nvidia.com",
                                              "wikipedia.org", "w3.org", "localhost"};
    const std::u16string name = folded(host);
    return std::any_of(std::begin(domains), std::end(domains), [&name](const char *domain) {
        const std::u16string end = folded(std::string_view(domain));
        return name == end || (name.size() > end.size() && name[name.size() - end.size() - 1] == u'.' && name.compare(name.size() - end.size(), end.size(), end) == 0);
    });
}

/// "//user:password@host:80/": \a begin is behind the slashes.
void findAuthority(std::string_view text, std::size_t begin, Findings &findings)
{
    const std::size_t end = std::min(text.find_first_of(" \t\n\"'<>/\\;,?#", begin), text.size());
    const std::string_view authority = text.substr(begin, end - begin);
    const std::size_t at = authority.rfind('@');
    std::size_t hostBegin = begin;
    if (at != std::string_view::npos) {
        add(findings, begin, begin + std::min(authority.find(':'), at), AliasKind::User);
        hostBegin += at + 1;
    }
    const std::size_t hostEnd = std::min(runAfter(text, hostBegin, isHostByte), end);
    const std::string_view host = text.substr(hostBegin, hostEnd - hostBegin);
    const bool hasLetter = std::any_of(host.begin(), host.end(), [](char byte) { return isNameByte(byte) && (byte < '0' || byte > '9'); });
    if (hasLetter && !isPublicHost(host))
        add(findings, hostBegin, hostEnd, AliasKind::Host);
}

/// "user=jorn", "--login jorn": what follows a word for an account.
void findAssignedAccount(std::string_view text, std::size_t at, Findings &findings)
{
    static constexpr std::string_view labels[] = {"user", "username", "user id", "userid", "uid", "login", "account", "user name"};
    const std::size_t start = at > 12 ? at - 12 : 0;
    std::size_t end = at;
    while (end > start && text[end - 1] == ' ')
        --end;
    const std::u16string before = folded(text.substr(start, end - start));
    const bool isLabel = std::any_of(std::begin(labels), std::end(labels), [&before](std::string_view label) {
        const std::u16string name = folded(label);
        return before.size() >= name.size() && before.compare(before.size() - name.size(), name.size(), name) == 0
            && (before.size() == name.size() || !isLetterOrDigit(before[before.size() - name.size() - 1]));
    });
    if (!isLabel)
        return;
    std::size_t begin = at + 1;
    while (begin < text.size() && (text[begin] == ' ' || text[begin] == '"' || text[begin] == '\''))
        ++begin;
    constexpr std::size_t longest = 256;
    const std::string_view value = text.substr(begin, longest);
    const std::size_t stop = begin + std::min(value.find_first_of(" \t\n\"';&,%"), value.size());
    if (stop < text.size() && text[stop] == '%') // a reference to a variable
        return;
    add(findings, begin, stop, AliasKind::User);
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

/// Whether what stands at \a begin belongs to a path that began before it.
bool isInPath(std::string_view text, std::size_t begin)
{
    static constexpr ByteSet delimiters("\";\n=(<,");
    static constexpr ByteSet separators("\\/:");
    constexpr std::size_t farthest = 100;
    for (std::size_t at = begin; at > 0 && begin - at < farthest; --at) {
        if (delimiters.has(text[at - 1]))
            return false;
        if (!separators.has(text[at - 1]))
            continue;
        const std::size_t word = runBefore(text, at - 1, isAccountByte);
        const bool isPair = text[at - 1] == '\\' && at < begin && word < at - 1 && (word == 0 || text[word - 1] == ' ');
        if (!isPair)
            return at == begin || text[at - 1] == '\\';
    }
    return false;
}

} // namespace

void findAccountNames(std::string_view text, bool isFree, Findings &findings)
{
    for (std::size_t at = text.find('@'); at != std::string_view::npos; at = text.find('@', at + 1))
        findMailAddress(text, at, isFree, findings);
    for (std::size_t at = text.find("://"); at != std::string_view::npos; at = text.find("://", at + 3))
        findAuthority(text, at + 3, findings);
    for (std::size_t at = text.find('='); at != std::string_view::npos; at = text.find('=', at + 1))
        findAssignedAccount(text, at, findings);
    for (std::size_t at = text.find("S-1-5-21-"); at != std::string_view::npos; at = text.find("S-1-5-21-", at + 1))
        findSecurityIdentifier(text, at, findings);
}

void findAccountPairs(std::string_view text, std::vector<AccountPair> &pairs)
{
    for (std::size_t at = text.find('\\'); at != std::string_view::npos; at = text.find('\\', at + 1)) {
        const std::size_t begin = runBefore(text, at, isAccountByte);
        const std::size_t next = runAfter(text, at, [](char byte) { return byte == '\\'; }); // "\\" of a programming language
        std::size_t end = runAfter(text, next, [](char byte) {
            static constexpr ByteSet ends = ByteSet(" \"';,<>\\/").withControls();
            return !ends.has(byte);
        });
        const bool isPath = (end < text.size() && (text[end] == '\\' || text[end] == '/')) || isInPath(text, begin);
        static constexpr ByteSet closing(".:!?)]");
        while (end > next && closing.has(text[end - 1]))
            --end;
        const bool isPair = begin < at && end > next && next - at <= 2 && !isPath;
        if (isPair)
            pairs.push_back({{int(begin), int(at), AliasKind::Domain, Reason::Form}, {int(next), int(end), AliasKind::User, Reason::Form}});
        at = next - 1;
    }
}

} // namespace Reports
} // namespace velkor
