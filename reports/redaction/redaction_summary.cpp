#include "json_string.h"
#include "vkReports.h"

#include <array>

namespace velkor {
namespace Reports {

namespace {

struct KindRow
{
    AliasKind kind;
    const char *name; ///< what precedes the hyphen of an alias
    const char *one;  ///< for people
    const char *several;
};

/// In the order of the summary.
constexpr std::array<KindRow, 14> kindRows = {{
    {AliasKind::User, "user", "user name", "user names"},
    {AliasKind::Host, "host", "host name", "host names"},
    {AliasKind::Domain, "domain", "domain", "domains"},
    {AliasKind::Organisation, "org", "organisation", "organisations"},
    {AliasKind::Product, "product", "product id", "product ids"},
    {AliasKind::Serial, "serial", "serial number", "serial numbers"},
    {AliasKind::Mac, "mac", "MAC address", "MAC addresses"},
    {AliasKind::Ip, "ip", "IP address", "IP addresses"},
    {AliasKind::Printer, "printer", "printer", "printers"},
    {AliasKind::Label, "label", "drive label", "drive labels"},
    {AliasKind::Share, "share", "network drive", "network drives"},
    {AliasKind::Folder, "folder", "folder name", "folder names"},
    {AliasKind::Secret, "secret", "secret", "secrets"},
    {AliasKind::Word, "word", "other word", "other words"},
}};

struct ReasonRow
{
    Reason reason;
    const char *name; ///< in JSON
    const char *one;  ///< for people, of one thing
    const char *several;
};

constexpr std::array<ReasonRow, 6> reasonRows = {{
    {Reason::Fact, "fact", "a fact of the report reveals it", "facts of the report reveal them"},
    {Reason::SameElsewhere, "sameElsewhere", "it occurs elsewhere, too", "they occur elsewhere, too"},
    {Reason::Folder, "folder", "a path says what it is", "paths say what they are"},
    {Reason::Form, "form", "its form shows what it is", "their form shows what they are"},
    {Reason::Environment, "environment", "an environment variable holds it", "environment variables hold them"},
    {Reason::Hidden, "hidden", "the list of what to hide has it", "the list of what to hide has them"},
}};

constexpr char notAnonymous[] = "This report is not anonymous: its hardware, programs, versions and dates can identify the "
                                "machine for somebody who knows it.\n";
constexpr char notAnonymousSeveral[] = "These reports are not anonymous: their hardware, programs, versions and dates can "
                                       "identify the machines for somebody who knows them.\n";

/// "1 place", "2 places".
QByteArray counted(qint64 count, const char *one, const char *several)
{
    return QByteArray::number(count) + ' ' + (count == 1 ? one : several);
}

// For people

/// "2 user names in 14 places: facts of the report reveal them; they occur elsewhere, too."
QByteArray kindLine(const KindRow &row, const std::vector<Alias> &aliases)
{
    int different = 0;
    qint64 places = 0;
    Reasons reasons;
    for (const Alias &alias : aliases) {
        if (alias.kind != row.kind)
            continue;
        ++different;
        places += alias.count;
        reasons |= alias.reasons;
    }
    if (different == 0)
        return {};
    QByteArray why;
    for (const ReasonRow &reason : reasonRows) {
        if (reasons.testFlag(reason.reason))
            why += (why.isEmpty() ? ": " : "; ") + QByteArray(different == 1 ? reason.one : reason.several);
    }
    return counted(different, row.one, row.several) + " in " + counted(places, "place", "places") + why + ".\n";
}

QByteArray environmentLine(int values)
{
    if (values == 0)
        return {};
    return values == 1 ? QByteArray("1 value of an environment variable became its length.\n")
                       : QByteArray::number(values) + " values of environment variables became their lengths.\n";
}

// For programs

QByteArray quoted(const QString &text)
{
    return jsonString(text).toUtf8();
}

QByteArray reasonArray(Reasons reasons)
{
    QByteArray json;
    for (const ReasonRow &row : reasonRows) {
        if (reasons.testFlag(row.reason))
            json += (json.isEmpty() ? "\"" : ", \"") + QByteArray(row.name) + '"';
    }
    return '[' + json + ']';
}

QByteArray spellingArray(const QStringList &spellings)
{
    QByteArray json;
    for (const QString &spelling : spellings)
        json += (json.isEmpty() ? "" : ", ") + quoted(spelling);
    return '[' + json + ']';
}

/// The members that the object of an alias begins with.
QByteArray aliasHead(const Alias &alias)
{
    return "{\"alias\": " + quoted(alias.text) + ", \"kind\": " + quoted(aliasKindName(alias.kind));
}

/// The objects of a member "aliases", and the end of the object that it belongs to.
QByteArray aliasArray(const QByteArray &objects)
{
    return "\"aliases\": [" + objects + "]}\n";
}

void addObject(QByteArray &objects, const QByteArray &object)
{
    objects += (objects.isEmpty() ? "\n  " : ",\n  ") + object;
}

} // namespace

QString aliasKindName(AliasKind kind)
{
    for (const KindRow &row : kindRows) {
        if (row.kind == kind)
            return QString::fromLatin1(row.name);
    }
    return {};
}

QByteArray redactionText(const Redaction &redaction)
{
    QByteArray lines;
    for (const KindRow &row : kindRows)
        lines += kindLine(row, redaction.aliases);
    lines += environmentLine(redaction.environmentValues);
    if (lines.isEmpty())
        lines = "Nothing was replaced.\n";
    return (redaction.documents.size() > 1 ? notAnonymousSeveral : notAnonymous) + lines;
}

QByteArray redactionJson(const Redaction &redaction)
{
    QByteArray objects;
    for (const Alias &alias : redaction.aliases) {
        addObject(objects, aliasHead(alias) + ", \"count\": " + QByteArray::number(alias.count) + ", \"reasons\": " + reasonArray(alias.reasons) + '}');
    }
    return "{\"anonymous\": false, \"environmentValues\": " + QByteArray::number(redaction.environmentValues) + ", "
        + aliasArray(objects);
}

QByteArray aliasMapJson(const Redaction &redaction)
{
    QByteArray objects;
    for (const Alias &alias : redaction.aliases) {
        if (alias.kind != AliasKind::Secret)
            addObject(objects, aliasHead(alias) + ", \"spellings\": " + spellingArray(alias.spellings) + '}');
    }
    return '{' + aliasArray(objects);
}

} // namespace Reports
} // namespace velkor
