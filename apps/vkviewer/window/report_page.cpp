#include "report_page.h"

#include "labels.h"
#include "message_bar.h"
#include "redaction/copy_bar.h"
#include "redaction/redaction_panel.h"
#include "redaction/redaction_session.h"
#include "report/fact_meaning.h"
#include "report/fact_model.h"
#include "report/fact_table.h"
#include "report/outline_model.h"
#include "report/section_dialog.h"
#include "report/section_titles.h"
#include "report/shown_text.h"
#include "report/state_sentences.h"
#include "report/summary_page.h"
#include "text/find_bar.h"
#include "text/text_view.h"

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QScopedValueRollback>
#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QTableView>
#include <QtWidgets/QTreeView>
#include <QtWidgets/QVBoxLayout>

using namespace velkor;

namespace {

QWidget *inColumn(QWidget *first, QWidget *second)
{
    auto *widget = new QWidget;
    auto *layout = new QVBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(first, 1);
    layout->addWidget(second);
    return widget;
}

} // namespace

ReportPage::ReportPage(const PreparedReport &report, QWidget *parent)
    : QWidget(parent), m_model(new OutlineModel(this)), m_messages(new MessageBar), m_outline(new QTreeView), m_summary(new SummaryPage), m_text(new TextView), m_findBar(new FindBar(m_text)), m_facts(new FactTable), m_session(new RedactionSession(this)), m_panel(new RedactionPanel(m_session)), m_copyBar(new CopyBar), m_stack(new QStackedWidget), m_textAndFind(inColumn(m_text, m_findBar)), m_columns(new QSplitter(Qt::Horizontal)), m_lower(new QSplitter(Qt::Horizontal)), m_rows(new QSplitter(Qt::Vertical))
{
    m_outline->setModel(m_model);
    m_outline->setHeaderHidden(true);
    m_outline->setUniformRowHeights(true);
    m_outline->setAccessibleName(tr("Outline of the report"));
    m_text->setAccessibleName(tr("Text of the report"));
    m_text->setHoverText([this](int offset) { return meaningAt(m_shown.report.document, offset); });
    m_rows->addWidget(m_textAndFind);
    m_lower->addWidget(m_facts);
    m_lower->addWidget(m_panel);
    m_lower->setChildrenCollapsible(false);
    m_panel->hide();
    m_rows->addWidget(m_lower);
    m_rows->setStretchFactor(0, 3);
    m_rows->setStretchFactor(1, 2);
    m_rows->setSizes({3000, 2000}); // shares
    m_lower->setSizes({1000, 1000});
    m_rows->setChildrenCollapsible(false);
    m_stack->addWidget(m_summary);
    m_stack->addWidget(m_rows);
    m_columns->addWidget(m_outline);
    m_columns->addWidget(m_stack);
    m_columns->setStretchFactor(1, 1);
    m_columns->setChildrenCollapsible(false);
    m_columns->setSizes({fontMetrics().averageCharWidth() * 42, fontMetrics().averageCharWidth() * 110});
    m_findBar->hide();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_messages);
    layout->addWidget(m_columns, 1);
    layout->addWidget(m_copyBar);

    connect(m_outline->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex &index) { takeOutline(index); });
    // A click on the current entry goes there again.
    connect(m_outline, &QTreeView::clicked, this, &ReportPage::takeOutline);
    connect(m_outline, &QTreeView::activated, this, [this](const QModelIndex &index) {
        takeOutline(index);
        (isShowingSummary() ? static_cast<QWidget *>(m_summary->table()) : m_text)->setFocus();
    });
    connect(m_text, &TextView::caretMoved, this, &ReportPage::takeCaret);
    connect(m_text, &TextView::copyRequested, this, &ReportPage::copyText);
    connect(m_text, &TextView::contextMenuRequested, this, [this](QPoint global) { showContextMenu(global); });
    connect(m_facts, &FactTable::factChosen, this, &ReportPage::goToFact);
    connect(m_facts, &FactTable::copyRequested, this, [this] { copyFrom(m_facts); });
    connect(m_summary, &SummaryPage::copyRequested, this, [this] { copyFrom(m_summary); });
    connectRedaction();
    setReport(report);
}

void ReportPage::connectRedaction()
{
    connect(m_session, &RedactionSession::redacted, this, &ReportPage::showRedacted);
    connect(m_session, &RedactionSession::busyChanged, this, &ReportPage::updateOutput);
    connect(m_session, &RedactionSession::failed, m_panel, &RedactionPanel::showMessage);
    connect(m_panel, &RedactionPanel::placeChosen, this, [this](int begin, int end) {
        m_stack->setCurrentWidget(m_rows);
        m_text->showRange({begin, end});
    });
    connect(m_text, &TextView::selectionChanged, this, [this] {
        constexpr int longest = 1024; // bytes; more cannot be an entry
        const TextRange range = m_text->selection();
        m_panel->setSelectedText(m_isRedacted && range.end - range.begin <= longest ? m_text->selectedBytes() : QByteArray());
    });
    connect(m_copyBar, &CopyBar::done, this, &ReportPage::done);
    connect(m_copyBar, &CopyBar::failed, this, &ReportPage::failed);
}

void ReportPage::setReport(const PreparedReport &report)
{
    m_report = report;
    m_incomplete.clear();
    m_messages->setMessages(stateSentences(report.report.document.states(), StateWeight::Important));
    showDocument(report);
    if (m_isRedacted)
        startRedaction();
    else
        updateOutput();
    if (report.report.isReport())
        showSummary();
    else
        showText();
}

void ReportPage::addMessages(const QStringList &messages)
{
    m_messages->setMessages(messages + m_messages->messages());
}

void ReportPage::setIncomplete(const QByteArray &incomplete)
{
    m_incomplete = incomplete;
    updateOutput();
}

void ReportPage::showDocument(const PreparedReport &report)
{
    const QScopedValueRollback<bool> following(m_following, true);
    m_shown = report;
    m_model->setDocument(report.report.document);
    m_text->setLines(report.lines);
    m_facts->setDocument(report.report.document);
    m_summary->setReport(report);
    for (int row = 0; row < m_model->rowCount(); ++row)
        m_outline->expand(m_model->index(row, 0));
}

void ReportPage::setRedacted(bool redacted)
{
    if (redacted == m_isRedacted)
        return;
    m_isRedacted = redacted;
    m_panel->setVisible(redacted);
    if (redacted) {
        startRedaction();
        return;
    }
    m_isWaiting = false;
    replaceDocument(m_report);
    updateOutput();
}

QStringList ReportPage::hiddenByHand() const
{
    return m_session->choices().hide;
}

/// Until the redacted text is there nothing can be copied.
void ReportPage::startRedaction()
{
    const Reports::Document &original = m_report.report.document;
    m_isWaiting = true;
    updateOutput();
    if (&m_session->original().data() != &original.data())
        m_session->setOriginal(original);
    else if (!m_session->isBusy()) // with what the user decided before
        showRedacted(m_session->report());
}

void ReportPage::showRedacted(const RedactedReport &report)
{
    if (!m_isRedacted)
        return;
    m_isWaiting = false;
    replaceDocument(PreparedReport::of({m_report.report.name, m_report.report.path, report.document()}));
    std::vector<TextRange> places;
    for (const RedactedReport::Replacement &replacement : report.replacements()) {
        if (replacement.begin < replacement.end)
            places.push_back({replacement.begin, replacement.end});
    }
    m_text->setMarks(TextMark::Replacement, std::move(places));
    updateOutput();
}

/// The other text has the same lines: the caret stays in its line.
void ReportPage::replaceDocument(const PreparedReport &report)
{
    const bool wasSummary = isShowingSummary();
    const int line = m_text->lines().lineAt(m_text->caret());
    showDocument(report);
    m_text->setCaret(report.lines.line(qMin(line, report.lines.count() - 1)).begin);
    if (wasSummary)
        showSummary();
    else
        showText();
}

/// Whether something will be hidden that is still shown.
bool ReportPage::isHiding() const
{
    return m_isWaiting || (m_isRedacted && m_session->isBusy());
}

std::optional<OutputReport> ReportPage::output() const
{
    if (isHiding())
        return std::nullopt;
    if (!m_isRedacted)
        return OutputReport {m_report.report.name, m_report.report.document, nullptr, m_incomplete};
    const RedactedReport &report = m_session->report();
    return OutputReport {m_report.report.name, report.document(), std::make_shared<const Reports::Redaction>(report.redaction()), m_incomplete};
}

void ReportPage::updateOutput()
{
    if (const auto report = output())
        m_copyBar->setReport(*report);
    else
        m_copyBar->setHiding();
    Q_EMIT outputChanged();
}

bool ReportPage::isShowingSummary() const
{
    return m_stack->currentWidget() == m_summary;
}

void ReportPage::setOutlineVisible(bool visible)
{
    m_outline->setVisible(visible);
}

void ReportPage::setFactsVisible(bool visible)
{
    m_facts->setVisible(visible);
}

QByteArray ReportPage::splitterState() const
{
    QByteArray state;
    QDataStream stream(&state, QIODevice::WriteOnly);
    stream << m_columns->saveState() << m_rows->saveState() << m_lower->saveState();
    return state;
}

void ReportPage::restoreSplitters(const QByteArray &state)
{
    QByteArray columns;
    QByteArray rows;
    QDataStream stream(state);
    QByteArray lower;
    stream >> columns >> rows >> lower;
    m_lower->restoreState(lower);
    m_columns->restoreState(columns);
    m_rows->restoreState(rows);
}

void ReportPage::showSummary()
{
    m_stack->setCurrentWidget(m_summary);
    makeCurrent(m_model->summaryIndex());
}

void ReportPage::showText()
{
    m_stack->setCurrentWidget(m_rows);
    takeCaret(m_text->caret());
}

void ReportPage::chooseSection()
{
    SectionDialog dialog(m_shown.report.document, this);
    if (dialog.exec() == QDialog::Accepted && dialog.section() >= 0) {
        goToSection(dialog.section());
        m_text->setFocus();
    }
}

void ReportPage::nextSection()
{
    stepSection(1);
}

void ReportPage::previousSection()
{
    stepSection(-1);
}

void ReportPage::stepSection(int step)
{
    const int count = int(m_shown.report.document.sections().size());
    if (count == 0)
        return;
    if (isShowingSummary()) {
        goToSection(step > 0 ? 0 : count - 1);
        return;
    }
    const int section = sectionAt(m_shown.report.document, m_text->caret());
    goToSection(qBound(0, section + step, count - 1));
}

void ReportPage::goToSection(int section)
{
    const QModelIndex index = m_model->sectionIndex(section);
    makeCurrent(index);
    takeOutline(index);
}

void ReportPage::goToFact(int fact)
{
    const Reports::Fact &place = m_shown.report.document.facts()[std::size_t(fact)];
    const QScopedValueRollback<bool> following(m_following, true);
    m_stack->setCurrentWidget(m_rows);
    m_text->showRange({place.begin, place.end});
}

void ReportPage::takeOutline(const QModelIndex &index)
{
    if (m_following || !index.isValid())
        return;
    const auto range = m_model->range(index);
    m_stack->setCurrentWidget(range ? static_cast<QWidget *>(m_rows) : m_summary);
    if (!range)
        return;
    const QScopedValueRollback<bool> following(m_following, true);
    m_text->setCaret(range->begin);
    m_text->scrollToTop(range->begin);
    showScope(index);
}

void ReportPage::takeCaret(int offset)
{
    if (m_following)
        return;
    const QScopedValueRollback<bool> following(m_following, true);
    QModelIndex index = m_model->indexAt(offset);
    if (!index.isValid() && offset == 0 && !m_shown.report.document.sections().empty())
        index = m_model->sectionIndex(0); // the heading of the half precedes it
    // Items become current only if the user has opened the entry around them.
    while (index.isValid() && m_model->kind(index) == OutlineModel::Kind::Item && !m_outline->isExpanded(index.parent()))
        index = index.parent();
    if (index.isValid()) {
        makeCurrent(index);
        showScope(index);
    }
    const int fact = factAt(m_shown.report.document, offset);
    if (fact >= 0)
        m_facts->showFact(fact);
}

void ReportPage::makeCurrent(const QModelIndex &index)
{
    const QScopedValueRollback<bool> following(m_following, true);
    m_outline->setCurrentIndex(index);
    m_outline->scrollTo(index);
}

void ReportPage::showScope(const QModelIndex &index)
{
    const Reports::Document &document = m_shown.report.document;
    const QString title = index.data().toString();
    switch (m_model->kind(index)) {
    case OutlineModel::Kind::Section: {
        const Reports::Section &section = document.sections()[std::size_t(m_model->number(index))];
        m_facts->setScope(section.firstFact, section.lastFact, title);
        break;
    }
    case OutlineModel::Kind::Item: {
        const Reports::Item &item = document.items()[std::size_t(m_model->number(index))];
        m_facts->setScope(item.firstFact, item.lastFact, title);
        break;
    }
    case OutlineModel::Kind::Half: {
        const int first = m_model->number(index);
        const int last = first + m_model->rowCount(index) - 1;
        m_facts->setScope(document.sections()[std::size_t(first)].firstFact, document.sections()[std::size_t(last)].lastFact, title);
        break;
    }
    case OutlineModel::Kind::Summary:
        break;
    }
}

/// A tree that gets the focus makes its first entry the current one, which is the summary.
QWidget *ReportPage::firstFocus() const
{
    return m_report.report.isReport() ? static_cast<QWidget *>(m_outline) : m_text;
}

std::vector<Pane> ReportPage::panes() const
{
    return {{m_outline, m_outline}, {m_summary, m_summary->table()}, {m_textAndFind, m_text}, {m_facts, m_facts->table()}, {m_panel}, {m_copyBar}, {m_messages}};
}

ReportPage::Meaning ReportPage::currentMeaning() const
{
    if (hasFocusIn(m_outline))
        return meaningOfOutline(m_outline->currentIndex());
    if (isShowingSummary()) {
        const Reports::SummaryLine *line = m_summary->currentLine();
        return line ? Meaning {line->label, lineText(line->value)} : Meaning();
    }
    const QModelIndex row = m_facts->table()->currentIndex();
    if (hasFocusIn(m_facts) && row.isValid())
        return meaningOfFact(m_facts->model()->fact(row.row()));
    const int fact = factAt(m_shown.report.document, m_text->caret());
    if (fact >= 0)
        return meaningOfFact(fact);
    const int section = sectionAt(m_shown.report.document, m_text->caret());
    if (section < 0)
        return {};
    return {shownSectionTitle(m_shown.report.document.sections()[std::size_t(section)].row), meaningAt(m_shown.report.document, m_text->caret())};
}

ReportPage::Meaning ReportPage::meaningOfOutline(const QModelIndex &index) const
{
    const QString text = index.isValid() ? m_model->description(index) : QString();
    return text.isEmpty() ? Meaning() : Meaning {index.data().toString(), text};
}

ReportPage::Meaning ReportPage::meaningOfFact(int fact) const
{
    const Reports::FactRow &row = m_shown.report.document.row(m_shown.report.document.facts()[std::size_t(fact)]);
    return {Reports::factLabel(row), factMeaning(row)};
}

void ReportPage::find()
{
    showText();
    m_findBar->open();
}

void ReportPage::findNext()
{
    showText();
    m_findBar->findNext();
}

void ReportPage::findPrevious()
{
    showText();
    m_findBar->findPrevious();
}

void ReportPage::filterFacts()
{
    showText();
    m_facts->show();
    m_facts->startFiltering();
}

bool ReportPage::hasFocusIn(const QWidget *widget) const
{
    const QWidget *focus = QApplication::focusWidget();
    return focus && (focus == widget || widget->isAncestorOf(focus));
}

void ReportPage::copy()
{
    if (isShowingSummary())
        copyFrom(m_summary);
    else if (hasFocusIn(m_facts))
        copyFrom(m_facts);
    else
        copyText();
}

template <class Part>
void ReportPage::copyFrom(Part *part)
{
    if (!isHiding())
        part->copy();
}

void ReportPage::copyText()
{
    if (isHiding())
        return;
    const QByteArray bytes = m_text->selectedBytes();
    if (!bytes.isEmpty())
        QApplication::clipboard()->setMimeData(TextView::toMimeData(bytes));
}

void ReportPage::selectAll()
{
    if (isShowingSummary())
        m_summary->table()->selectAll();
    else if (hasFocusIn(m_facts))
        m_facts->table()->selectAll();
    else
        m_text->selectAll();
}

void ReportPage::showContextMenu(QPoint global)
{
    QMenu menu(this);
    QAction *copy = menu.addAction(tr("&Copy"), this, &ReportPage::copyText);
    copy->setEnabled(m_text->selection().begin != m_text->selection().end);
    if (m_isRedacted)
        menu.addAction(tr("&Hide selection"), m_panel, &RedactionPanel::hideSelection)->setEnabled(copy->isEnabled());
    menu.addAction(tr("Select &all"), m_text, &TextView::selectAll);
    menu.addAction(tr("&Find..."), this, &ReportPage::find);
    menu.exec(global);
}
