#include "fact_list.h"

#include "labels.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSet>
#include <algorithm>
#include <array>

namespace velkor {
namespace Reports {

namespace {

struct RevealName
{
    Reveal reveal;
    const char *name;
};

constexpr RevealName revealNames[] = {
    {Reveal::User, "user"},
    {Reveal::Host, "host"},
    {Reveal::Organisation, "organisation"},
    {Reveal::Address, "address"},
    {Reveal::SerialNumber, "serial number"},
    {Reveal::Path, "path"},
    {Reveal::Printer, "printer"},
    {Reveal::DriveLabel, "drive label"},
    {Reveal::NetworkDrive, "network drive"},
    {Reveal::Secret, "secret"},
};

const char *typeName(Type type)
{
    switch (type) {
    case Type::Number:
        return "number";
    case Type::Number64:
        return "64-bit number";
    case Type::Real:
        return "real number";
    case Type::Bytes:
        return "bytes";
    case Type::Version:
        return "version";
    case Type::Date:
        return "date";
    case Type::List:
        return "list";
    case Type::Text:
        break;
    }
    return "text";
}

const char *changesName(Changes changes)
{
    switch (changes) {
    case Changes::EveryMoment:
        return "every moment";
    case Changes::Slowly:
        return "slowly";
    case Changes::Rarely:
        break;
    }
    return "rarely";
}

QString itemPath(const char *section, const char *kind)
{
    for (const ItemRow &item : itemRows()) {
        if (qstrcmp(item.section, section) != 0 || qstrcmp(item.kind, kind) != 0)
            continue;
        const QString name = QString::fromLatin1(kind);
        return *item.parent ? QString::fromLatin1(item.parent) + QLatin1String(" > ") + name : name;
    }
    return {};
}

FactEntry entryOf(const FactRow &row)
{
    FactEntry entry {QString::fromLatin1(row.section),
                     itemPath(row.section, row.item),
                     QString::fromLatin1(row.key),
                     factLabel(row),
                     QString::fromLatin1(typeName(row.type)),
                     QString::fromLatin1(row.unit),
                     QString::fromLatin1(changesName(row.changes)),
                     {},
                     row.meaning()};
    for (const RevealName &name : revealNames) {
        if (row.reveals.testFlag(name.reveal))
            entry.reveals << QString::fromLatin1(name.name);
    }
    return entry;
}

bool isWanted(const FactRow &row, const std::vector<int> &sections)
{
    return sections.empty() || std::any_of(sections.begin(), sections.end(), [&row](int section) {
               return qstrcmp(sectionRows()[std::size_t(section)].facts, row.section) == 0;
           });
}

constexpr std::size_t columns = 8;

std::array<QString, columns> cells(const FactEntry &fact)
{
    return {fact.section, fact.item, fact.key, fact.label, fact.type, fact.unit, fact.changes, fact.reveals.join(QStringLiteral(", "))};
}

QByteArray meaningsOfItems(const char *section)
{
    QByteArray text;
    for (const ItemRow &item : itemRows()) {
        if (qstrcmp(item.section, section) == 0)
            text += "- **" + itemPath(section, item.kind).toUtf8() + "**: " + item.meaning().toUtf8() + '\n';
    }
    return text;
}

QByteArray meaningsOfFacts(int section)
{
    QByteArray text = '\n' + meaningsOfItems(sectionRows()[std::size_t(section)].facts);
    for (const FactEntry &fact : factList({section})) {
        const QString owner = fact.item.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(fact.item);
        text += "- `" + fact.key.toUtf8() + '`' + owner.toUtf8() + ": " + fact.meaning.toUtf8() + '\n';
    }
    return text;
}

} // namespace

std::vector<FactEntry> factList(const std::vector<int> &sections)
{
    std::vector<FactEntry> facts;
    QSet<QString> known;
    for (const FactRow &row : factRows()) {
        const QString name = QStringLiteral("%1/%2/%3").arg(QLatin1String(row.section), QLatin1String(row.item), QLatin1String(row.key));
        if (*row.key == '\0' || known.contains(name) || !isWanted(row, sections))
            continue;
        known.insert(name);
        facts.push_back(entryOf(row));
    }
    return facts;
}

QByteArray factListText(const std::vector<FactEntry> &facts)
{
    std::vector<std::array<QString, columns>> rows = {
        {QStringLiteral("section"), QStringLiteral("item"), QStringLiteral("key"), QStringLiteral("label"), QStringLiteral("type"),
         QStringLiteral("unit"), QStringLiteral("changes"), QStringLiteral("reveals")}};
    std::transform(facts.begin(), facts.end(), std::back_inserter(rows), cells);
    std::array<int, columns> widths = {};
    for (const auto &row : rows) {
        for (std::size_t i = 0; i < columns; ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    QByteArray text;
    for (const auto &row : rows) {
        QString line;
        for (std::size_t i = 0; i < columns; ++i)
            line += row[i].leftJustified(widths[i] + 2);
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        text += line.toUtf8() + '\n';
    }
    return text;
}

QByteArray factListJson(const std::vector<FactEntry> &facts)
{
    QJsonArray array;
    for (const FactEntry &fact : facts) {
        array += QJsonObject {{QStringLiteral("section"), fact.section},
                              {QStringLiteral("item"), fact.item},
                              {QStringLiteral("key"), fact.key},
                              {QStringLiteral("label"), fact.label},
                              {QStringLiteral("type"), fact.type},
                              {QStringLiteral("unit"), fact.unit},
                              {QStringLiteral("changes"), fact.changes},
                              {QStringLiteral("reveals"), QJsonArray::fromStringList(fact.reveals)},
                              {QStringLiteral("meaning"), fact.meaning}};
    }
    return QJsonDocument(QJsonObject {{QStringLiteral("schemaVersion"), schemaVersion}, {QStringLiteral("facts"), array}}).toJson();
}

QByteArray factListMarkdown(const std::vector<FactEntry> &facts)
{
    QByteArray text;
    for (const FactEntry &fact : facts) {
        const std::array<QString, columns> row = cells(fact);
        for (std::size_t i = 0; i < columns; ++i) {
            const bool isCode = i < 4 && !row[i].isEmpty();
            const QString quote = isCode ? QStringLiteral("`") : QString();
            text += "| " + (quote + row[i] + quote).toUtf8() + (row[i].isEmpty() ? "" : " ");
        }
        text += "|\n";
    }
    return text;
}

QByteArray meaningsMarkdown()
{
    QByteArray text = "\n## Meanings\n";
    for (std::size_t i = 0; i < sectionRows().size(); ++i) {
        const SectionRow &section = sectionRows()[i];
        text += QByteArray("\n### ") + section.name + "\n\n" + section.meaning().toUtf8() + '\n';
        const bool isContinued = i + 1 < sectionRows().size() && qstrcmp(sectionRows()[i + 1].facts, section.facts) == 0;
        if (!isContinued)
            text += meaningsOfFacts(int(i));
    }
    return text;
}

} // namespace Reports
} // namespace velkor
