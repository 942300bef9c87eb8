#include "shortcut_list.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QVBoxLayout>

namespace {

/// Without the sign before the mnemonic and the dots that announce a dialog.
QString plainName(const QAction &action)
{
    return QString(action.text()).remove(QLatin1Char('&')).remove(QStringLiteral("..."));
}

QString keysOf(const QAction &action)
{
    return QKeySequence::listToString(action.shortcuts(), QKeySequence::NativeText).replace(QLatin1String("; "), QLatin1String(", "));
}

} // namespace

ShortcutList::ShortcutList(const QList<QAction *> &actions, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Keys"));
    auto *table = new QTableWidget(0, 2);
    table->setAccessibleName(tr("Keys"));
    table->setHorizontalHeaderLabels({tr("Command"), tr("Keys")});
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    for (const QAction *action : actions) {
        if (action->shortcuts().isEmpty())
            continue;
        const int row = table->rowCount();
        table->insertRow(row);
        table->setItem(row, 0, new QTableWidgetItem(plainName(*action)));
        table->setItem(row, 1, new QTableWidgetItem(keysOf(*action)));
    }
    table->resizeColumnToContents(0);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(table);
    layout->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * 64, fontMetrics().height() * 24);
}
