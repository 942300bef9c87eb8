#include "formats.h"

#include "labels.h"
#include "neutral_text.h"
#include "outline.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

constexpr std::size_t longList = 12;

QString sentence(const QString &what, const QStringList &names, int count)
{
    if (count == 0)
        return {};
    const QString which = names.isEmpty() ? QStringLiteral("%1 parts").arg(count) : names.join(QStringLiteral(", "));
    return QStringLiteral("%1: %2.").arg(what, which);
}

} // namespace

QString leftOutSentences(const LeftOut &leftOut, int maxLength)
{
    if (leftOut.counts == 0 && leftOut.drops == 0)
        return {};
    const QStringList sentences {
        QStringLiteral("Shortened to at most %1 characters.").arg(maxLength),
        sentence(QStringLiteral("Left out"), leftOut.dropped, leftOut.drops),
        sentence(QStringLiteral("Only counted"), leftOut.counted, leftOut.counts),
    };
    return sentences.join(QLatin1Char(' ')).simplified();
}

QStringList sectionCounts(const Document &document, int section)
{
    const Outline outline = outlineOf(document, section);
    std::vector<int> counts(itemRows().size(), 0);
    for (const int node : outline.nodes.front().items) {
        const Item &item = document.items()[std::size_t(outline.nodes[std::size_t(node)].item)];
        ++counts[std::size_t(item.kind)];
    }
    QStringList texts;
    for (std::size_t kind = 0; kind < counts.size(); ++kind) {
        if (counts[kind] > 0)
            texts << countOf(itemRows()[kind], counts[kind]);
    }
    return texts;
}

bool isLongList(const Document &document, const Fact &fact)
{
    return document.row(fact).type == Type::List && document.values(fact).size() > longList;
}

QString listCount(const Document &document, const Fact &fact)
{
    return QStringLiteral("%1 entries").arg(document.values(fact).size());
}

QString summaryText(const std::vector<SummaryLine> &lines)
{
    int width = 0;
    for (const SummaryLine &line : lines)
        width = std::max(width, line.label.size());
    QString text;
    for (const SummaryLine &line : lines) {
        const QString value = terminalText(line.value).replace(QLatin1Char('\n'), QStringLiteral("\\x0a"));
        text += (line.label + QLatin1Char(':')).leftJustified(width + 2) + value + QLatin1Char('\n');
    }
    return text;
}

QString partTitle(const Document &document, int section, int previous)
{
    const auto placeOf = [&document](int index) { return document.sections()[std::size_t(index)]; };
    const auto halfOf = [&](int index) { return sectionRows()[std::size_t(placeOf(index).row)].half; };
    const bool isNewReport = previous < 0 || placeOf(previous).report != placeOf(section).report;
    if (!isNewReport && halfOf(previous) == halfOf(section))
        return {};
    const int report = placeOf(section).report;
    const QString prefix = report > 0 ? QStringLiteral("Report %1: ").arg(report + 1) : QString();
    return prefix + halfTitle(halfOf(section));
}

} // namespace Reports
} // namespace velkor
