// Which alias stands for which planted thing, as far as the lines of the redacted report show it.
#pragma once

#include "planted_reports.h"

#include <QtCore/QMap>
#include <QtCore/QSet>

/// An alias that stands for a needle in a line.
struct SeenAlias
{
    const Hidden *hidden;
    int line; ///< index
    QString alias;
};

/// What the redacted lines show about the users, hosts and addresses of the report. A line says something if
/// it has the needles of one thing of a kind and, after redaction, one alias of that kind. \a first: the index in \a redacted
/// of the first line of the report; \a skipped: how many lines of the report are not in \a redacted.
std::vector<SeenAlias> seenAliases(const PlantedReport &report, const QStringList &redacted, int first = 0, int skipped = 0);

/// The aliases of each thing, such as "user:1".
QMap<QString, QSet<QString>> aliasesOfThings(const std::vector<SeenAlias> &seen);
