#include "outline_model.h"

#include "labels.h"
#include "section_names.h"
#include "section_titles.h"
#include "shown_text.h"

#include <algorithm>

using namespace velkor;

namespace {

constexpr int root = 0;
constexpr int summaryNode = 1;

} // namespace

OutlineModel::OutlineModel(QObject *parent)
    : QAbstractItemModel(parent)
{
    makeTree();
}

void OutlineModel::setDocument(const Reports::Document &document)
{
    beginResetModel();
    m_document = document;
    makeHalves();
    makeTree();
    endResetModel();
}

void OutlineModel::makeHalves()
{
    m_halves.clear();
    const std::vector<Reports::Section> &sections = m_document.sections();
    const auto halfOf = [&](std::size_t section) { return Reports::sectionRows()[std::size_t(sections[section].row)].half; };
    for (std::size_t section = 0; section < sections.size(); ++section) {
        const bool continues = section > 0 && halfOf(section) == halfOf(section - 1) && sections[section].report == sections[section - 1].report;
        if (!continues)
            m_halves.push_back({int(section), int(section)});
        m_halves.back().last = int(section) + 1;
    }
}

void OutlineModel::makeTree()
{
    m_parents.assign(std::size_t(nodeCount()), root);
    for (std::size_t half = 0; half < m_halves.size(); ++half) {
        for (int section = m_halves[half].first; section < m_halves[half].last; ++section)
            m_parents[std::size_t(sectionNode(section))] = halfNode(int(half));
    }
    for (std::size_t item = 0; item < m_document.items().size(); ++item) {
        const Reports::Item &place = m_document.items()[item];
        m_parents[std::size_t(itemNode(int(item)))] = place.parent < 0 ? sectionNode(place.section) : itemNode(place.parent);
    }
    m_childBegin.assign(m_parents.size() + 1, 0);
    for (std::size_t node = 1; node < m_parents.size(); ++node)
        ++m_childBegin[std::size_t(m_parents[node]) + 1];
    for (std::size_t node = 1; node < m_childBegin.size(); ++node)
        m_childBegin[node] += m_childBegin[node - 1];
    m_children.assign(m_parents.size(), 0);
    m_rows.assign(m_parents.size(), 0);
    std::vector<int> used(m_parents.size(), 0);
    for (std::size_t node = 1; node < m_parents.size(); ++node) {
        const auto parent = std::size_t(m_parents[node]);
        m_rows[node] = used[parent]++;
        m_children[std::size_t(m_childBegin[parent]) + std::size_t(m_rows[node])] = int(node);
    }
}

OutlineModel::Kind OutlineModel::kind(const QModelIndex &index) const
{
    const int node = nodeOf(index);
    if (node <= summaryNode)
        return Kind::Summary;
    if (node < sectionNode(0))
        return Kind::Half;
    return node < itemNode(0) ? Kind::Section : Kind::Item;
}

int OutlineModel::number(const QModelIndex &index) const
{
    const int node = nodeOf(index);
    switch (kind(index)) {
    case Kind::Half:
        return m_halves[std::size_t(node - halfNode(0))].first;
    case Kind::Section:
        return node - sectionNode(0);
    case Kind::Item:
        return node - itemNode(0);
    case Kind::Summary:
        break;
    }
    return -1;
}

std::optional<TextRange> OutlineModel::range(const QModelIndex &index) const
{
    const int node = nodeOf(index);
    switch (kind(index)) {
    case Kind::Half: {
        const HalfPart &half = m_halves[std::size_t(node - halfNode(0))];
        return TextRange {m_document.sections()[std::size_t(half.first)].begin, m_document.sections()[std::size_t(half.last - 1)].end};
    }
    case Kind::Section: {
        const Reports::Section &section = m_document.sections()[std::size_t(number(index))];
        return TextRange {section.begin, section.end};
    }
    case Kind::Item: {
        const Reports::Item &item = m_document.items()[std::size_t(number(index))];
        return TextRange {item.begin, item.end};
    }
    case Kind::Summary:
        break;
    }
    return std::nullopt;
}

QModelIndex OutlineModel::sectionIndex(int section) const
{
    return indexOf(sectionNode(section));
}

QModelIndex OutlineModel::indexAt(int offset) const
{
    const auto &sections = m_document.sections();
    const auto after = std::upper_bound(sections.begin(), sections.end(), offset,
                                        [](int place, const Reports::Section &section) { return place < section.begin; });
    if (after == sections.begin() || offset >= (after - 1)->end)
        return {};
    const Reports::Section &section = *(after - 1);
    const auto &items = m_document.items();
    const auto last = items.begin() + section.lastItem;
    // Items begin in ascending order, those around others first.
    auto item = std::upper_bound(items.begin() + section.firstItem, last, offset,
                                 [](int place, const Reports::Item &one) { return place < one.begin; });
    int found = item == items.begin() + section.firstItem ? -1 : int(item - 1 - items.begin());
    while (found >= 0 && offset >= items[std::size_t(found)].end)
        found = items[std::size_t(found)].parent;
    return found < 0 ? sectionIndex(int(after - 1 - sections.begin())) : indexOf(itemNode(found));
}

QModelIndex OutlineModel::indexOf(int node) const
{
    return node == root ? QModelIndex() : createIndex(m_rows[std::size_t(node)], 0, quintptr(node));
}

QModelIndex OutlineModel::index(int row, int column, const QModelIndex &parent) const
{
    if (column != 0 || row < 0 || row >= rowCount(parent))
        return {};
    return indexOf(m_children[std::size_t(m_childBegin[std::size_t(nodeOf(parent))]) + std::size_t(row)]);
}

QModelIndex OutlineModel::parent(const QModelIndex &child) const
{
    return child.isValid() ? indexOf(m_parents[std::size_t(nodeOf(child))]) : QModelIndex();
}

int OutlineModel::rowCount(const QModelIndex &parent) const
{
    const auto node = std::size_t(nodeOf(parent));
    return m_childBegin[node + 1] - m_childBegin[node];
}

int OutlineModel::columnCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return 1;
}

QString OutlineModel::halfTitle(int half) const
{
    const Reports::Section &section = m_document.sections()[std::size_t(m_halves[std::size_t(half)].first)];
    const QString title = Reports::halfTitle(Reports::sectionRows()[std::size_t(section.row)].half);
    return section.report == 0 ? title : tr("%1 (report %2)").arg(title).arg(section.report + 1);
}

QString OutlineModel::title(const QModelIndex &index) const
{
    switch (kind(index)) {
    case Kind::Half:
        return halfTitle(nodeOf(index) - halfNode(0));
    case Kind::Section:
        return shownSectionTitle(m_document.sections()[std::size_t(number(index))].row);
    case Kind::Item:
        return shownItemTitle(m_document, number(index));
    case Kind::Summary:
        break;
    }
    return tr("Summary");
}

QString OutlineModel::description(const QModelIndex &index) const
{
    const Kind kind = this->kind(index);
    if (kind == Kind::Section) {
        const Reports::SectionRow &row = Reports::sectionRows()[std::size_t(m_document.sections()[std::size_t(number(index))].row)];
        const QString heading = Reports::sectionTitle(m_document.sections()[std::size_t(number(index))].row);
        const QString name = QString::fromLatin1(row.name);
        return QStringLiteral("%1\n%2\n%3").arg(heading == name ? title(index) : heading, name, row.meaning());
    }
    if (kind == Kind::Item) {
        const Reports::ItemRow &row = Reports::itemRows()[std::size_t(m_document.items()[std::size_t(number(index))].kind)];
        return QStringLiteral("%1\n%2").arg(title(index), row.meaning());
    }
    return {};
}

QVariant OutlineModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return title(index);
    return role == Qt::ToolTipRole ? QVariant(plainToolTip(description(index))) : QVariant();
}
