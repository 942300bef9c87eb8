#include "fact_model.h"

#include "fact_meaning.h"
#include "labels.h"
#include "section_titles.h"
#include "shown_text.h"

#include <algorithm>

using namespace velkor;
using Reports::Type;

namespace {

struct SortKey
{
    bool isText = true;
    double number = 0;
    QString text;
    int fact = 0;
};

bool isLess(const SortKey &one, const SortKey &other)
{
    if (one.isText != other.isText)
        return !one.isText;
    return one.isText ? one.text < other.text : one.number < other.number;
}

bool isPlainNumber(const QString &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return QLatin1String("0123456789.-+").contains(c); });
}

/// Numbers in the text compare by their value: "10.0.9" is less than "10.0.18362".
QString withPaddedNumbers(const QString &text)
{
    constexpr int width = 20; // the digits of 64 bits
    QString result;
    for (int i = 0; i < text.size();) {
        int end = i;
        while (end < text.size() && text.at(end) >= QLatin1Char('0') && text.at(end) <= QLatin1Char('9'))
            ++end;
        if (end > i) {
            result += text.mid(i, end - i).rightJustified(width, QLatin1Char('0'));
            i = end;
        } else {
            result += text.at(i++).toLower();
        }
    }
    return result;
}

std::optional<double> numberOf(const Reports::Document &document, const Reports::Fact &fact)
{
    const auto asDouble = [](const auto &number) { return number ? std::optional<double>(double(*number)) : std::nullopt; };
    switch (document.row(fact).type) {
    case Type::Number:
    case Type::Number64:
        return asDouble(document.integer(fact));
    case Type::Bytes:
        return asDouble(document.bytes64(fact));
    case Type::Real:
        return document.real(fact);
    case Type::Text:
    case Type::Version:
    case Type::Date:
    case Type::List:
        break;
    }
    return std::nullopt;
}

QString sortText(const Reports::Document &document, const Reports::Fact &fact)
{
    const QString date = document.row(fact).type == Type::Date ? document.isoDate(fact) : QString();
    return date.isEmpty() ? withPaddedNumbers(lineText(document.display(fact))) : date;
}

} // namespace

FactModel::FactModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void FactModel::setDocument(const Reports::Document &document)
{
    m_document = document;
    setScope(0, 0);
}

void FactModel::setScope(int first, int last)
{
    m_first = first;
    m_last = last;
    update();
}

void FactModel::setFilter(const QString &text)
{
    if (text == m_filter)
        return;
    m_filter = text;
    update();
}

void FactModel::update()
{
    beginResetModel();
    m_shown.clear();
    for (int fact = m_first; fact < m_last; ++fact) {
        if (isFound(fact))
            m_shown.push_back(fact);
    }
    sortShown();
    endResetModel();
}

bool FactModel::isFound(int fact) const
{
    if (m_filter.isEmpty())
        return true;
    for (int column = 0; column < ColumnCount; ++column) {
        if (text(fact, column).contains(m_filter, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

int FactModel::rowOf(int fact) const
{
    const auto found = std::find(m_shown.begin(), m_shown.end(), fact);
    return found == m_shown.end() ? -1 : int(found - m_shown.begin());
}

QString FactModel::text(int fact, int column) const
{
    const Reports::Fact &place = m_document.facts()[std::size_t(fact)];
    const Reports::FactRow &row = m_document.row(place);
    switch (column) {
    case Name:
        return Reports::factLabel(row);
    case Value:
        return m_document.display(place);
    case Unit: // of other values it stands in the value: "45%"
        return isPlainNumber(m_document.display(place)) ? QString::fromLatin1(row.unit) : QString();
    case Item:
        return place.item < 0 ? QString() : shownItemTitle(m_document, place.item);
    default:
        return {};
    }
}

void FactModel::sortShown()
{
    if (m_sortColumn < 0)
        return;
    std::vector<SortKey> keys;
    keys.reserve(m_shown.size());
    for (const int fact : m_shown) {
        const Reports::Fact &place = m_document.facts()[std::size_t(fact)];
        const auto number = m_sortColumn == Value ? numberOf(m_document, place) : std::nullopt;
        if (number)
            keys.push_back({false, *number, QString(), fact});
        else
            keys.push_back({true, 0, m_sortColumn == Value ? sortText(m_document, place) : withPaddedNumbers(text(fact, m_sortColumn)), fact});
    }
    const bool descending = m_sortOrder == Qt::DescendingOrder;
    std::stable_sort(keys.begin(), keys.end(), [descending](const SortKey &one, const SortKey &other) {
        return descending ? isLess(other, one) : isLess(one, other);
    });
    std::transform(keys.begin(), keys.end(), m_shown.begin(), [](const SortKey &key) { return key.fact; });
}

void FactModel::sort(int column, Qt::SortOrder order)
{
    m_sortColumn = column;
    m_sortOrder = order;
    update();
}

int FactModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_shown.size());
}

int FactModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant FactModel::data(const QModelIndex &index, int role) const
{
    const int number = fact(index.row());
    if (role == copyRole)
        return text(number, index.column());
    if (role == Qt::DisplayRole)
        return lineText(text(number, index.column()));
    if (role != Qt::ToolTipRole)
        return {};
    const bool isLabel = index.column() == Name || index.column() == Unit;
    return plainToolTip(isLabel ? factMeaning(m_document.row(m_document.facts()[std::size_t(number)])) : text(number, index.column()));
}

QVariant FactModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Name:
        return tr("Fact");
    case Value:
        return tr("Value");
    case Unit:
        return tr("Unit");
    default:
        return tr("Item");
    }
}
