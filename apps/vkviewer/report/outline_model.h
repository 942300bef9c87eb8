// The sections and items of a report as a tree.
#pragma once

#include "text/text_range.h"
#include "vkReports.h"

#include <QtCore/QAbstractItemModel>
#include <optional>

/// The first row is the summary; then come the halves of the report, with sections and items in them. Needs 20 bytes for each
/// item.
class OutlineModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum class Kind {
        Summary,
        Half,
        Section,
        Item,
    };

    explicit OutlineModel(QObject *parent = nullptr);

    void setDocument(const velkor::Reports::Document &document);

    Kind kind(const QModelIndex &index) const;
    /// Index in Document::sections() or Document::items(); of a half, of its first section; -1 for the summary.
    int number(const QModelIndex &index) const;
    /// What it is in the text; nothing for the summary.
    std::optional<TextRange> range(const QModelIndex &index) const;

    /// The heading as in the text, the name and the meaning, in lines; empty for the summary and for halves.
    QString description(const QModelIndex &index) const;

    QModelIndex summaryIndex() const { return index(0, 0); }
    /// \a section is an index in Document::sections().
    QModelIndex sectionIndex(int section) const;
    /// The innermost section or item that contains \a offset; invalid if there is none.
    QModelIndex indexAt(int offset) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    struct HalfPart ///< neighbouring sections of one half and one report
    {
        int first = 0;
        int last = 0; ///< after the last one
    };

    // Nodes are numbered: the root, the summary, the halves, the sections, the items.
    int halfNode(int half) const { return 2 + half; }
    int sectionNode(int section) const { return 2 + int(m_halves.size()) + section; }
    int itemNode(int item) const { return sectionNode(int(m_document.sections().size())) + item; }
    int nodeCount() const { return itemNode(int(m_document.items().size())); }
    int nodeOf(const QModelIndex &index) const { return index.isValid() ? int(index.internalId()) : 0; }
    QModelIndex indexOf(int node) const;
    QString title(const QModelIndex &index) const;
    QString halfTitle(int half) const;
    void makeHalves();
    void makeTree();

    velkor::Reports::Document m_document;
    std::vector<HalfPart> m_halves;
    std::vector<int> m_parents;    ///< of each node
    std::vector<int> m_rows;       ///< of each node in its parent
    std::vector<int> m_childBegin; ///< of each node in m_children, and the end of the last one
    std::vector<int> m_children;
};
