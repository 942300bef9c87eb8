#include "comparison_tab.h"

#include "comparison_notes.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>

namespace {

enum Page {
    MessagePage,
    ContentPage,
};

} // namespace

ComparisonTab::ComparisonTab(std::vector<LoadedReport> reports, const PersonalData &personalData, QWidget *parent)
    : QWidget(parent), m_originals(std::move(reports)), m_personalData(personalData),
      m_summary(plainLabel(this, QStringLiteral("summary"))), m_notes(plainLabel(this, QStringLiteral("notes"))),
      m_privacy(plainLabel(this, QStringLiteral("privacy"))), m_message(plainLabel(this, QStringLiteral("message"))),
      m_pages(new QStackedWidget(this))
{
    for (QLabel *label : {m_summary, m_notes, m_privacy, m_message})
        label->setWordWrap(true);
    m_message->setAlignment(Qt::AlignCenter);
}

ComparisonTab::~ComparisonTab() = default;

void ComparisonTab::setUp(const QList<QWidget *> &top, QWidget *content)
{
    auto *layout = new QVBoxLayout(this);
    for (QWidget *widget : top + QList<QWidget *> {m_notes, m_privacy})
        layout->addWidget(widget);
    m_pages->addWidget(m_message);
    m_pages->addWidget(content);
    layout->addWidget(m_pages, 1);
    start();
}

QLabel *ComparisonTab::plainLabel(QWidget *parent, const QString &objectName) const
{
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setObjectName(objectName);
    return label;
}

QCheckBox *ComparisonTab::makeEveryMoment(QWidget *parent)
{
    m_everyMoment = new QCheckBox(tr("Show what changes every &moment"), parent);
    m_everyMoment->setObjectName(QStringLiteral("everyMoment"));
    m_everyMoment->setToolTip(tr("Times, free memory, process ids"));
    connect(m_everyMoment, &QCheckBox::toggled, this, &ComparisonTab::setShowsEveryMoment);
    return m_everyMoment;
}

bool ComparisonTab::areReports() const
{
    return m_originals.size() > 1
        && std::all_of(m_originals.begin(), m_originals.end(), [](const LoadedReport &report) { return report.isReport(); });
}

void ComparisonTab::start()
{
    m_shown.clear();
    clearComparison();
    m_focus.show(m_pages, m_message); // a table that gets the focus would choose a row
    m_summary->clear();

    const bool isHidden = m_personalData.isHidden;
    if (!isHidden)
        m_shown = m_originals;
    updateNotes();
    m_privacy->setText(ComparisonNotes::privacy(isHidden));
    m_message->setText(ComparisonNotes::work(isHidden));

    const auto reports = std::make_shared<std::vector<LoadedReport>>();
    const Comparing comparing = areReports() ? this->comparing() : Comparing();
    const auto work = [reports, originals = m_originals, data = m_personalData, key = m_aliasKey, compare = comparing.compare](const std::atomic_bool &cancelled) {
        *reports = data.isHidden ? withoutPersonalData(originals, data.hide, key) : originals;
        if (compare && !cancelled)
            compare(*reports, cancelled);
    };
    m_task.start(work, [this, reports, take = comparing.take] { finish(*reports, take); });
}

void ComparisonTab::finish(const std::vector<LoadedReport> &reports, const std::function<bool()> &take)
{
    m_shown = reports;
    updateNotes();
    if (!take || !take()) {
        m_message->setText(take ? tr("There is not enough memory to compare these reports.") : tr("There is nothing to compare."));
        return;
    }
    m_focus.showAgain(m_pages, ContentPage);
    showWanted();
    Q_EMIT compared();
}

void ComparisonTab::setPersonalData(const PersonalData &personalData)
{
    if (personalData == m_personalData)
        return;
    m_personalData = personalData;
    keepCurrent();
    start();
}

void ComparisonTab::updateNotes()
{
    QStringList notes;
    for (const LoadedReport &report : m_shown)
        notes += ComparisonNotes::of(report);
    notes.removeDuplicates();
    m_notes->setText(notes.join(QLatin1Char('\n')));
    m_notes->setVisible(!notes.isEmpty());
    takeNames();
    Q_EMIT namesChanged();
}

void ComparisonTab::setShowsEveryMoment(bool shows)
{
    if (shows == m_showsEveryMoment)
        return;
    m_showsEveryMoment = shows;
    m_everyMoment->setChecked(shows);
    takeShowsEveryMoment();
    Q_EMIT showsEveryMomentChanged(shows);
}
