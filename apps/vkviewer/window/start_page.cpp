#include "start_page.h"

#include "recent_files.h"
#include "report/shown_text.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtWidgets/QCommandLinkButton>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QVBoxLayout>

StartPage::StartPage(RecentFiles *recentFiles, QWidget *parent)
    : QWidget(parent), m_recentFiles(recentFiles), m_label(new QLabel(tr("&Recent reports:"))), m_list(new QListWidget)
{
    auto *make = new QCommandLinkButton(tr("&Make a report of this machine"), tr("It stays on this machine until you send it."));
    auto *open = new QCommandLinkButton(tr("&Open a report"), tr("Text from a file or a mail, or JSON. You can also drop files here."));
    make->setObjectName(QStringLiteral("makeButton"));
    open->setObjectName(QStringLiteral("openButton"));
    m_make = make;
    m_label->setTextFormat(Qt::PlainText);
    m_label->setBuddy(m_list);
    m_list->setAccessibleName(tr("Recent reports"));
    m_list->setUniformItemSizes(true);
    m_list->setTextElideMode(Qt::ElideMiddle);

    auto *content = new QWidget;
    content->setMaximumWidth(fontMetrics().averageCharWidth() * 90);
    auto *column = new QVBoxLayout(content);
    column->addStretch(1);
    column->addWidget(make);
    column->addWidget(open);
    column->addSpacing(fontMetrics().height());
    column->addWidget(m_label);
    column->addWidget(m_list, 4);
    column->addStretch(1);
    auto *layout = new QHBoxLayout(this);
    layout->addStretch(1);
    layout->addWidget(content, 8);
    layout->addStretch(1);

    connect(make, &QCommandLinkButton::clicked, this, &StartPage::makeRequested);
    connect(open, &QCommandLinkButton::clicked, this, &StartPage::openRequested);
    connect(m_list, &QListWidget::itemActivated, this, [this](const QListWidgetItem *item) { Q_EMIT fileChosen(item->data(Qt::UserRole).toString()); });
    connect(m_recentFiles, &RecentFiles::changed, this, &StartPage::showRecentFiles);
    showRecentFiles();
}

void StartPage::setCanMake(bool canMake)
{
    m_make->setEnabled(canMake);
}

void StartPage::showRecentFiles()
{
    m_list->clear();
    const QStringList paths = m_recentFiles->paths();
    for (const QString &path : paths) {
        const QFileInfo file(path);
        auto *item = new QListWidgetItem(lineText(QStringLiteral("%1 (%2)").arg(file.fileName(), QDir::toNativeSeparators(file.path()))), m_list);
        item->setData(Qt::UserRole, path);
        item->setToolTip(plainToolTip(QDir::toNativeSeparators(path)));
    }
    m_label->setVisible(!paths.isEmpty());
    m_list->setVisible(!paths.isEmpty());
}
