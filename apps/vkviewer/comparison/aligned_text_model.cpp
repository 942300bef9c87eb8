#include "aligned_text_model.h"

#include "neutral_text.h"

#include <algorithm>

using namespace velkor::Reports;

namespace {

constexpr int longestShown = 2000; ///< bytes of a line; copying has no limit

/// At most \a most bytes, which do not end within a character.
int boundedLength(const QByteArray &text, int begin, int length, int most)
{
    if (length <= most)
        return length;
    while (most > 0 && (text.at(begin + most) & '\xc0') == '\x80')
        --most;
    return most;
}

} // namespace

AlignedTextModel::AlignedTextModel(QObject *parent) : QAbstractTableModel(parent) { }

void AlignedTextModel::setReports(std::shared_ptr<const ComparedReports> reports)
{
    beginResetModel();
    m_reports = std::move(reports);
    m_rows = {};
    m_longestLine = 0;
    endResetModel();
}

void AlignedTextModel::setRows(LineIndexes rows)
{
    beginResetModel();
    m_rows = rows;
    m_longestLine = findLongestLine();
    endResetModel();
}

void AlignedTextModel::setShowsEveryMoment(bool shows)
{
    m_showsEveryMoment = shows;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

QByteArray AlignedTextModel::bytes(const std::vector<int> &rows, bool older) const
{
    const AlignedText &text = m_reports->text;
    QByteArray result;
    for (const int index : rows) {
        const int line = older ? row(index).older : row(index).newer;
        if (line < 0)
            continue;
        const AlignedLine &place = (older ? text.older : text.newer)[std::size_t(line)];
        result += (older ? text.olderDocument : text.newerDocument).text().mid(place.begin, place.next - place.begin);
    }
    return result;
}

int AlignedTextModel::findLongestLine() const
{
    int longest = 0;
    for (int i = 0; i < rowCount() && longest < longestShown; ++i) {
        const AlignedRow &lines = row(i);
        for (const AlignedLine *line : {lines.older < 0 ? nullptr : &m_reports->text.older[std::size_t(lines.older)],
                                        lines.newer < 0 ? nullptr : &m_reports->text.newer[std::size_t(lines.newer)]})
            longest = std::max(longest, line ? line->end - line->begin : 0);
    }
    return std::min(longest, longestShown);
}

int AlignedTextModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int AlignedTextModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

const AlignedRow &AlignedTextModel::row(int index) const
{
    return m_reports->text.rows[std::size_t(m_rows.begin) + std::size_t(index)];
}

LineChange AlignedTextModel::change(int index) const
{
    const AlignedRow &found = row(index);
    return found.everyMoment && !m_showsEveryMoment ? LineChange::Same : found.change;
}

bool AlignedTextModel::isMissing(int index, bool older) const
{
    return (older ? row(index).older : row(index).newer) < 0;
}

QString AlignedTextModel::line(int index, bool older) const
{
    const AlignedText &text = m_reports->text;
    const int found = older ? row(index).older : row(index).newer;
    if (found < 0)
        return {};
    const AlignedLine &place = (older ? text.older : text.newer)[std::size_t(found)];
    const QByteArray &bytes = (older ? text.olderDocument : text.newerDocument).text();
    const int length = place.end - place.begin;
    const int shown = boundedLength(bytes, place.begin, length, longestShown);
    QString line = QString::fromUtf8(bytes.constData() + place.begin, shown).replace(QLatin1Char('\t'), QLatin1Char(' '));
    return terminalText(shown < length ? line + QChar(0x2026) : line);
}

QString AlignedTextModel::sign(int index, bool older) const
{
    if (isMissing(index, older))
        return {};
    switch (change(index)) {
    case LineChange::Changed:
        return QChar(0x2260);
    case LineChange::Removed:
        return QChar(0x2212);
    case LineChange::Added:
        return QStringLiteral("+");
    case LineChange::Same:
        break;
    }
    return {};
}

QString AlignedTextModel::description(int index, bool older) const
{
    if (isMissing(index, older))
        return tr("no such line");
    QString text = line(index, older);
    switch (change(index)) {
    case LineChange::Changed:
        return tr("changed: %1").arg(text);
    case LineChange::Removed:
        return tr("removed: %1").arg(text);
    case LineChange::Added:
        return tr("added: %1").arg(text);
    case LineChange::Same:
        break;
    }
    return text;
}

LinePart AlignedTextModel::part(int index, bool older) const
{
    if (change(index) != LineChange::Changed)
        return {};
    const QString text = line(index, older);
    const QString other = line(index, !older);
    const int shorter = std::min(text.size(), other.size());
    int begin = 0;
    while (begin < shorter && text.at(begin) == other.at(begin))
        ++begin;
    int after = 0;
    while (after < shorter - begin && text.at(text.size() - 1 - after) == other.at(other.size() - 1 - after))
        ++after;
    if (begin > 0 && text.at(begin - 1).isHighSurrogate())
        --begin;
    if (after > 0 && text.at(text.size() - after).isLowSurrogate())
        --after;
    return {begin, text.size() - after};
}

QVariant AlignedTextModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const bool older = index.column() == OlderSign || index.column() == OlderLine;
    const bool isSign = index.column() == OlderSign || index.column() == NewerSign;
    switch (role) {
    case Qt::DisplayRole:
        return isSign ? sign(index.row(), older) : line(index.row(), older);
    case Qt::AccessibleTextRole:
        return isSign ? QVariant() : QVariant(description(index.row(), older));
    case ChangeRole:
        return int(change(index.row()));
    case PartRole:
        return isSign ? QVariant() : QVariant::fromValue(part(index.row(), older));
    case MissingRole:
        return isMissing(index.row(), older);
    default:
        return {};
    }
}
