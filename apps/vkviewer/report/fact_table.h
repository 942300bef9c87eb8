// The table of facts with its filter.
#pragma once

#include "vkReports.h"

#include <QtWidgets/QWidget>

class FactModel;
class NameLabel;
class QLabel;
class QLineEdit;
class QMenu;
class QModelIndex;
class QTableView;
class QTimer;

class FactTable : public QWidget
{
    Q_OBJECT

public:
    explicit FactTable(QWidget *parent = nullptr);

    void setDocument(const velkor::Reports::Document &document);
    /// As FactModel::setScope(). \a title says what the facts belong to.
    void setScope(int first, int last, const QString &title);
    /// Makes the row of a fact the current one, without signal.
    void showFact(int fact);

    FactModel *model() const { return m_model; }
    QTableView *table() const { return m_table; }
    QLineEdit *filter() const { return m_filter; }

public Q_SLOTS:
    /// The selected rows, with tabs between the columns.
    void copy();
    /// Goes to the filter.
    void startFiltering();

Q_SIGNALS:
    /// The user wants to see the fact in the text: double click, Enter or context menu. Index in Document::facts().
    void factChosen(int fact);
    /// The user wants to copy the selected rows.
    void copyRequested();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void applyFilter();
    void goToFact(const QModelIndex &index);
    void fillMenu(QMenu &menu);
    void showCount();
    void hideEmptyColumns();

    FactModel *m_model;
    QTableView *m_table;
    QLineEdit *m_filter;
    NameLabel *m_title;
    QLabel *m_count;
    QTimer *m_timer;
};
