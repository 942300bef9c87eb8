#include "aligned_text_view.h"

#include "line_delegate.h"
#include "row_copier.h"
#include "text/fixed_font.h"

#include <QtCore/QEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>
#include <algorithm>

namespace {

/// Going to another line does not scroll to the left or right; the keys for left and right do.
class LineTable : public QTableView
{
public:
    using QTableView::QTableView;

    void scrollTo(const QModelIndex &index, ScrollHint hint) override
    {
        const int value = horizontalScrollBar()->value();
        QTableView::scrollTo(index, hint);
        horizontalScrollBar()->setValue(value);
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        const bool isLeft = event->key() == Qt::Key_Left;
        if ((isLeft || event->key() == Qt::Key_Right) && event->modifiers() == Qt::NoModifier)
            horizontalScrollBar()->triggerAction(isLeft ? QScrollBar::SliderSingleStepSub : QScrollBar::SliderSingleStepAdd);
        else
            QTableView::keyPressEvent(event);
    }
};

constexpr int charactersAfter = 8; ///< of what differs, at least so many are visible
constexpr int linesAround = 2;     ///< a line that is shown has so many before and after it

} // namespace

AlignedTextView::AlignedTextView(QWidget *parent)
    : QWidget(parent), m_model(new AlignedTextModel(this)), m_older(makeView(true)), m_newer(makeView(false))
{
    m_older->setObjectName(QStringLiteral("olderText"));
    m_older->setAccessibleName(tr("Text of the older report"));
    m_newer->setObjectName(QStringLiteral("newerText"));
    m_newer->setAccessibleName(tr("Text of the newer report"));
    delete m_newer->selectionModel();
    m_newer->setSelectionModel(m_older->selectionModel());
    scrollTogether(m_older->verticalScrollBar(), m_newer->verticalScrollBar());
    scrollTogether(m_older->horizontalScrollBar(), m_newer->horizontalScrollBar());

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_older);
    layout->addWidget(m_newer);
    updateSizes();
}

QTableView *AlignedTextView::makeView(bool older)
{
    auto *view = new LineTable(this);
    view->setModel(m_model);
    view->setColumnHidden(older ? AlignedTextModel::NewerSign : AlignedTextModel::OlderSign, true);
    view->setColumnHidden(older ? AlignedTextModel::NewerLine : AlignedTextModel::OlderLine, true);
    view->setItemDelegate(new LineDelegate(view));
    view->setFont(fixedFont());
    view->setShowGrid(false);
    view->setTabKeyNavigation(false);
    view->setWordWrap(false);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // so that both have equally many rows
    view->setVerticalScrollBarPolicy(older ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
    view->horizontalHeader()->hide();
    view->horizontalHeader()->setMinimumSectionSize(1);
    view->horizontalScrollBar()->setSingleStep(view->fontMetrics().averageCharWidth() * 8);
    view->verticalHeader()->hide();
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    new RowCopier(view, [this, older](const std::vector<int> &rows) { return QString::fromUtf8(m_model->bytes(rows, older)); });
    return view;
}

void AlignedTextView::scrollTogether(QScrollBar *a, QScrollBar *b)
{
    for (QScrollBar *bar : {a, b}) {
        QScrollBar *other = bar == a ? b : a;
        connect(bar, &QScrollBar::valueChanged, this, [this, other](int value) {
            if (m_isScrolling)
                return;
            m_isScrolling = true;
            other->setValue(value);
            m_isScrolling = false;
        });
    }
}

void AlignedTextView::setReports(std::shared_ptr<const ComparedReports> reports)
{
    m_model->setReports(std::move(reports));
}

void AlignedTextView::setRows(LineIndexes rows)
{
    m_model->setRows(rows);
    updateSizes();
    for (QTableView *view : {m_older, m_newer}) // else a scroll bar takes no value beyond the rows of before
        view->doItemsLayout();
}

void AlignedTextView::setShowsEveryMoment(bool shows)
{
    m_model->setShowsEveryMoment(shows);
}

LineIndexes AlignedTextView::shownRows(LineIndexes rows) const
{
    const LineIndexes shown = m_model->rows();
    const LineIndexes inside {std::max(rows.begin, shown.begin), std::min(rows.end, shown.end)};
    return inside.size() <= 0 ? LineIndexes() : LineIndexes {inside.begin - shown.begin, inside.end - shown.begin};
}

void AlignedTextView::showRows(LineIndexes older, LineIndexes newer)
{
    const LineIndexes olderRows = shownRows(older);
    const LineIndexes newerRows = shownRows(newer);
    QItemSelection selection;
    for (const LineIndexes &rows : {olderRows, newerRows}) {
        if (rows.size() > 0)
            selection.merge(QItemSelection(m_model->index(rows.begin, 0), m_model->index(rows.end - 1, AlignedTextModel::ColumnCount - 1)),
                            QItemSelectionModel::Select);
    }
    const LineIndexes target = newerRows.size() > 0 ? newerRows : olderRows;
    QItemSelectionModel *model = m_older->selectionModel();
    const int column = newerRows.size() > 0 ? AlignedTextModel::NewerLine : AlignedTextModel::OlderLine;
    if (target.size() > 0)
        model->setCurrentIndex(m_model->index(target.begin, column), QItemSelectionModel::NoUpdate);
    model->select(selection, QItemSelectionModel::ClearAndSelect);
    QScrollBar *bar = m_newer->verticalScrollBar();
    const int page = bar->pageStep();
    if (target.size() > 0 && (target.begin - linesAround < bar->value() || target.end + linesAround > bar->value() + page))
        bar->setValue(target.begin - std::max(0, (page - target.size()) / 2));
    if (target.size() > 0)
        showPart(target.begin);
}

/// Scrolls to the left or right until the beginning of what differs in this row is visible.
void AlignedTextView::showPart(int row)
{
    const QModelIndex older = m_model->index(row, AlignedTextModel::OlderLine);
    const int begin = older.data(AlignedTextModel::PartRole).value<LinePart>().begin;
    const QString before = older.data().toString().left(begin);
    const QFontMetrics metrics = m_older->fontMetrics();
    const int place = m_older->columnWidth(AlignedTextModel::OlderSign) + metrics.horizontalAdvance(before);
    const int page = m_older->viewport()->width();
    m_newer->horizontalScrollBar()->setValue(place + metrics.averageCharWidth() * charactersAfter < page ? 0 : place - page / 2);
}

void AlignedTextView::clearSelection()
{
    m_older->clearSelection();
}

void AlignedTextView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateSizes();
}

void AlignedTextView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    updateSizes();
}

void AlignedTextView::updateSizes()
{
    for (QTableView *view : {m_older, m_newer}) {
        const QFontMetrics metrics = view->fontMetrics();
        const int height = std::max(metrics.height(), metrics.lineSpacing()); // the leading of some fonts is negative
        view->verticalHeader()->setMinimumSectionSize(height);
        view->verticalHeader()->setDefaultSectionSize(height);
        const int sign = metrics.averageCharWidth() * 2;
        const int line = metrics.averageCharWidth() * (m_model->longestLine() + 2);
        for (const int column : {int(AlignedTextModel::OlderSign), int(AlignedTextModel::NewerSign)}) {
            if (!view->isColumnHidden(column))
                view->setColumnWidth(column, sign);
        }
        for (const int column : {int(AlignedTextModel::OlderLine), int(AlignedTextModel::NewerLine)}) {
            if (!view->isColumnHidden(column))
                view->setColumnWidth(column, std::max(line, view->viewport()->width() - sign));
        }
    }
}
