#include "alias_text.h"
#include "collector.h"
#include "decoded_text.h"
#include "fact_names.h"
#include "loose_texts.h"
#include "ordinary_words.h"
#include "replacements.h"
#include "text_encoding.h"

#include <QtCore/QSet>
#include <algorithm>
#include <iterator>

namespace velkor {
namespace Reports {

namespace {

bool isDomainKind(AliasKind kind)
{
    return kind == AliasKind::Domain || kind == AliasKind::Host || kind == AliasKind::Organisation;
}

std::string_view view(const QByteArray &bytes)
{
    return {bytes.constData(), std::size_t(bytes.size())};
}

int codePoints(std::string_view utf8)
{
    return int(std::count_if(utf8.begin(), utf8.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xc0U) != 0x80; }));
}

/// The aliases that were given, and what for.
class AliasBook
{
public:
    explicit AliasBook(const QByteArray &key)
        : maker(key)
    {
    }

    void reserve(std::string_view text) { maker.reserve(text); }

    /// The index of the alias.
    int take(AliasKind kind, const QByteArray &canonical, Reason reason, std::string_view original)
    {
        const auto [entry, isNew] = index.try_emplace(char(kind) + canonical.toStdString(), aliases.size());
        if (isNew) {
            Alias alias;
            alias.kind = kind;
            alias.text = maker.make(kind, canonical);
            aliases.push_back(alias);
            spellings.emplace_back();
        }
        Alias &alias = aliases[entry->second];
        ++alias.count;
        alias.reasons |= reason;
        if (kind != AliasKind::Secret)
            spellings[entry->second].insert(QString::fromUtf8(original.data(), int(original.size())));
        return int(entry->second);
    }

    QByteArray textOf(int alias) const { return aliases[std::size_t(alias)].text.toLatin1(); }

    std::vector<Alias> takeAll()
    {
        for (std::size_t i = 0; i < aliases.size(); ++i) {
            aliases[i].spellings = spellings[i].values();
            aliases[i].spellings.sort();
        }
        return std::move(aliases);
    }

private:
    AliasMaker maker;
    std::vector<Alias> aliases;
    std::vector<QSet<QString>> spellings;               ///< of an alias
    std::unordered_map<std::string, std::size_t> index; ///< of a thing in aliases
};

class Redactor
{
public:
    Redactor(const std::vector<Document> &given, const RedactionOptions &options, AliasBook &aliasBook)
        : documents(given), hide(options.hide), keep(options.keep), book(aliasBook)
    {
    }

    /// The redacted documents, and what was replaced in them. Adds to \a environmentValues.
    std::vector<Document> run(int &environmentValues, std::vector<Replacements> &replacements)
    {
        for (const Document &document : documents) {
            collected.push_back(collect(document, hide, keep, identities));
            programFolders.merge(collected.back().programFolders);
            environmentValues += collected.back().environmentValues;
            book.reserve(view(document.text()));
        }
        prepareSearch();
        if (takeAccounts())
            prepareSearch();
        searchNames();
        if (foundNewNames) {
            prepareSearch();
            searchNames();
        }
        std::vector<Document> redacted;
        replacements.assign(documents.size(), {});
        for (std::size_t i = 0; i < documents.size(); ++i)
            redacted.push_back(write(documents[i], wholePlan(i), replacements[i]));
        return redacted;
    }

private:
    void prepareSearch()
    {
        identities.unite();
        search = NameSearch();
        identities.addTo(search);
        search.build();
    }

    /// Whether \a list or search finds all of \a name. What it finds is in \c places then.
    template <typename Search>
    bool findsWhole(Search &list, const QString &name)
    {
        const QByteArray utf8 = name.toUtf8();
        list.find(view(utf8), places);
        return places.size() == 1 && places[0].begin == 0 && places[0].end == utf8.size();
    }

    bool isKnownDomain(const QString &name)
    {
        const std::u16string symbols = folded(name);
        for (const AliasKind kind : {AliasKind::Domain, AliasKind::Host, AliasKind::Organisation}) {
            if (identities.find(kind, symbols) >= 0)
                return true;
        }
        return findsWhole(search, name) && isDomainKind(identities.at(places[0].name).kind);
    }

    bool isKnownUser(const Collected::PossibleAccount &account)
    {
        if (identities.find(AliasKind::User, account.userName) >= 0)
            return distinctionOf(folded(account.userName)) != Distinction::None;
        search.find(view(account.fromUser), places);
        return !places.empty() && places[0].begin == 0 && identities.at(places[0].name).kind == AliasKind::User;
    }

    /// "DOMAIN\user" of which one is known. Returns whether there are new names.
    bool takeAccounts()
    {
        const int before = identities.count();
        for (Collected &document : collected) {
            Plan plan;
            for (const Collected::PossibleAccount &account : document.accounts) {
                const bool isDomain = isKnownDomain(account.domainName);
                if (!isDomain && !isKnownUser(account))
                    continue;
                put(plan, account.domain, AliasKind::Domain, account.domainName);
                put(plan, account.user, AliasKind::User, account.userName);
            }
            normalise(plan);
            accounts.push_back(std::move(plan));
        }
        return identities.count() > before;
    }

    void put(Plan &plan, Planned place, AliasKind kind, const QString &name)
    {
        const QByteArray utf8 = name.toUtf8();
        if (isInAlias(view(utf8), 0, std::size_t(utf8.size())) || findsWhole(keep, name))
            return;
        place.what = identities.add(kind, name, Identities::Found);
        plan.push_back(place);
    }

    void searchNames()
    {
        names.clear();
        foundNewNames = false;
        for (const Document &document : documents) {
            Plan plan;
            forEachRegion(document, [&](const Region &region) { searchRegion(document, region, plan); });
            names.push_back(std::move(plan));
        }
    }

    void searchRegion(const Document &document, const Region &region, Plan &plan)
    {
        const bool isName = region.fact() >= 0
            && treatmentOf(document.facts()[std::size_t(region.fact())].row).what == FactTreatment::What::VariableName;
        constexpr std::size_t shortest = 2;
        if (isName || search.isEmpty() || region.text().size() < shortest)
            return;
        const std::string_view text = region.text();
        search.find(text, places);
        Plan found;
        for (const NamePlace &place : places) {
            if (isInAlias(text, std::size_t(place.begin), std::size_t(place.end)))
                continue;
            if (identities.at(place.name).kind == AliasKind::Domain)
                addHostBefore(text, place.begin, found);
            found.push_back(withDigits(text, {place.begin, place.end, place.name, Reason::SameElsewhere, false}));
        }
        normalise(found);
        appendMapped(region, found, plan);
    }

    /// "jorn2" is another thing than "jorn", and an alias before a digit would look like another alias.
    Planned withDigits(std::string_view text, Planned place)
    {
        const auto end = std::size_t(place.end);
        const std::size_t behind = std::min(text.find_first_not_of("0123456789", end), text.size());
        if (behind == end)
            return place;
        const std::string_view name = text.substr(std::size_t(place.begin), behind - std::size_t(place.begin));
        place.end = int(behind);
        place.what = identities.addUnsearched(identities.at(identities.root(place.what)).kind, QString::fromUtf8(name.data(), int(name.size())));
        return place;
    }

    /// "printsrv" of "printsrv.birkental.example", whose domain begins at \a domain.
    void addHostBefore(std::string_view text, int domain, Plan &found)
    {
        const auto isLabelByte = [](char byte) {
            return static_cast<unsigned char>(byte) >= 0x80 || (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z')
                || (byte >= 'A' && byte <= 'Z') || byte == '-' || byte == '_';
        };
        if (domain < 2 || text[std::size_t(domain - 1)] != '.')
            return;
        int begin = domain - 1;
        while (begin > 0 && isLabelByte(text[std::size_t(begin - 1)]))
            --begin;
        if (begin == domain - 1 || isInAlias(text, std::size_t(begin), std::size_t(domain - 1)))
            return;
        const std::string_view label = text.substr(std::size_t(begin), std::size_t(domain - 1 - begin));
        const int before = identities.count();
        const int host = identities.add(AliasKind::Host, QString::fromUtf8(label.data(), int(label.size())), Identities::Found);
        foundNewNames = foundNewNames || identities.count() > before;
        if (found.empty() || found.back().end <= begin)
            found.push_back({begin, domain - 1, host, Reason::SameElsewhere, false});
    }

    Plan wholePlan(std::size_t i)
    {
        const std::string_view text = view(documents[i].text());
        Plan addresses;
        for (const Collected::PossibleAddress &address : collected[i].addresses) {
            const int identity = identities.findBytes(address.kind, address.canonical);
            if (identity < 0)
                continue;
            addresses.push_back(address.place);
            addresses.back().what = identity;
        }
        normalise(addresses);
        return merged(merged(merged(collected[i].planned, accounts[i], text), addresses, text), names[i], text);
    }

    /// A folder below a user's that programs have, too.
    bool isProgram(const Identity &identity) const
    {
        return identity.kind == AliasKind::Folder && programFolders.count(identity.canonical) > 0;
    }

    Document write(const Document &document, const Plan &plan, Replacements &replacements)
    {
        const QByteArray &text = document.text();
        QByteArray redacted;
        redacted.reserve(text.size());
        std::vector<Replaced> replaced;
        int at = 0;
        for (const Planned &place : plan) {
            if (place.what == Planned::keep || (place.what >= 0 && isProgram(identities.at(identities.root(place.what)))))
                continue;
            redacted.append(text.constData() + at, place.begin - at);
            const std::string_view original = view(text).substr(std::size_t(place.begin), std::size_t(place.end - place.begin));
            Replacement replacement;
            replacement.alias = place.continues && !replacements.empty() ? replacements.back().alias : aliasOf(original, place);
            replacement.begin = redacted.size();
            if (!place.continues)
                redacted += replacement.alias < 0 ? lengthAlias(codePoints(original)) : book.textOf(replacement.alias);
            std::copy_if(original.begin(), original.end(), std::back_inserter(redacted), [](char byte) { return byte == '\n' || byte == '\r'; });
            replacement.end = redacted.size();
            replacement.originalBegin = place.begin;
            replacement.originalEnd = place.end;
            replacements.push_back(replacement);
            at = place.end;
            if (document.data().isLoose)
                replaced.push_back({at, redacted.size()});
        }
        redacted.append(text.constData() + at, text.size() - at);
        if (document.encoding() == "UTF-16LE")
            redacted = toUtf16(redacted, Encoding::Utf16LittleEndian) + document.data().tail;
        else if (document.encoding() == "UTF-16BE")
            redacted = toUtf16(redacted, Encoding::Utf16BigEndian) + document.data().tail;
        if (at == 0)
            return document;
        return document.data().isLoose ? withText(document, redacted, replaced) : read(redacted);
    }

    /// The index of the alias, -1 for a length.
    int aliasOf(std::string_view original, const Planned &place)
    {
        if (place.what == Planned::length)
            return -1;
        const int identity = identities.root(place.what);
        return book.take(identities.at(identity).kind, identities.canonical(identity), place.reason, original);
    }

    const std::vector<Document> &documents;
    WordList hide;
    WordList keep;
    AliasBook &book;
    Identities identities;
    NameSearch search;
    std::vector<Collected> collected;
    std::unordered_set<std::u16string> programFolders;
    std::vector<Plan> accounts; ///< one for each document, as the following
    std::vector<Plan> names;
    std::vector<NamePlace> places;
    bool foundNewNames = false;
};

/// Whether an alias can change what the text around it is taken for: only in text that the library did not write.
bool needsSecondLook(const Document &document)
{
    const std::vector<Mark> &marks = document.data().marks;
    return document.states() != States() || std::any_of(marks.begin(), marks.end(), [](const Mark &mark) { return mark.kind == PlaceKind::Other; });
}

bool areEqual(const std::vector<Document> &left, const std::vector<Document> &right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](const Document &one, const Document &other) {
        return one.text() == other.text();
    });
}

} // namespace

Redaction redact(const std::vector<Document> &documents, const RedactionOptions &options)
{
    constexpr int mostRounds = 5;
    AliasBook book(options.key);
    Redaction result;
    result.documents = Redactor(documents, options, book).run(result.environmentValues, result.replacements);
    const bool isUsual = options.hide.isEmpty() && options.keep.isEmpty() && std::none_of(documents.begin(), documents.end(), needsSecondLook);
    for (int round = 1; round < mostRounds && !isUsual; ++round) {
        std::vector<Replacements> more;
        std::vector<Document> again = Redactor(result.documents, options, book).run(result.environmentValues, more);
        if (areEqual(again, result.documents))
            break;
        for (std::size_t i = 0; i < documents.size(); ++i)
            result.replacements[i] = composed(result.replacements[i], more[i]);
        result.documents = std::move(again);
    }
    result.aliases = book.takeAll();
    return result;
}

} // namespace Reports
} // namespace velkor
