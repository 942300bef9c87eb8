#include "fact_table.h"

#include "fact_model.h"
#include "name_label.h"
#include "neutral_text.h"
#include "shown_text.h"
#include "table_menu.h"

#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QTableView>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>

namespace {

constexpr int filterDelay = 150; // milliseconds after the last key
constexpr int longestFilter = 200;

/// A value as a cell of a table of text.
QString cell(const QString &value)
{
    return QString(value).replace(QLatin1Char('\t'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
}

QString rowText(const QAbstractItemModel &model, int row)
{
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column)
        cells << cell(model.index(row, column).data(FactModel::copyRole).toString());
    while (!cells.isEmpty() && cells.last().isEmpty())
        cells.removeLast();
    return cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
}

} // namespace

FactTable::FactTable(QWidget *parent)
    : QWidget(parent), m_model(new FactModel(this)), m_table(new QTableView), m_filter(new QLineEdit), m_title(new NameLabel), m_count(new QLabel), m_timer(new QTimer(this))
{
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_count->setTextFormat(Qt::PlainText);
    auto *label = new QLabel(tr("F&ilter:"));
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(m_filter);
    m_filter->setClearButtonEnabled(true);
    m_filter->setMaxLength(longestFilter);
    m_filter->setAccessibleName(tr("Show only facts with this text"));
    m_table->setAccessibleName(tr("Facts"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setTabKeyNavigation(false);
    m_table->setAlternatingRowColors(true);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + fontMetrics().height() / 3);
    m_table->horizontalHeader()->setSectionResizeMode(FactModel::Value, QHeaderView::Stretch);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setResizeContentsPrecision(100); // rows; a table can have a million
    m_table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    m_table->setSortingEnabled(true);
    m_timer->setSingleShot(true);
    m_timer->setInterval(filterDelay);

    auto *bar = new QHBoxLayout;
    bar->addWidget(m_title, 1);
    bar->addWidget(m_count);
    bar->addWidget(label);
    bar->addWidget(m_filter, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(bar);
    layout->addWidget(m_table, 1);

    connect(m_filter, &QLineEdit::textChanged, m_timer, qOverload<>(&QTimer::start));
    connect(m_timer, &QTimer::timeout, this, &FactTable::applyFilter);
    connect(m_filter, &QLineEdit::returnPressed, this, [this] { applyFilter(); m_table->setFocus(); });
    connect(m_table, &QTableView::doubleClicked, this, &FactTable::goToFact);
    connect(m_model, &QAbstractItemModel::modelReset, this, &FactTable::showCount);
    connect(m_model, &QAbstractItemModel::modelReset, this, &FactTable::hideEmptyColumns);
    m_table->installEventFilter(this);
    new TableMenu(m_table, [this](QMenu &menu) { fillMenu(menu); });
}

void FactTable::goToFact(const QModelIndex &index)
{
    if (index.isValid())
        Q_EMIT factChosen(m_model->fact(index.row()));
}

void FactTable::fillMenu(QMenu &menu)
{
    const bool hasRow = m_table->currentIndex().isValid();
    menu.addAction(tr("&Copy"), this, &FactTable::copyRequested)->setEnabled(m_table->selectionModel()->hasSelection());
    menu.addAction(tr("&Go to text"), this, [this] { goToFact(m_table->currentIndex()); })->setEnabled(hasRow);
    menu.addAction(tr("Select &all"), m_table, &QTableView::selectAll)->setEnabled(m_model->rowCount() > 0);
}

void FactTable::setDocument(const velkor::Reports::Document &document)
{
    m_model->setDocument(document);
    m_title->setName({}, {});
}

void FactTable::setScope(int first, int last, const QString &title)
{
    m_title->setName(title, title);
    if (first == m_model->firstOfScope() && last == m_model->lastOfScope())
        return;
    m_model->setScope(first, last);
    constexpr int widest = 40;                                                     // characters
    for (const int column : {FactModel::Name, FactModel::Unit, FactModel::Item}) { // the value gets the rest
        if (m_table->isColumnHidden(column))
            continue;
        m_table->resizeColumnToContents(column);
        m_table->setColumnWidth(column, std::min(m_table->columnWidth(column), widest * fontMetrics().averageCharWidth()));
    }
}

void FactTable::showFact(int fact)
{
    const int row = m_model->rowOf(fact);
    if (row < 0 || m_table->currentIndex().row() == row)
        return;
    const QModelIndex index = m_model->index(row, FactModel::Name);
    // selectRow() would take the keys into account that are down.
    m_table->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_table->scrollTo(index);
}

void FactTable::applyFilter()
{
    m_timer->stop();
    m_model->setFilter(m_filter->text());
}

/// Most sections have no units and no items: the values get their room.
void FactTable::hideEmptyColumns()
{
    constexpr int mostRows = 5000; // more would take long
    const int rows = m_model->rowCount();
    for (const int column : {FactModel::Unit, FactModel::Item}) {
        bool isEmpty = rows <= mostRows;
        for (int row = 0; isEmpty && row < rows; ++row)
            isEmpty = m_model->index(row, column).data().toString().isEmpty();
        m_table->setColumnHidden(column, isEmpty);
    }
}

void FactTable::showCount()
{
    const int all = m_model->lastOfScope() - m_model->firstOfScope();
    const int shown = m_model->rowCount();
    m_count->setText(shown == all ? tr("%n fact(s)", nullptr, all) : tr("%1 of %n fact(s)", nullptr, all).arg(shown));
}

void FactTable::copy()
{
    std::vector<int> rows;
    const QModelIndexList selected = m_table->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    QString text;
    for (const int row : rows)
        text += rowText(*m_model, row);
    if (!text.isEmpty())
        QApplication::clipboard()->setText(text);
}

void FactTable::startFiltering()
{
    m_filter->setFocus();
    m_filter->selectAll();
}

bool FactTable::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_table && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        const QModelIndex current = m_table->currentIndex();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && current.isValid()) {
            goToFact(current);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
