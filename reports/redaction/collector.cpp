#include "collector.h"

#include "alias_text.h"
#include "decoded_text.h"
#include "environment.h"
#include "fact_names.h"
#include "secrets.h"
#include "serial_numbers.h"

#include <algorithm>
#include <array>

namespace velkor {
namespace Reports {

namespace {

using What = FactTreatment::What;

QString decoded(std::string_view text)
{
    return QString::fromUtf8(text.data(), int(text.size()));
}

AliasKind kindOf(AddressFamily family)
{
    return family == AddressFamily::Mac ? AliasKind::Mac : AliasKind::Ip;
}

/// "PCI" of "PCI\\VEN_8086": what precedes the backslash in the ids of devices.
bool isEnumerator(std::string_view name)
{
    static constexpr std::string_view names[] = {"ACPI", "BTHENUM", "DISPLAY", "DISPLAY1", "Device", "HDAUDIO", "HID", "HID_DEVICE", "HTREE", "IDE", "INTELAUDIO",
                                                 "ISAPNP", "MMDEVAPI", "MONITOR", "PCI", "PCIIDE", "ROOT", "Root", "SCSI", "STORAGE", "SW", "SWD", "SYSTEM", "UMB", "USB", "USBPRINT",
                                                 "USBSTOR", "acpi", "hdaudio", "hid", "pci", "root", "scsi", "storage", "sw", "swd", "usb"};
    return std::binary_search(std::begin(names), std::end(names), name);
}

/// Whether every network can have the domain.
bool isCommonDomain(std::string_view name)
{
    static const std::unordered_set<std::u16string> names {u"ipv6-literal.net", u"in-addr.arpa", u"ip6.arpa", u"local", u"localdomain",
                                                           u"lan", u"home", u"internal", u"intranet"};
    return names.count(folded(name)) > 0;
}

/// Which bytes a text has, so that what cannot be in it is not searched.
class Contents
{
public:
    explicit Contents(std::string_view text)
    {
        for (const char byte : text)
            found |= marks()[static_cast<unsigned char>(byte)];
    }

    bool hasSeparator() const { return (found & separator) != 0; }
    bool hasDigit() const { return (found & digit) != 0; }
    /// One of "@", "=", ":", "/" and "\\", or a digit: names of accounts stand beside them.
    bool hasMark() const { return found != 0; }

private:
    static constexpr unsigned char separator = 1;
    static constexpr unsigned char digit = 2;
    static constexpr unsigned char other = 4;
    using Marks = std::array<unsigned char, 256>;

    static const Marks &marks()
    {
        static constexpr Marks all = [] {
            Marks bytes {};
            for (unsigned char byte = '0'; byte <= '9'; ++byte)
                bytes[byte] = digit;
            bytes[std::size_t('\\')] = bytes[std::size_t('/')] = separator;
            bytes[std::size_t('@')] = bytes[std::size_t('=')] = bytes[std::size_t(':')] = other;
            return bytes;
        }();
        return all;
    }

    unsigned char found = 0;
};

class Collector
{
public:
    Collector(const Document &readDocument, WordList &hideList, WordList &keepList, Identities &known)
        : document(readDocument), hide(hideList), keep(keepList), identities(known)
    {
    }

    Collected run()
    {
        forEachRegion(document, [this](const Region &visited) { collect(visited); });
        return std::move(result);
    }

private:
    void collect(const Region &visited)
    {
        region = &visited;
        text = region->text();
        static const FactTreatment otherText = [] {
            FactTreatment treatment;
            treatment.paths = PathContext::Free;
            return treatment;
        }();
        const bool isFact = region->fact() >= 0;
        const FactTreatment &treatment = isFact ? treatmentOf(document.facts()[std::size_t(region->fact())].row) : otherText;
        if (treatment.what == What::VariableName) {
            variable = decoded(text);
            return;
        }
        if (treatment.isProgram)
            result.programFolders.insert(folded(text));
        found = listed();
        if (treatment.what == What::Variable)
            collectVariable();
        else if (treatment.what != What::Search)
            collectFact(treatment);
        if (treatment.what != What::Variable)
            search(treatment);
        appendMapped(*region, found, result.planned);
    }

    /// What the user's lists say. To hide precedes to keep.
    Plan listed()
    {
        Plan hidden;
        Plan kept;
        std::vector<NamePlace> places;
        if (!hide.isEmpty()) {
            hide.find(text, places);
            for (NamePlace place : places) {
                while (place.end < int(text.size()) && text[std::size_t(place.end)] >= '0' && text[std::size_t(place.end)] <= '9')
                    ++place.end; // an alias before a digit would look like another alias
                if (!hasAlias(text.substr(std::size_t(place.begin), std::size_t(place.end - place.begin))))
                    put(hidden, place.begin, place.end, AliasKind::Word, Reason::Hidden, Identities::Stated);
            }
        }
        if (!keep.isEmpty()) {
            keep.find(text, places);
            for (const NamePlace &place : places)
                kept.push_back({place.begin, place.end, Planned::keep, Reason::Hidden, false});
        }
        normalise(hidden);
        return merged(hidden, kept, text);
    }

    void collectVariable()
    {
        FactTreatment treatment;
        treatment.paths = PathContext::Whole;
        switch (variableKind(variable)) {
        case VariableKind::Other:
            found = merged(lengths(), found, text);
            result.environmentValues += found.empty() ? 0 : 1;
            return;
        case VariableKind::User:
            name(AliasKind::User, Reason::Environment, Identities::Stated);
            break;
        case VariableKind::Host:
            hostOrDomain(AliasKind::Host, Reason::Environment);
            break;
        case VariableKind::Domain:
            hostOrDomain(AliasKind::Domain, Reason::Environment);
            break;
        case VariableKind::Personal:
            treatment.paths = PathContext::Personal;
            break;
        case VariableKind::Harmless:
        case VariableKind::Paths:
            break;
        }
        search(treatment);
    }

    /// Each line of the value becomes its length.
    Plan lengths() const
    {
        Plan plan;
        for (std::size_t begin = 0; begin <= text.size();) {
            const std::size_t end = std::min(text.find('\n', begin), text.size());
            std::string_view line = text.substr(begin, end - begin);
            while (!line.empty() && (line.back() == '\r'))
                line.remove_suffix(1);
            if (!line.empty() && aliasLength(line) != line.size())
                plan.push_back({int(begin), int(begin + line.size()), Planned::length, Reason::Environment, false});
            begin = end + 1;
        }
        return plan;
    }

    void collectFact(const FactTreatment &treatment)
    {
        if (treatment.what == What::Address)
            addresses(treatment.kind);
        else if (treatment.what == What::HostOrDomain)
            hostOrDomain(treatment.kind, Reason::Fact);
        else if (treatment.kind == AliasKind::User)
            name(AliasKind::User, Reason::Fact, isUserName() ? Identities::UserNameFact : Identities::Stated);
        else if (treatment.kind != AliasKind::Printer || !isCommonPrinter(decoded(text).trimmed()))
            name(treatment.kind, Reason::Fact, Identities::Stated);
    }

    bool isUserName() const { return qstrcmp(document.row(document.facts()[std::size_t(region->fact())]).key, "userName") == 0; }

    /// The first line of the text is a name. Further ones are replaced, but they say nothing about the rest of the text.
    void name(AliasKind kind, Reason reason, Identities::Rank rank)
    {
        Plan plan;
        for (std::size_t begin = 0; begin < text.size();) {
            const std::size_t lineEnd = std::min(text.find('\n', begin), text.size());
            const bool isFirst = begin == 0;
            std::size_t end = lineEnd;
            trim(begin, end);
            put(plan, int(begin), int(end), kind, reason, rank, isFirst);
            begin = lineEnd + 1;
        }
        found = merged(found, plan, text);
    }

    void trim(std::size_t &begin, std::size_t &end) const
    {
        const auto isSpace = [](char byte) { return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r'; };
        while (begin < end && isSpace(text[begin]))
            ++begin;
        while (end > begin && isSpace(text[end - 1]))
            --end;
    }

    /// "\\\\HOST", "HOST", "host.domain".
    void hostOrDomain(AliasKind kind, Reason reason)
    {
        std::size_t begin = 0;
        std::size_t end = text.size();
        trim(begin, end);
        while (begin < end && (text[begin] == '\\' || text[begin] == '/'))
            ++begin;
        Plan plan;
        const std::u16string symbols = folded(text.substr(begin, end - begin));
        if (symbols == u"console" || symbols == u"localhost")
            return;
        if (kind == AliasKind::Host)
            putHost(plan, int(begin), int(end), reason, Identities::Stated);
        else
            put(plan, int(begin), int(end), kind, reason, Identities::Stated);
        found = merged(found, plan, text);
    }

    void addresses(AliasKind kind)
    {
        Plan plan;
        const std::vector<AddressPlace> places = findAddresses(text);
        for (const AddressPlace &place : places) {
            if (!isCommonAddress(place) && !isInAlias(text, place.begin, place.begin + 1))
                putAddress(plan, place, Reason::Fact);
        }
        const bool isUnreadable = places.empty() && !hasAlias(text) && text.find('<') == std::string_view::npos
            && std::any_of(text.begin(), text.end(), [](char byte) { return byte >= '0' && byte <= '9'; });
        if (isUnreadable)
            name(kind, Reason::Fact, Identities::Stated);
        found = merged(found, plan, text);
    }

    /// What paths and forms show.
    void search(const FactTreatment &treatment)
    {
        const bool isFree = region->fact() < 0;
        const Contents contents(text);
        if (treatment.what == What::Search)
            searchSecrets(isFree);
        Findings findings;
        if (contents.hasSeparator()) {
            findPathNames(text, treatment.paths, findings, result.programFolders);
            take(findings);
            searchAccountPairs();
        }
        if (contents.hasMark()) {
            findAccountNames(text, isFree, findings);
            take(findings);
        }
        if (isForeign()) {
            findMailNames(text, findings);
            take(findings);
        }
        if (!contents.hasDigit())
            return;
        if (treatment.paths == PathContext::Command || isFree) {
            findSerialNumbers(text, treatment.isDevice, findings);
            take(findings);
        }
        if (treatment.hasAddresses)
            searchAddresses(isFree);
    }

    /// Whether the text stands before or behind the report.
    bool isForeign() const
    {
        if (region->fact() >= 0 || region->pieceCount() == 0)
            return false;
        const std::vector<Section> &sections = document.sections();
        return sections.empty() || region->piece(0).begin < sections.front().begin || region->piece(0).begin >= sections.back().end;
    }

    void take(Findings &findings)
    {
        if (findings.empty())
            return;
        Plan plan;
        for (const Finding &finding : findings) {
            if (finding.kind == AliasKind::Host)
                putHost(plan, finding.begin, finding.end, finding.reason, Identities::Found);
            else
                put(plan, finding.begin, finding.end, finding.kind, finding.reason, Identities::Found);
        }
        findings.clear();
        normalise(plan);
        found = merged(found, plan, text);
    }

    void searchSecrets(bool isFree)
    {
        Plan plan;
        for (const SecretPlace &place : findSecrets(text, isFree ? SecretContext::Free : SecretContext::Fact)) {
            if (isInAlias(text, place.begin, place.end))
                continue;
            const std::string_view bytes = text.substr(place.begin, place.end - place.begin);
            const int identity = identities.addBytes(AliasKind::Secret, QByteArray(bytes.data(), int(bytes.size())), decoded(bytes));
            plan.push_back({int(place.begin), int(place.end), identity, Reason::Form, false});
        }
        normalise(plan);
        found = merged(plan, found, text);
    }

    void searchAccountPairs()
    {
        std::vector<AccountPair> pairs;
        findAccountPairs(text, pairs);
        for (const AccountPair &pair : pairs) {
            if (isEnumerator(textOf(text, pair.domain)))
                continue;
            const Plan places {{pair.domain.begin, pair.domain.end, Planned::keep, Reason::Form, false},
                               {pair.user.begin, pair.user.end, Planned::keep, Reason::Form, false}};
            Plan inDocument;
            appendMapped(*region, places, inDocument);
            constexpr int longestName = 64;
            const int rest = std::min(longestName, int(text.size()) - pair.user.begin);
            if (inDocument.size() == places.size())
                result.accounts.push_back({inDocument[0], inDocument[1], decoded(textOf(text, pair.domain)),
                                           decoded(textOf(text, pair.user)), QByteArray(text.data() + pair.user.begin, rest)});
        }
    }

    void searchAddresses(bool isFree)
    {
        Plan plan;
        for (const AddressPlace &place : findAddresses(text)) {
            if (isCommonAddress(place) || isInAlias(text, place.begin, place.begin + 1))
                continue;
            if (place.isCertain || isBluetooth(place) || (isFree && isDottedQuad(place)) || isAfterHostMark(place.begin)) {
                putAddress(plan, place, Reason::Form);
                continue;
            }
            Plan inDocument;
            appendMapped(*region, {{int(place.begin), int(place.end), Planned::keep, Reason::SameElsewhere, false}}, inDocument);
            if (!inDocument.empty())
                result.addresses.push_back({inDocument.front(), kindOf(place.family), place.canonical});
        }
        found = merged(found, plan, text);
    }

    /// "BTHENUM\\Dev_001A7D779F3C".
    bool isBluetooth(const AddressPlace &place) const
    {
        constexpr std::string_view start = "Dev_";
        return place.family == AddressFamily::Mac && place.begin >= start.size()
            && text.compare(place.begin - start.size(), start.size(), start) == 0;
    }

    /// "192.0.2.57", unless a word before it says that it is a version.
    bool isDottedQuad(const AddressPlace &place) const
    {
        if (place.family != AddressFamily::Ip4 || text.find_first_of("-_%", place.begin) < place.end)
            return false;
        const std::size_t begin = place.begin > 12 ? place.begin - 12 : 0;
        const QString before = decoded(text.substr(begin, place.begin - begin)).toLower().trimmed();
        return !before.endsWith(QLatin1Char('v')) && !before.contains(QLatin1String("version"));
    }

    /// "//192.0.2.57", "user@192.0.2.57".
    bool isAfterHostMark(std::size_t begin) const
    {
        if (begin == 0)
            return false;
        const char before = text[begin - 1];
        return before == '@' || (begin > 1 && (before == '/' || before == '\\') && text[begin - 2] == before);
    }

    void putAddress(Plan &plan, const AddressPlace &place, Reason reason)
    {
        const std::string_view bytes = text.substr(place.begin, place.end - place.begin);
        const int identity = identities.addBytes(kindOf(place.family), place.canonical, decoded(bytes));
        plan.push_back({int(place.begin), int(place.end), identity, reason, false});
    }

    void putHost(Plan &plan, int begin, int end, Reason reason, Identities::Rank rank)
    {
        const std::string_view bytes = text.substr(std::size_t(begin), std::size_t(end - begin));
        const std::vector<AddressPlace> places = findAddresses(bytes);
        if (places.size() == 1 && places[0].begin <= 1 && (places[0].isCertain || places[0].end - places[0].begin == bytes.size())
            && places[0].family != AddressFamily::Mac) {
            AddressPlace place = places[0];
            place.begin += std::size_t(begin);
            place.end += std::size_t(begin);
            if (!isCommonAddress(place))
                putAddress(plan, place, reason);
            return;
        }
        const std::size_t point = bytes.find('.');
        if (point == std::string_view::npos || point == 0 || point + 1 == bytes.size()) {
            put(plan, begin, end, AliasKind::Host, reason, rank);
            return;
        }
        put(plan, begin, begin + int(point), AliasKind::Host, reason, rank);
        if (!isCommonDomain(bytes.substr(point + 1)))
            put(plan, begin + int(point) + 1, end, AliasKind::Domain, reason, rank);
    }

    void put(Plan &plan, int begin, int end, AliasKind kind, Reason reason, Identities::Rank rank, bool isSearched = true)
    {
        const std::string_view bytes = text.substr(std::size_t(begin), std::size_t(end - begin));
        const bool isRest = !keep.isEmpty() && hasAlias(bytes); // of a name in which a word was kept
        if (isRest || hasOnlyAliases(bytes) || isInAlias(text, std::size_t(begin), std::size_t(end)))
            return;
        const int identity = isSearched ? identities.add(kind, decoded(bytes), rank) : identities.addUnsearched(kind, decoded(bytes));
        plan.push_back({begin, end, identity, reason, false});
    }

    const Document &document;
    WordList &hide;
    WordList &keep;
    Identities &identities;
    Collected result;
    const Region *region = nullptr;
    std::string_view text;
    Plan found; ///< in the region
    QString variable;
};

} // namespace

Collected collect(const Document &document, WordList &hide, WordList &keep, Identities &identities)
{
    return Collector(document, hide, keep, identities).run();
}

} // namespace Reports
} // namespace velkor
