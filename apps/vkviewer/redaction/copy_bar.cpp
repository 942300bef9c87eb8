#include "copy_bar.h"

#include "output/report_saving.h"

#include <QtCore/QEvent>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QAction>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

CopyBar::CopyBar(QWidget *parent)
    : QWidget(parent), m_sentence(new QLabel(this)), m_hide(new QCheckBox(this)), m_text(new QPushButton(this)), m_markdown(new QPushButton(this)),
      m_summary(new QPushButton(this)), m_save(new QPushButton(this))
{
    m_sentence->setTextFormat(Qt::PlainText);
    m_sentence->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_sentence);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_hide);
    m_hide->hide();
    for (QPushButton *button : {m_text, m_markdown, m_summary, m_save}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    layout->addLayout(buttons);
    connect(m_hide, &QCheckBox::clicked, this, [this] {
        m_hideAction->trigger();
        updateHide(); // the command can be disabled
    });
    connect(m_text, &QPushButton::clicked, this, &CopyBar::copyText);
    connect(m_markdown, &QPushButton::clicked, this, &CopyBar::copyMarkdown);
    connect(m_summary, &QPushButton::clicked, this, &CopyBar::copySummary);
    connect(m_save, &QPushButton::clicked, this, &CopyBar::save);
    retranslate();
}

void CopyBar::setReport(const OutputReport &report)
{
    m_report = report;
    m_hasReport = true;
    m_isHiding = false;
    updateWidgets();
}

void CopyBar::clear()
{
    m_report = {};
    m_hasReport = false;
    m_isHiding = false;
    updateWidgets();
}

void CopyBar::setHiding()
{
    m_report = {};
    m_hasReport = false;
    m_isHiding = true;
    updateWidgets();
}

void CopyBar::setHideAction(QAction *action)
{
    m_hideAction = action;
    connect(action, &QAction::changed, this, &CopyBar::updateHide); // also when it is switched
    updateHide();
    m_hide->show();
}

void CopyBar::updateHide()
{
    m_hide->setEnabled(m_hideAction->isEnabled());
    m_hide->setChecked(m_hideAction->isChecked());
}

void CopyBar::copy(const QByteArray &utf8, const QString &message)
{
    QGuiApplication::clipboard()->setText(QString::fromUtf8(utf8));
    Q_EMIT done(message);
}

void CopyBar::copyText()
{
    if (m_hasReport)
        copy(m_report.document.text(), tr("The whole text was copied."));
}

void CopyBar::copyMarkdown()
{
    if (m_hasReport)
        copy(issueMarkdown(m_report), tr("Markdown of at most %L1 characters was copied.").arg(largestIssue));
}

void CopyBar::copySummary()
{
    if (m_hasReport)
        copy(summaryText(m_report), tr("The summary was copied."));
}

void CopyBar::save()
{
    if (!m_hasReport)
        return;
    QString message;
    const SaveResult result = saveReport(this, m_report, message);
    if (result == SaveResult::Saved)
        Q_EMIT done(message);
    else if (result == SaveResult::Failed)
        Q_EMIT failed(message);
}

void CopyBar::updateWidgets()
{
    for (QPushButton *button : {m_text, m_markdown, m_summary, m_save})
        button->setEnabled(m_hasReport);
    if (m_isHiding)
        m_sentence->setText(tr("Personal data are being hidden. Until then nothing can be copied or saved."));
    else if (m_report.isRedacted())
        m_sentence->setText(tr("Names, addresses and secrets are hidden, but the report is not anonymous: its hardware, programs and dates can identify the machine."));
    else
        m_sentence->setText(tr("The report contains names, addresses and all environment variables, which may hold passwords: send it only to people who need it."));
    m_sentence->setVisible(m_hasReport || m_isHiding);
}

void CopyBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void CopyBar::retranslate()
{
    m_hide->setText(tr("Hide &personal data"));
    m_hide->setAccessibleDescription(tr("Replaces names, addresses and secrets in what is shown, copied and saved"));
    m_text->setText(tr("&Copy text"));
    m_text->setAccessibleDescription(tr("Copies the whole text of the report"));
    m_markdown->setText(tr("Copy &Markdown"));
    m_markdown->setAccessibleDescription(tr("Copies the report for an issue tracker"));
    m_summary->setText(tr("Cop&y summary"));
    m_summary->setAccessibleDescription(tr("Copies what support asks for first"));
    m_save->setText(tr("&Save..."));
    m_save->setAccessibleDescription(tr("Saves the report as text, JSON, web page or Markdown"));
    updateWidgets();
}
