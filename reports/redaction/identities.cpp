#include "identities.h"

#include "folding.h"
#include "spellings.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

constexpr std::size_t mostSearched = 20000; // names; a text with more of them describes no machine
constexpr std::size_t netBiosLength = 15;

std::u16string symbolsOf(const QByteArray &bytes)
{
    std::u16string symbols;
    for (const char byte : bytes)
        symbols += char16_t(static_cast<unsigned char>(byte));
    return symbols;
}

} // namespace

Identities::Key Identities::keyOf(AliasKind kind, const std::u16string &canonical)
{
    return char16_t(kind) + canonical;
}

int Identities::addKey(AliasKind kind, const std::u16string &canonical, const QString &name, Rank rank)
{
    const auto [entry, isNew] = index.try_emplace(keyOf(kind, canonical), int(all.size()));
    if (isNew)
        all.push_back({kind, name, canonical, true, rank, -1});
    Identity &identity = all[std::size_t(entry->second)];
    if (rank < identity.rank) {
        identity.rank = rank;
        identity.name = name;
        if (made.size() > std::size_t(entry->second))
            made[std::size_t(entry->second)].reset();
    }
    return entry->second;
}

int Identities::add(AliasKind kind, const QString &name, Rank rank)
{
    const bool hasCodes = name.contains(QLatin1Char('%'));
    const QString decoded = hasCodes ? QString::fromUtf8(QByteArray::fromPercentEncoding(name.toUtf8())) : name;
    const int identity = addKey(kind, folded(name), decoded, rank);
    all[std::size_t(identity)].isSearched = true;
    return identity;
}

int Identities::addUnsearched(AliasKind kind, const QString &name)
{
    const int known = find(kind, name);
    if (known >= 0)
        return known;
    const int identity = add(kind, name, Found);
    all[std::size_t(identity)].isSearched = false;
    return identity;
}

int Identities::addBytes(AliasKind kind, const QByteArray &canonical, const QString &name)
{
    return addKey(kind, symbolsOf(canonical), name, Found);
}

int Identities::find(AliasKind kind, const QString &name) const
{
    return find(kind, folded(name));
}

int Identities::find(AliasKind kind, const std::u16string &symbols) const
{
    const auto found = index.find(keyOf(kind, symbols));
    return found == index.end() ? -1 : found->second;
}

int Identities::findBytes(AliasKind kind, const QByteArray &canonical) const
{
    const auto found = index.find(keyOf(kind, symbolsOf(canonical)));
    return found == index.end() ? -1 : found->second;
}

int Identities::root(int identity) const
{
    while (at(identity).same >= 0)
        identity = at(identity).same;
    return identity;
}

/// The better known of the two decides, of equally known ones the longer: not the order in the text, which differs
/// between reports that are to have the same aliases.
void Identities::join(int identity, int other)
{
    int kept = root(identity);
    int joined = root(other);
    if (kept == joined)
        return;
    const auto isBetter = [](const Identity &left, const Identity &right) {
        if (left.rank != right.rank)
            return left.rank < right.rank;
        if (left.canonical.size() != right.canonical.size())
            return left.canonical.size() > right.canonical.size();
        return left.canonical < right.canonical;
    };
    if (at(kept).kind == at(joined).kind && isBetter(at(joined), at(kept)))
        std::swap(kept, joined);
    all[std::size_t(joined)].same = kept;
}

std::vector<int> Identities::ofKind(AliasKind kind) const
{
    std::vector<int> found;
    for (int i = 0; i < count(); ++i) {
        if (at(i).kind == kind && at(i).isSearched)
            found.push_back(i);
    }
    std::stable_sort(found.begin(), found.end(), [this](int left, int right) { return at(left).rank < at(right).rank; });
    if (found.size() > mostSearched)
        found.resize(mostSearched);
    return found;
}

/// The name without what Windows appended to it: it is a name of something else.
QString Identities::searchedName(const Identity &identity) const
{
    if (identity.kind != AliasKind::User || std::size_t(identity.name.size()) != identity.canonical.size())
        return identity.name;
    return identity.name.left(int(withoutSuffix(identity.canonical).size()));
}

const std::vector<Spelling> &Identities::spellings(int identity) const
{
    made.resize(std::max(made.size(), all.size()));
    std::optional<std::vector<Spelling>> &known = made[std::size_t(identity)];
    if (!known)
        known = spellingsOf(at(identity).kind, searchedName(at(identity)), at(identity).rank <= Stated);
    return *known;
}

/// "jorn" of "jorn.BIRKENTAL", "jorn.000" and "jorn_old": folders of a user that Windows or somebody made anew.
std::u16string Identities::withoutSuffix(const std::u16string &name) const
{
    static const std::unordered_set<std::u16string> suffixes {u"old", u"alt", u"bak", u"backup", u"new", u"neu", u"adm", u"admin", u"v2", u"v6",
                                                              u"temp", u"tmp", u"copy", u"kopie", u"orig"};
    const std::size_t mark = name.find_last_of(u"._-");
    if (mark == std::u16string::npos || mark == 0)
        return name;
    const std::u16string suffix = name.substr(mark + 1);
    const bool isNumber = !suffix.empty() && suffix.find_first_not_of(u"0123456789") == std::u16string::npos;
    const bool isPlace = index.count(keyOf(AliasKind::Host, suffix)) > 0 || index.count(keyOf(AliasKind::Domain, suffix)) > 0;
    return isNumber || isPlace || suffixes.count(suffix) > 0 ? name.substr(0, mark) : name;
}

void Identities::uniteUsers()
{
    const std::vector<int> users = ofKind(AliasKind::User);
    std::unordered_map<std::u16string, int> known;
    std::unordered_map<std::u16string, int> shortened;
    std::unordered_map<std::u16string, int> whole;
    for (const int user : users) {
        for (const std::u16string &variant : variantsOfName(at(user).name))
            whole.try_emplace(variant, user);
        for (const std::u16string &base : shortNameBases(at(user).name))
            shortened.try_emplace(base, user);
        for (const Spelling &spelling : spellings(user)) {
            if (at(user).rank <= Stated)
                known.try_emplace(spelling.symbols, user);
        }
        known.try_emplace(at(user).canonical, user);
    }
    for (const int user : users) {
        const std::u16string &name = at(user).canonical;
        auto found = known.find(name);
        if (found == known.end() || found->second == user)
            found = known.find(withoutSuffix(name));
        if (found != known.end() && found->second != user)
            join(found->second, user);
        if (!isShortName(name))
            continue;
        const auto longName = shortened.find(shortNameBase(name));
        if (longName != shortened.end() && longName->second != user)
            join(longName->second, user);
    }
    std::unordered_map<std::u16string, int> byWords;
    for (const int user : users)
        join(byWords.try_emplace(wordsAsOne(at(user).name), user).first->second, user);
    for (const int user : users) { // a full name of which a part is the name of another account
        if (at(user).rank > Stated)
            continue;
        for (const Spelling &spelling : spellings(user)) {
            const auto account = whole.find(spelling.symbols);
            if (account != whole.end() && account->second != user)
                join(user, account->second);
        }
    }
}

void Identities::uniteHosts()
{
    const std::vector<int> hosts = ofKind(AliasKind::Host);
    std::unordered_map<std::u16string, int> truncated;
    for (const int host : hosts) {
        if (at(host).canonical.size() > netBiosLength)
            truncated.try_emplace(at(host).canonical.substr(0, netBiosLength), host);
    }
    for (const int host : hosts) {
        const auto found = truncated.find(at(host).canonical);
        if (found != truncated.end() && root(found->second) != root(host))
            all[std::size_t(root(host))].same = root(found->second);
    }
}

void Identities::uniteDomains()
{
    const std::vector<int> domains = ofKind(AliasKind::Domain);
    std::unordered_map<std::u16string, int> known; // by their labels
    for (const int domain : domains) {
        if (at(domain).canonical.find(u'.') == std::u16string::npos)
            continue;
        for (const Spelling &spelling : spellings(domain)) {
            if (spelling.symbols.find(u'.') == std::u16string::npos)
                known.try_emplace(spelling.symbols, domain);
        }
    }
    for (const int domain : domains) {
        const std::u16string &name = at(domain).canonical;
        const auto host = index.find(keyOf(AliasKind::Host, name));
        const auto full = known.find(name);
        if (host != index.end())
            join(host->second, domain);
        else if (full != known.end() && root(full->second) != root(domain))
            all[std::size_t(root(domain))].same = root(full->second);
    }
}

/// A folder or share with the name of a user, host or organisation.
void Identities::uniteFolders()
{
    std::unordered_map<std::u16string, int> known;
    for (const AliasKind kind : {AliasKind::User, AliasKind::Organisation, AliasKind::Host, AliasKind::Domain}) {
        for (const int owner : ofKind(kind)) {
            known.try_emplace(at(owner).canonical, owner);
            for (const Spelling &spelling : spellings(owner))
                known.try_emplace(spelling.symbols, owner);
        }
    }
    for (const AliasKind kind : {AliasKind::Folder, AliasKind::Share}) {
        for (const int folder : ofKind(kind)) {
            std::u16string name = at(folder).canonical;
            if (!name.empty() && name.back() == u'$') // a hidden share
                name.pop_back();
            const auto found = known.find(name);
            if (found != known.end())
                join(found->second, folder);
        }
    }
}

void Identities::unite()
{
    uniteUsers();
    uniteHosts();
    uniteDomains();
    uniteFolders();
}

QByteArray Identities::canonical(int identity) const
{
    const Identity &decides = at(root(identity));
    const std::u16string symbols = decides.kind == AliasKind::User ? wordsAsOne(decides.name) : decides.canonical;
    QByteArray bytes;
    for (const char16_t code : symbols) {
        bytes += char(code >> 8U);
        bytes += char(code & 0xffU);
    }
    return bytes;
}

void Identities::addTo(NameSearch &search) const
{
    static constexpr AliasKind order[] = {AliasKind::User, AliasKind::Host, AliasKind::Domain, AliasKind::Organisation,
                                          AliasKind::Product, AliasKind::Serial, AliasKind::Printer, AliasKind::Label,
                                          AliasKind::Share, AliasKind::Folder, AliasKind::Secret};
    const auto boundariesOf = [this](int identity, Boundaries boundaries) {
        const bool isTruncated = at(identity).kind == AliasKind::Host && at(identity).canonical.size() == netBiosLength && at(identity).same >= 0;
        return isTruncated ? Boundaries::Whole : boundaries;
    };
    for (const bool onlyOwn : {true, false}) { // a spelling of one name can be another name
        for (const AliasKind kind : order) {
            for (const int identity : ofKind(kind)) {
                for (const Spelling &spelling : spellings(identity)) {
                    if (!onlyOwn || spelling.symbols == at(identity).canonical)
                        search.add(spelling.symbols, root(identity), boundariesOf(identity, spelling.boundaries));
                }
            }
        }
    }
}

} // namespace Reports
} // namespace velkor
