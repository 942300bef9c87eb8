#include "making_bar.h"

#include "report_process.h"
#include "work_text.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <algorithm>
#include <cmath>

MakingBar::MakingBar(ReportProcess *process, QWidget *parent)
    : QWidget(parent), m_process(process), m_label(new QLabel(this)), m_bar(new QProgressBar(this)), m_cancel(new QPushButton(this))
{
    m_label->setTextFormat(Qt::PlainText);
    m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long name does not widen the window
    m_bar->setTextVisible(false);
    m_bar->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_label, 3);
    layout->addWidget(m_bar, 1);
    layout->addWidget(m_cancel);
    retranslate();
    setVisible(process->isRunning());
    connect(m_cancel, &QPushButton::clicked, process, &ReportProcess::cancel);
    connect(process, &ReportProcess::started, this, &MakingBar::begin);
    connect(process, &ReportProcess::progressed, this, &MakingBar::showProgress);
    connect(process, &ReportProcess::finished, this, &QWidget::hide);
    connect(process, &ReportProcess::failed, this, &QWidget::hide);
}

void MakingBar::begin()
{
    showProgress(workText(QStringLiteral("start")), 0, m_process->timeLimit());
    setVisible(true);
}

void MakingBar::showProgress(const QString &work, double seconds, double limit)
{
    const int whole = int(std::floor(seconds));
    const QString text = limit > 0 ? tr("%1: %2 s of at most %3 s").arg(work).arg(whole).arg(limit, 0, 'g', 10)
                                   : tr("%1: %2 s").arg(work).arg(whole);
    m_label->setText(text);
    m_bar->setRange(0, int(std::ceil(limit))); // without a limit it shows that something happens
    m_bar->setValue(limit > 0 ? std::min(whole, m_bar->maximum()) : 0);
    m_bar->setAccessibleDescription(text);
}

void MakingBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void MakingBar::retranslate()
{
    m_cancel->setText(tr("&Cancel"));
    m_cancel->setAccessibleName(tr("Cancel making the report"));
    m_bar->setAccessibleName(tr("Progress of the report"));
    setAccessibleName(tr("A report is being made"));
}
