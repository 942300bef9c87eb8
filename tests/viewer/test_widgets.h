// What several tests of the window do with widgets.
#pragma once

#include <QtTest/QtTest>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTableView>

/// Clicks into a cell that is shown. QTableView::selectRow() would depend on the keys of the last event.
inline void clickRow(QTableView *table, int row)
{
    int column = 0;
    while (table->isColumnHidden(column))
        ++column;
    const QModelIndex index = table->model()->index(row, column);
    table->scrollTo(index);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(index).center());
}

/// The button inside a widget with this text, apart from its mnemonic.
inline QPushButton *buttonOf(const QWidget *widget, const char *text)
{
    for (QPushButton *button : widget->findChildren<QPushButton *>()) {
        if (QString(button->text()).remove(QLatin1Char('&')) == QLatin1String(text))
            return button;
    }
    qFatal("no button %s", text);
    return nullptr; // MSVC does not know that qFatal() does not return
}
