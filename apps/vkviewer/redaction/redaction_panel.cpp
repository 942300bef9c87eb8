#include "redaction_panel.h"

#include "alias_model.h"
#include "redaction_session.h"

#include <QtCore/QEvent>
#include <QtCore/QSortFilterProxyModel>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QShortcut>
#include <QtWidgets/QTreeView>
#include <QtWidgets/QVBoxLayout>

using namespace velkor::Reports;

namespace {

constexpr int nothingChosen = -2;

QPushButton *addButton(QHBoxLayout *layout)
{
    auto *button = new QPushButton;
    button->setAutoDefault(false);
    layout->addWidget(button);
    return button;
}

} // namespace

RedactionPanel::RedactionPanel(RedactionSession *session, QWidget *parent)
    : QWidget(parent), m_session(session), m_model(new AliasModel(this)), m_sorted(new QSortFilterProxyModel(this)),
      m_list(new QTreeView(this)), m_label(new QLabel(this)), m_showOriginals(new QCheckBox(this))
{
    m_sorted->setSourceModel(m_model);
    m_sorted->setSortRole(AliasModel::SortRole);
    m_sorted->setSortLocaleAware(true);
    m_list->setModel(m_sorted);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setAlternatingRowColors(true);
    m_list->setSortingEnabled(true);
    m_list->sortByColumn(AliasModel::AliasColumn, Qt::AscendingOrder);
    m_list->setColumnHidden(AliasModel::OriginalColumn, true);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setMinimumSectionSize(fontMetrics().averageCharWidth() * 5);
    for (const int column : {AliasModel::ReasonColumn, AliasModel::OriginalColumn}) // tooltips have the rest
        m_list->header()->setSectionResizeMode(column, QHeaderView::Stretch);
    m_list->viewport()->installEventFilter(this);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0); // level with the facts beside it
    layout->addWidget(m_label);
    layout->addWidget(m_list, 1);
    auto *first = new QHBoxLayout;
    m_next = addButton(first);
    m_takeBack = addButton(first);
    m_hide = addButton(first);
    first->addStretch();
    layout->addLayout(first);
    auto *second = new QHBoxLayout;
    m_undo = addButton(second);
    m_redo = addButton(second);
    second->addWidget(m_showOriginals);
    second->addStretch();
    layout->addLayout(second);
    retranslate();
    connectWidgets();
    connectSession();
    setReport(session->report());
}

void RedactionPanel::connectSession()
{
    connect(m_session, &RedactionSession::redacted, this, &RedactionPanel::setReport);
    connect(m_session, &RedactionSession::busyChanged, this, &RedactionPanel::updateButtons);
    connect(m_session, &RedactionSession::failed, this, &RedactionPanel::showMessage);
}

void RedactionPanel::connectWidgets()
{
    connect(m_list->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &RedactionPanel::chooseRow);
    connect(m_list, &QTreeView::activated, this, &RedactionPanel::showNextPlace);
    connect(m_next, &QPushButton::clicked, this, &RedactionPanel::showNextPlace);
    connect(m_takeBack, &QPushButton::clicked, this, &RedactionPanel::takeBack);
    connect(m_hide, &QPushButton::clicked, this, &RedactionPanel::hideSelection);
    connect(m_undo, &QPushButton::clicked, m_session, &RedactionSession::undo);
    connect(m_redo, &QPushButton::clicked, m_session, &RedactionSession::redo);
    connect(m_showOriginals, &QCheckBox::toggled, this, &RedactionPanel::setShowsOriginals);
    const auto addShortcut = [this](const QKeySequence &keys, QWidget *where, auto action) {
        auto *shortcut = new QShortcut(keys, where);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    addShortcut(QKeySequence::Delete, m_list, &RedactionPanel::takeBack);
    addShortcut(QKeySequence::Undo, this, [this] { m_session->undo(); });
    addShortcut(QKeySequence::Redo, this, [this] { m_session->redo(); });
}

void RedactionPanel::setReport(const RedactedReport &report)
{
    const int row = m_list->currentIndex().row();
    m_isResetting = true; // the row that is current then is no choice of the user
    m_model->setReport(report);
    if (m_sorted->rowCount() > 0 && row >= 0)
        m_list->setCurrentIndex(m_sorted->index(qMin(row, m_sorted->rowCount() - 1), 0));
    m_isResetting = false;
    m_place = -1;
    m_selectedText.clear();
    fitColumns();
    showSummary();
    updateButtons();
}

/// By content, but so that there is room for the reason, too.
void RedactionPanel::fitColumns()
{
    const int widest = m_list->viewport()->width() / 4;
    for (int column = 0; column < AliasModel::ReasonColumn; ++column) {
        m_list->resizeColumnToContents(column);
        m_list->setColumnWidth(column, qMin(m_list->columnWidth(column), widest));
    }
}

bool RedactionPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_list->viewport() && event->type() == QEvent::Resize)
        fitColumns();
    return QWidget::eventFilter(watched, event);
}

void RedactionPanel::showSummary()
{
    int places = 0;
    for (int row = 0; row < m_sorted->rowCount(); ++row)
        places += m_sorted->index(row, AliasModel::PlacesColumn).data(AliasModel::SortRole).toInt();
    if (places == 0)
        m_label->setText(tr("Nothing was found that has to be hidden."));
    else
        m_label->setText(tr("Hidden places: %L1. Enter goes from place to place.").arg(places));
    m_label->setAccessibleName(m_label->text());
}

void RedactionPanel::showMessage(const QString &message)
{
    m_label->setText(message);
    m_label->setAccessibleName(message);
}

int RedactionPanel::chosenAlias() const
{
    const QModelIndex index = m_list->currentIndex();
    return index.isValid() ? index.data(AliasModel::AliasRole).toInt() : nothingChosen;
}

void RedactionPanel::chooseRow()
{
    if (m_isResetting)
        return;
    m_place = -1;
    showSummary();
    updateButtons();
    showNextPlace();
}

void RedactionPanel::showNextPlace()
{
    const int alias = chosenAlias();
    if (alias == nothingChosen)
        return;
    const std::vector<Replacement> places = m_session->report().replacementsOf(alias);
    if (places.empty())
        return;
    m_place = (m_place + 1) % int(places.size());
    const Replacement &place = places[std::size_t(m_place)];
    Q_EMIT placeChosen(place.begin, place.end);
}

void RedactionPanel::takeBack()
{
    const int alias = chosenAlias();
    if (alias != nothingChosen && !m_session->isBusy())
        m_session->takeBack(alias);
}

void RedactionPanel::setSelectedText(const QByteArray &utf8)
{
    m_selectedText = utf8;
    updateButtons();
}

void RedactionPanel::hideSelection()
{
    if (!m_session->isBusy())
        m_session->hide(QString::fromUtf8(m_selectedText));
}

void RedactionPanel::updateButtons()
{
    const bool isBusy = m_session->isBusy();
    const int alias = chosenAlias();
    const QString reason = alias == nothingChosen ? QString() : m_session->reasonAgainstTakingBack(alias);
    m_next->setEnabled(alias != nothingChosen);
    m_takeBack->setEnabled(!isBusy && alias != nothingChosen && reason.isEmpty());
    m_takeBack->setToolTip(reason.isEmpty() ? tr("Shows again what this stands for, in all places") : reason);
    m_hide->setEnabled(!isBusy && !m_selectedText.trimmed().isEmpty());
    m_undo->setEnabled(!isBusy && m_session->canUndo());
    m_redo->setEnabled(!isBusy && m_session->canRedo());
    if (isBusy)
        showMessage(tr("Looking for personal data..."));
}

void RedactionPanel::setShowsOriginals(bool showsThem)
{
    m_list->setColumnHidden(AliasModel::OriginalColumn, !showsThem);
}

void RedactionPanel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        setReport(m_session->report());
    }
    QWidget::changeEvent(event);
}

void RedactionPanel::retranslate()
{
    m_list->setAccessibleName(tr("What is hidden in the report"));
    m_next->setText(tr("Ne&xt place"));
    m_next->setToolTip(tr("Shows the next place in the report (Enter)"));
    m_takeBack->setText(tr("&Take back"));
    m_hide->setText(tr("Hide selectio&n"));
    m_hide->setToolTip(tr("Hides the text that is selected in the report, wherever it occurs"));
    m_undo->setText(tr("&Undo"));
    m_redo->setText(tr("&Redo"));
    m_showOriginals->setText(tr("Show &originals"));
    m_showOriginals->setToolTip(tr("Shows in the list what stood in the report, apart from secrets"));
}
