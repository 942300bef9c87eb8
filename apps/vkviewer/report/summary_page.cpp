#include "summary_page.h"

#include "shown_text.h"
#include "state_sentences.h"
#include "summary_model.h"
#include "table_menu.h"

#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QTableView>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>
#include <numeric>

namespace {

QLabel *makeLabel()
{
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

} // namespace

SummaryPage::SummaryPage(QWidget *parent)
    : QWidget(parent), m_model(new SummaryModel(this)), m_title(makeLabel()), m_notes(makeLabel()), m_table(new QTableView)
{
    QFont font = m_title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    m_title->setFont(font);
    m_title->setFocusPolicy(Qt::NoFocus);
    m_notes->setFocusPolicy(Qt::NoFocus);
    m_table->setModel(m_model);
    m_table->setAccessibleName(tr("Summary of the report"));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setTabKeyNavigation(false);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setMinimumSectionSize(fontMetrics().height());
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 4 / 3);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setHighlightSections(false);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_title);
    layout->addWidget(m_notes);
    layout->addWidget(m_table, 1);
    new TableMenu(m_table, [this](QMenu &menu) { fillMenu(menu); });
}

void SummaryPage::fillMenu(QMenu &menu)
{
    menu.addAction(tr("&Copy"), this, &SummaryPage::copyRequested)->setEnabled(m_model->rowCount() > 0);
    menu.addAction(tr("Select &all"), m_table, &QTableView::selectAll)->setEnabled(m_model->rowCount() > 0);
}

void SummaryPage::setReport(const PreparedReport &report)
{
    m_model->setLines(report.summary);
    m_title->setText(lineText(report.report.name));
    const QStringList notes = stateSentences(report.report.document.states(), StateWeight::Any);
    m_notes->setText(notes.join(QLatin1Char('\n')));
    m_notes->setVisible(!notes.isEmpty());
    constexpr int mostRows = 200; // a report with many failures has one for each
    m_table->resizeColumnToContents(0);
    m_table->verticalHeader()->setSectionResizeMode(m_table->model()->rowCount() <= mostRows ? QHeaderView::ResizeToContents : QHeaderView::Fixed);
}

const velkor::Reports::SummaryLine *SummaryPage::currentLine() const
{
    const QModelIndex index = m_table->currentIndex();
    return index.isValid() ? &m_model->line(index.row()) : nullptr;
}

void SummaryPage::copy()
{
    std::vector<int> rows;
    const QModelIndexList selected = m_table->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    if (rows.empty()) {
        rows.resize(std::size_t(m_model->rowCount()));
        std::iota(rows.begin(), rows.end(), 0);
    }
    QApplication::clipboard()->setText(m_model->text(rows));
}
