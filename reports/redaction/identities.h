// What was found, and which names are of the same thing.
#pragma once

#include "name_search.h"
#include "spellings.h"
#include "vkReports.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace velkor {
namespace Reports {

/// Something that gets an alias.
struct Identity
{
    AliasKind kind = AliasKind::Word;
    QString name;             ///< of the spellings with the lowest rank the first, without percent codes
    std::u16string canonical; ///< the same for all spellings that differ in case and accents only; bytes of an address or a secret
    bool isSearched = true;   ///< whether it is replaced where the text does not say what it is
    int rank = 0;             ///< of names of the same thing the one with the lowest rank decides
    int same = -1;            ///< index of another name of the same thing
};

class Identities
{
public:
    /// Ranks of names, by how well the text says what they are.
    enum Rank {
        UserNameFact,
        Stated, ///< a fact or a variable
        Found,  ///< a path or a form
    };

    /// The index of the name; adds it if it is new.
    int add(AliasKind kind, const QString &name, Rank rank);
    /// The same for a name that is replaced only where it was found.
    int addUnsearched(AliasKind kind, const QString &name);
    /// Of an address or a secret, which is told by its bytes.
    int addBytes(AliasKind kind, const QByteArray &canonical, const QString &name);
    /// The index of a name or address that was added, or -1.
    int find(AliasKind kind, const QString &name) const;
    int find(AliasKind kind, const std::u16string &symbols) const;
    int findBytes(AliasKind kind, const QByteArray &canonical) const;

    /// Finds names of the same thing: a user's short and full name, a host's truncated name.
    void unite();
    /// The name that decides for all of the same thing. After unite().
    int root(int identity) const;
    const Identity &at(int identity) const { return all[std::size_t(identity)]; }
    int count() const { return int(all.size()); }
    /// What an alias is derived from. Equal for all names of one thing in reports of the same machine.
    QByteArray canonical(int identity) const;

    /// Adds all spellings to \a search.
    void addTo(NameSearch &search) const;

private:
    using Key = std::u16string;

    static Key keyOf(AliasKind kind, const std::u16string &canonical);
    int addKey(AliasKind kind, const std::u16string &canonical, const QString &name, Rank rank);
    std::vector<int> ofKind(AliasKind kind) const;
    /// The spellings of a name, which are made once.
    const std::vector<Spelling> &spellings(int identity) const;
    void join(int identity, int other);
    QString searchedName(const Identity &identity) const;
    std::u16string withoutSuffix(const std::u16string &name) const;
    void uniteUsers();
    void uniteHosts();
    void uniteDomains();
    void uniteFolders();

    std::vector<Identity> all;
    std::unordered_map<Key, int> index;
    mutable std::vector<std::optional<std::vector<Spelling>>> made;
};

} // namespace Reports
} // namespace velkor
