#include "planted_aliases.h"

#include "redaction_rules.h"

namespace {

/// The alias of that kind in the line after redaction, if it is one only and was not there before.
QString onlyAlias(const QString &kind, const QString &before, const QString &after)
{
    QSet<QString> aliases;
    for (const FoundAlias &found : aliasesIn(after)) {
        if (found.kind == kind && !before.contains(found.text))
            aliases += found.text;
    }
    return aliases.size() == 1 ? *aliases.begin() : QString();
}

/// The only thing of that kind that the line names; empty if there are several or none.
QString onlyThing(const PlantedReport &report, const QString &kind, const QString &line)
{
    QSet<QString> things;
    for (const Hidden &hidden : report.hidden) {
        if (hidden.kind == kind && line.contains(hidden.needle, Qt::CaseInsensitive))
            things += hidden.thing;
    }
    return things.size() == 1 ? *things.begin() : QString();
}

void addSeen(std::vector<SeenAlias> &seen, const PlantedReport &report, int line, const QString &after)
{
    const QString &before = report.lines[line];
    for (const char *name : {"user", "host", "ip", "mac"}) {
        const QString kind = QString::fromLatin1(name);
        const QString alias = onlyAlias(kind, before, after);
        const QString thing = alias.isEmpty() ? QString() : onlyThing(report, kind, before);
        if (thing.isEmpty())
            continue;
        for (const Hidden &hidden : report.hidden) {
            if (hidden.kind == kind && hidden.thing == thing && before.contains(hidden.needle))
                seen.push_back({&hidden, line, alias});
        }
    }
}

} // namespace

std::vector<SeenAlias> seenAliases(const PlantedReport &report, const QStringList &redacted, int first, int skipped)
{
    std::vector<SeenAlias> seen;
    for (int line = skipped; line < report.lines.size(); ++line) {
        const int at = line - skipped + first;
        if (at < redacted.size() && redacted[at] != report.lines[line])
            addSeen(seen, report, line, redacted[at]);
    }
    return seen;
}

QMap<QString, QSet<QString>> aliasesOfThings(const std::vector<SeenAlias> &seen)
{
    QMap<QString, QSet<QString>> aliases;
    for (const SeenAlias &one : seen)
        aliases[one.hidden->thing] += one.alias;
    return aliases;
}
