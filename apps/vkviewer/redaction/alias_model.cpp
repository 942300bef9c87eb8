#include "alias_model.h"

#include "alias_words.h"
#include "neutral_text.h"
#include "report/shown_text.h"

using namespace velkor::Reports;

namespace {

constexpr int longestNumber = 12; // digits

/// "user-2" precedes "user-10".
QString sortKey(const QString &name)
{
    const int hyphen = name.lastIndexOf(QLatin1Char('-'));
    return name.left(hyphen + 1) + name.mid(hyphen + 1).rightJustified(longestNumber, QLatin1Char('0'));
}

} // namespace

void AliasModel::setReport(const RedactedReport &report)
{
    beginResetModel();
    m_report = report;
    m_rows.clear();
    const std::vector<Alias> &aliases = report.redaction().aliases;
    std::vector<int> places(aliases.size() + 1);
    for (const Replacement &replacement : report.replacements()) {
        if (replacement.begin < replacement.end)
            ++*(places.begin() + 1 + replacement.alias);
    }
    for (std::size_t i = 0; i < aliases.size(); ++i) {
        if (places[i + 1] > 0)
            m_rows.push_back({int(i), aliases[i].text, kindText(aliases[i].kind), places[i + 1], reasonText(aliases[i].reasons)});
    }
    if (places[0] > 0)
        m_rows.push_back({-1, QStringLiteral("length-..."), tr("Environment"), places[0], tr("a value of an environment variable became its length")});
    endResetModel();
}

int AliasModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int AliasModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString AliasModel::textOf(const Row &row, int column) const
{
    switch (column) {
    case AliasColumn:
        return row.name;
    case KindColumn:
        return row.kind;
    case PlacesColumn:
        return QString::number(row.places);
    case ReasonColumn:
        return row.reason;
    case OriginalColumn:
        break;
    }
    if (row.alias < 0 || m_report.redaction().aliases[std::size_t(row.alias)].kind == AliasKind::Secret)
        return {};
    return terminalText(m_report.originalsOf(row.alias).join(QLatin1String(", ")));
}

QVariant AliasModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Row &row = m_rows[std::size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return textOf(row, index.column());
    case Qt::ToolTipRole:
        return plainToolTip(textOf(row, index.column()));
    case Qt::TextAlignmentRole:
        return index.column() == PlacesColumn ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter)) : QVariant();
    case SortRole:
        if (index.column() == PlacesColumn)
            return row.places;
        return index.column() == AliasColumn ? sortKey(row.name) : textOf(row, index.column()).toLower();
    case AliasRole:
        return row.alias;
    default:
        return {};
    }
}

QVariant AliasModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case AliasColumn:
        return tr("Instead");
    case KindColumn:
        return tr("Of what");
    case PlacesColumn:
        return tr("Places");
    case ReasonColumn:
        return tr("Why");
    case OriginalColumn:
        return tr("Original");
    default:
        return {};
    }
}
