#include "comparison_table_view.h"

#include "cell_text.h"
#include "column_widths.h"
#include "comparison_notes.h"
#include "comparison_table_model.h"
#include "row_copier.h"
#include "value_delegate.h"

#include <QtCore/QTimer>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QTableView>
#include <algorithm>

using namespace velkor::Reports;

namespace {

constexpr int filterDelay = 150; ///< milliseconds after the last key
constexpr int longestFilter = 1000;

/// The same name twice becomes "name (2)".
QStringList differentNames(const std::vector<LoadedReport> &reports)
{
    QStringList names;
    for (const LoadedReport &report : reports) {
        const QString name = ComparisonNotes::name(report);
        QString different = name;
        for (int i = 2; names.contains(different); ++i)
            different = QStringLiteral("%1 (%2)").arg(name, QString::number(i));
        names += different;
    }
    return names;
}

void scrollWith(QTableView *view, QTableView *other)
{
    QObject::connect(view->verticalScrollBar(), &QScrollBar::valueChanged, other->verticalScrollBar(), &QScrollBar::setValue);
}

} // namespace

ComparisonTableView::ComparisonTableView(const std::vector<LoadedReport> &reports, const PersonalData &personalData, QWidget *parent)
    : ComparisonTab(reports, personalData, parent), m_model(new ComparisonTableModel(this))
{
    QWidget *commands = makeCommands();
    setUp({commands}, makeTables());
}

ComparisonTableView::~ComparisonTableView() = default;

QWidget *ComparisonTableView::makeCommands()
{
    auto *commands = new QWidget(this);
    auto *layout = new QHBoxLayout(commands);
    layout->setContentsMargins({});
    auto *label = new QLabel(tr("&Filter:"), commands);
    label->setTextFormat(Qt::PlainText);
    m_filter = new QLineEdit(commands);
    m_filter->setObjectName(QStringLiteral("filter"));
    m_filter->setAccessibleName(tr("Filter"));
    m_filter->setPlaceholderText(tr("Part of a name or of a value"));
    m_filter->setClearButtonEnabled(true);
    m_filter->setMaxLength(longestFilter);
    label->setBuddy(m_filter);
    auto *timer = new QTimer(this);
    timer->setSingleShot(true);
    timer->setInterval(filterDelay);
    connect(m_filter, &QLineEdit::textChanged, timer, QOverload<>::of(&QTimer::start));
    connect(timer, &QTimer::timeout, this, [this] {
        m_model->setFilter(m_filter->text());
        updateSummary();
    });
    layout->addWidget(label);
    layout->addWidget(m_filter, 1);
    layout->addWidget(summary(), 2);
    layout->addWidget(makeEveryMoment(commands));
    return commands;
}

QTableView *ComparisonTableView::makeTable(bool isFrozen)
{
    auto *table = new QTableView(this);
    table->setModel(m_model);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setItemDelegate(new ValueDelegate(table));
    table->setWordWrap(false);
    table->setTextElideMode(Qt::ElideMiddle); // the end of what differs is the name of the fact
    table->setTabKeyNavigation(false);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // so that both have equally many rows
    table->setVerticalScrollBarPolicy(isFrozen ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setTextElideMode(Qt::ElideMiddle);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    const int height = table->fontMetrics().height() + table->style()->pixelMetric(QStyle::PM_FocusFrameVMargin) * 2;
    table->verticalHeader()->setMinimumSectionSize(height);
    table->verticalHeader()->setDefaultSectionSize(height);
    return table;
}

QSplitter *ComparisonTableView::makeTables()
{
    m_frozen = makeTable(true);
    m_frozen->setObjectName(QStringLiteral("frozen"));
    m_frozen->setAccessibleName(tr("What differs"));
    m_values = makeTable(false);
    m_values->setObjectName(QStringLiteral("values"));
    m_values->setAccessibleName(tr("Values, one column a report"));
    delete m_values->selectionModel();
    m_values->setSelectionModel(m_frozen->selectionModel());
    scrollWith(m_frozen, m_values);
    scrollWith(m_values, m_frozen);
    for (QTableView *table : {m_frozen, m_values})
        new RowCopier(table, [this](const std::vector<int> &rows) { return rowsAsText(m_frozen, m_values, rows); });
    new ColumnWidths(m_frozen, {1}, 12);
    new ColumnWidths(m_values, {1}, 24);
    auto *splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(m_frozen);
    splitter->addWidget(m_values);
    splitter->setStretchFactor(0, 2);
    splitter->setStretchFactor(1, 3);
    splitter->setChildrenCollapsible(false);
    return splitter;
}

ComparisonTab::Comparing ComparisonTableView::comparing()
{
    const auto table = std::make_shared<std::shared_ptr<const ComparisonTable>>();
    const auto compare = [table](const std::vector<LoadedReport> &reports, const std::atomic_bool & /*cancelled*/) {
        std::vector<Document> documents;
        documents.reserve(reports.size());
        for (const LoadedReport &report : reports)
            documents.push_back(report.document);
        *table = std::make_shared<const ComparisonTable>(compareSeveral(documents));
    };
    return {compare, [this, table] { return take(*table); }};
}

bool ComparisonTableView::take(const std::shared_ptr<const ComparisonTable> &table)
{
    m_table = table;
    if (!table)
        return false;
    QStringList toolTips;
    for (const LoadedReport &report : shown())
        toolTips += ComparisonNotes::place(report);
    m_model->setTable(m_table, m_names, toolTips);
    hideColumns();
    return true;
}

void ComparisonTableView::clearComparison()
{
    m_table.reset();
    m_model->setTable(nullptr, {}, {});
}

void ComparisonTableView::takeNames()
{
    m_names = differentNames(shown());
}

void ComparisonTableView::keepCurrent()
{
    const QModelIndex current = m_frozen->currentIndex();
    if (m_table)
        m_wanted = current.isValid() ? std::make_optional(m_model->row(current.row())) : std::nullopt;
}

void ComparisonTableView::showWanted()
{
    updateSummary();
    const int row = m_wanted ? m_model->rowOf(*m_wanted) : -1;
    m_wanted.reset();
    if (row >= 0)
        m_frozen->setCurrentIndex(m_model->index(row, ComparisonTableModel::Subject));
}

void ComparisonTableView::hideColumns()
{
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const bool saysWhat = column < ComparisonTableModel::FirstReport;
        m_frozen->setColumnHidden(column, !saysWhat);
        m_values->setColumnHidden(column, saysWhat);
    }
    for (QTableView *table : {m_frozen, m_values})
        table->findChild<ColumnWidths *>()->divide();
}

void ComparisonTableView::updateSummary()
{
    if (!m_table)
        return;
    const int everyMoment = int(std::count_if(m_table->rows.begin(), m_table->rows.end(), [](const ComparisonRow &row) { return row.everyMoment; }));
    QString text = ComparisonNotes::summary(int(m_table->rows.size()) - everyMoment, everyMoment, showsEveryMoment());
    if (!m_filter->text().trimmed().isEmpty())
        text += QLatin1Char(' ') + ComparisonNotes::matches(m_model->rowCount());
    summary()->setText(text);
}

QWidget *ComparisonTableView::firstFocus() const
{
    return m_values;
}

QByteArray ComparisonTableView::exported(ComparisonForm form) const
{
    if (!m_table)
        return {};
    ComparisonOptions options;
    options.reportNames = m_names;
    options.all = showsEveryMoment();
    return written(*m_table, form, options);
}

void ComparisonTableView::takeShowsEveryMoment()
{
    m_model->setShowsEveryMoment(showsEveryMoment());
    updateSummary();
}

void ComparisonTableView::copy()
{
    m_values->findChild<RowCopier *>()->copy();
}
