#include "comparison_view.h"

#include "aligned_text_view.h"
#include "cell_text.h"
#include "column_widths.h"
#include "comparison_notes.h"
#include "difference_model.h"
#include "report/name_label.h"
#include "row_copier.h"
#include "section_model.h"

#include <QtCore/QEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QTableView>
#include <algorithm>
#include <map>

using namespace velkor::Reports;

namespace {

/// Selects one row, whatever keys are down: QTableView::selectRow() extends the selection if Shift is.
void chooseRow(QTableView *table, int row)
{
    const QModelIndex index = table->model()->index(row, 0);
    table->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    table->scrollTo(index);
}

/// Whether the texts of a section differ by more than what is hidden.
bool differsInText(const AlignedText &text, LineIndexes rows, bool showsEveryMoment)
{
    const auto begin = text.rows.begin();
    return std::any_of(begin + rows.begin, begin + rows.end,
                       [&](const AlignedRow &row) { return row.change != LineChange::Same && (showsEveryMoment || !row.everyMoment); });
}

/// The sections with a difference of facts or of texts, in the order of the catalogue.
std::vector<SectionModel::Row> sectionsThatDiffer(const ComparedReports &reports, const std::vector<int> &changes, bool showsEveryMoment)
{
    std::map<QString, int> counts;
    for (const int change : changes)
        ++counts[reports.comparison.changes[std::size_t(change)].section];
    std::vector<SectionModel::Row> rows;
    for (const AlignedSection &section : reports.text.sections) {
        const auto found = counts.find(section.section);
        const int count = found == counts.end() ? 0 : found->second;
        const bool isRepeated = !rows.empty() && rows.back().section == section.section;
        if (!isRepeated && (count > 0 || differsInText(reports.text, section.rows, showsEveryMoment)))
            rows.push_back({section.section, count});
    }
    return rows;
}

} // namespace

ComparisonView::ComparisonView(const LoadedReport &older, const LoadedReport &newer, const PersonalData &personalData, QWidget *parent)
    : ComparisonTab({older, newer}, personalData, parent), m_sectionModel(new SectionModel(this)), m_differenceModel(new DifferenceModel(this))
{
    QWidget *names = makeNames();
    QWidget *commands = makeCommands();
    setUp({names, commands}, makeContent());
}

ComparisonView::~ComparisonView() = default;

QWidget *ComparisonView::makeNames()
{
    auto *names = new QWidget(this);
    auto *layout = new QHBoxLayout(names);
    layout->setContentsMargins({});
    const auto addName = [&](const QString &caption, const QString &objectName) {
        QLabel *label = plainLabel(names, {});
        label->setText(caption);
        auto *name = new NameLabel(names);
        name->setObjectName(objectName);
        QFont font = name->font();
        font.setBold(true);
        name->setFont(font);
        layout->addWidget(label);
        layout->addWidget(name, 1);
        return name;
    };
    m_olderName = addName(tr("Older:"), QStringLiteral("olderName"));
    auto *swap = new QPushButton(tr("&Swap sides"), names);
    swap->setObjectName(QStringLiteral("swap"));
    swap->setAutoDefault(false);
    swap->setToolTip(tr("Take the older report for the newer one"));
    connect(swap, &QPushButton::clicked, this, &ComparisonView::swapSides);
    layout->addWidget(swap);
    m_newerName = addName(tr("Newer:"), QStringLiteral("newerName"));
    return names;
}

QWidget *ComparisonView::makeCommands()
{
    auto *commands = new QWidget(this);
    auto *layout = new QHBoxLayout(commands);
    layout->setContentsMargins({});
    const auto addButton = [&](const QString &text, const QString &objectName, const QString &toolTip, void (ComparisonView::*command)()) {
        auto *button = new QPushButton(text, commands);
        button->setObjectName(objectName);
        button->setAutoDefault(false);
        button->setToolTip(toolTip);
        connect(button, &QPushButton::clicked, this, command);
        layout->addWidget(button);
        return button;
    };
    m_previous = addButton(tr("&Previous"), QStringLiteral("previous"), tr("Previous difference (Shift+F8)"), &ComparisonView::previousDifference);
    m_previous->setAccessibleName(tr("Previous difference"));
    m_next = addButton(tr("&Next"), QStringLiteral("next"), tr("Next difference (F8)"), &ComparisonView::nextDifference);
    m_next->setAccessibleName(tr("Next difference"));
    m_position = plainLabel(commands, QStringLiteral("position"));
    layout->addWidget(m_position);
    layout->addSpacing(fontMetrics().averageCharWidth() * 2);
    layout->addWidget(summary(), 1);
    layout->addWidget(makeEveryMoment(commands));
    return commands;
}

QTableView *ComparisonView::makeTable(QAbstractItemModel *model, const QString &name)
{
    auto *table = new QTableView(this);
    table->setModel(model);
    table->setAccessibleName(name);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setShowGrid(false);
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->setTextElideMode(Qt::ElideMiddle); // the end of what differs is the name of the fact
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    const int height = table->fontMetrics().height() + table->style()->pixelMetric(QStyle::PM_FocusFrameVMargin) * 2;
    table->verticalHeader()->setMinimumSectionSize(height);
    table->verticalHeader()->setDefaultSectionSize(height);
    new RowCopier(table, [table](const std::vector<int> &rows) { return rowsAsText(table, nullptr, rows); });
    return table;
}

QWidget *ComparisonView::makeContent()
{
    m_sections = makeTable(m_sectionModel, tr("Sections that differ"));
    m_sections->setObjectName(QStringLiteral("sections"));
    m_sections->setSelectionMode(QAbstractItemView::SingleSelection);
    m_sections->setTextElideMode(Qt::ElideRight);
    m_sections->horizontalHeader()->setSectionResizeMode(SectionModel::Title, QHeaderView::Stretch);
    m_sections->horizontalHeader()->setSectionResizeMode(SectionModel::Count, QHeaderView::ResizeToContents);
    connect(m_sections->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex &current) { chooseSection(current.row()); });

    m_differences = makeTable(m_differenceModel, tr("Differences"));
    m_differences->setObjectName(QStringLiteral("differences"));
    new ColumnWidths(m_differences, {3, 4, 4, 4, 4}, 8);
    // A table that gets the focus makes its first row the current one without selecting it, which is no choice of the user.
    // The mouse makes a row the current one before it selects it, the keyboard after that.
    connect(m_differences->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &ComparisonView::takeCurrentRow);
    connect(m_differences->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ComparisonView::takeCurrentRow);

    m_text = new AlignedTextView(this);
    auto *right = new QSplitter(Qt::Vertical, this);
    right->addWidget(m_differences);
    right->addWidget(m_text);
    right->setStretchFactor(0, 1);
    right->setStretchFactor(1, 1);
    right->setChildrenCollapsible(false);
    m_columns = new QSplitter(Qt::Horizontal, this);
    m_columns->addWidget(m_sections);
    m_columns->addWidget(right);
    m_columns->setStretchFactor(0, 0);
    m_columns->setStretchFactor(1, 1);
    m_columns->setChildrenCollapsible(false);
    connect(m_columns, &QSplitter::splitterMoved, this, [this] { m_hasUserSplit = true; });
    return m_columns;
}

/// As wide as the titles, but not more than a quarter of the window, or a third if the font is large.
void ComparisonView::fitSections()
{
    if (m_hasUserSplit)
        return;
    const QAbstractItemView *list = m_sections; // QTableView hides the function
    const int count = std::max(list->sizeHintForColumn(SectionModel::Count), m_sections->horizontalHeader()->sectionSizeHint(SectionModel::Count));
    const int around = m_sections->verticalScrollBar()->sizeHint().width() + m_sections->frameWidth() * 2;
    const int titles = list->sizeHintForColumn(SectionModel::Title) + count + around;
    const int character = fontMetrics().averageCharWidth();
    const int most = std::min(std::max(character * 38, width() / 4), width() / 3);
    const int width = std::min(std::max(titles, character * 32), most);
    m_columns->setSizes({width, std::max(0, m_columns->width() - width - m_columns->handleWidth())});
}

void ComparisonView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitSections();
}

void ComparisonView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitSections();
}

ComparisonTab::Comparing ComparisonView::comparing()
{
    const auto result = std::make_shared<std::shared_ptr<const ComparedReports>>();
    const auto compare = [result](const std::vector<LoadedReport> &reports, const std::atomic_bool &cancelled) {
        if (auto compared = compareReports(reports[0].document, reports[1].document, cancelled))
            *result = std::make_shared<const ComparedReports>(std::move(*compared));
    };
    return {compare, [this, result] { return take(*result); }};
}

bool ComparisonView::take(const std::shared_ptr<const ComparedReports> &reports)
{
    m_reports = reports;
    m_differenceModel->setReports(reports);
    m_text->setReports(reports);
    return reports != nullptr;
}

void ComparisonView::clearComparison()
{
    m_walk.clear();
    m_current = -1;
    take(nullptr);
    m_sectionModel->setSections({});
    updatePosition();
}

void ComparisonView::keepCurrent()
{
    if (m_reports)
        m_wanted = m_current < 0 ? std::nullopt : std::make_optional(placeOf(m_current));
}

void ComparisonView::showWanted()
{
    m_current = m_wanted ? findChange(*m_wanted) : -1;
    m_wanted.reset();
    updateShown();
}

ComparisonView::Place ComparisonView::placeOf(int change) const
{
    const ChangePlace &place = m_reports->places[std::size_t(change)];
    const auto lineAt = [this](LineIndexes rows, int AlignedRow::*line) {
        return rows.size() == 0 ? -1 : m_reports->text.rows[std::size_t(rows.begin)].*line;
    };
    const Change &found = m_reports->comparison.changes[std::size_t(change)];
    return {found.section, found.row, lineAt(place.older, &AlignedRow::older), lineAt(place.newer, &AlignedRow::newer)};
}

int ComparisonView::findChange(const Place &place) const
{
    for (int i = 0; i < int(m_reports->places.size()); ++i) {
        if (placeOf(i) == place)
            return i;
    }
    return -1;
}

QStringList ComparisonView::names() const
{
    QStringList names;
    for (const LoadedReport &report : shown())
        names += ComparisonNotes::name(report);
    return names;
}

void ComparisonView::takeNames()
{
    const auto setName = [this](NameLabel *label, std::size_t report) {
        if (shown().size() > report)
            label->setName(ComparisonNotes::name(shown()[report]), ComparisonNotes::place(shown()[report]));
        else
            label->setName(QString(), QString());
    };
    setName(m_olderName, 0);
    setName(m_newerName, 1);
}

/// After a change of what is shown: the sections, the differences, the marks.
void ComparisonView::updateShown()
{
    if (!m_reports)
        return;
    const std::vector<Change> &changes = m_reports->comparison.changes;
    m_walk.clear();
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (isShown(changes[i]))
            m_walk.push_back(int(i));
    }
    const int current = m_current >= 0 && isShown(changes[std::size_t(m_current)]) ? m_current : -1;
    const int everyMoment = int(std::count_if(changes.begin(), changes.end(), [](const Change &change) { return change.everyMoment; }));
    m_text->setShowsEveryMoment(showsEveryMoment());
    const QString section = m_section;
    const std::vector<SectionModel::Row> sections = sectionsThatDiffer(*m_reports, m_walk, showsEveryMoment());
    const int onlyTexts = int(std::count_if(sections.begin(), sections.end(), [](const SectionModel::Row &row) { return row.differences == 0; }));
    summary()->setText(QStringLiteral("%1 %2").arg(ComparisonNotes::summary(int(changes.size()) - everyMoment, everyMoment, showsEveryMoment()),
                                                   ComparisonNotes::onlyTexts(onlyTexts))
                           .trimmed());
    QFont font = this->font();
    font.setBold(m_reports->comparison.same());
    summary()->setFont(font);
    m_sectionModel->setSections(sections);
    fitSections();
    const int row = m_sectionModel->rowOf(section);
    chooseRow(m_sections, row); // which shows the section
    showSection(m_sectionModel->section(row));
    if (current >= 0)
        showChange(current);
}

void ComparisonView::chooseSection(int row)
{
    if (m_reports && row >= 0)
        showSection(m_sectionModel->section(row));
}

void ComparisonView::showSection(const QString &section)
{
    m_section = section;
    std::vector<int> shown;
    for (const int change : m_walk) {
        if (section.isEmpty() || m_reports->comparison.changes[std::size_t(change)].section == section)
            shown.push_back(change);
    }
    m_differenceModel->setShown(std::move(shown));
    m_differences->setColumnHidden(DifferenceModel::SectionTitle, !section.isEmpty());
    m_differences->findChild<ColumnWidths *>()->divide();
    m_text->setRows(m_reports->text.rowsOf(section));
    m_current = -1;
    updatePosition();
}

int ComparisonView::currentDifference() const
{
    const auto found = std::lower_bound(m_walk.begin(), m_walk.end(), m_current);
    return m_current < 0 || found == m_walk.end() || *found != m_current ? -1 : int(found - m_walk.begin());
}

std::vector<Pane> ComparisonView::panes() const
{
    return {{m_sections, m_sections}, {m_differences, m_differences}, {m_text, m_text->olderView()}};
}

QWidget *ComparisonView::firstFocus() const
{
    return m_differences;
}

QByteArray ComparisonView::exported(ComparisonForm form) const
{
    if (!m_reports)
        return {};
    ComparisonOptions options;
    options.reportNames = names();
    options.all = showsEveryMoment();
    return written(m_reports->comparison, form, options);
}

void ComparisonView::nextDifference()
{
    step(1);
}

void ComparisonView::previousDifference()
{
    step(-1);
}

void ComparisonView::step(int by)
{
    if (m_walk.empty())
        return;
    const int count = int(m_walk.size());
    const int current = currentDifference();
    const int shown = m_differenceModel->rowCount();
    if (current >= 0)
        showChange(m_walk[std::size_t((current + by + count) % count)]);
    else if (shown > 0) // the first or the last one of the section
        showChange(m_differenceModel->changeIndex(by > 0 ? 0 : shown - 1));
    else
        showChange(by > 0 ? m_walk.front() : m_walk.back());
}

void ComparisonView::showChange(int change)
{
    const QString section = m_reports->comparison.changes[std::size_t(change)].section;
    if (!m_section.isEmpty() && m_section != section)
        chooseRow(m_sections, m_sectionModel->rowOf(section));
    chooseRow(m_differences, m_differenceModel->rowOf(change));
    if (m_current != change) // the row was the current one already
        setCurrentChange(change);
}

void ComparisonView::takeCurrentRow()
{
    const QModelIndex current = m_differences->currentIndex();
    if (!m_reports || !current.isValid() || !m_differences->selectionModel()->isRowSelected(current.row(), {}))
        return;
    const int change = m_differenceModel->changeIndex(current.row());
    if (change != m_current)
        setCurrentChange(change);
}

void ComparisonView::setCurrentChange(int change)
{
    m_current = change;
    const ChangePlace &place = m_reports->places[std::size_t(change)];
    m_text->showRows(place.older, place.newer);
    updatePosition();
}

void ComparisonView::updatePosition()
{
    const int current = currentDifference();
    m_next->setEnabled(!m_walk.empty());
    m_previous->setEnabled(!m_walk.empty());
    m_position->setText(current < 0 ? QString() : tr("%1 of %2").arg(current + 1).arg(m_walk.size()));
    Q_EMIT currentDifferenceChanged();
}

void ComparisonView::takeShowsEveryMoment()
{
    updateShown();
}

void ComparisonView::swapSides()
{
    std::swap(originals()[0], originals()[1]);
    m_wanted.reset();
    start();
}

void ComparisonView::copy()
{
    QTableView *table = m_differences;
    for (QTableView *candidate : {m_sections, m_text->olderView(), m_text->newerView()}) {
        if (candidate->hasFocus())
            table = candidate;
    }
    table->findChild<RowCopier *>()->copy();
}
