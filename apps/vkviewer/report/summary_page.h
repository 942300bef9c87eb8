// What support asks for first.
#pragma once

#include "prepared_report.h"

#include <QtWidgets/QWidget>

class QLabel;
class QMenu;
class QTableView;
class SummaryModel;

class SummaryPage : public QWidget
{
    Q_OBJECT

public:
    explicit SummaryPage(QWidget *parent = nullptr);

    void setReport(const PreparedReport &report);
    QTableView *table() const { return m_table; }
    /// Null if no row is current.
    const velkor::Reports::SummaryLine *currentLine() const;

public Q_SLOTS:
    /// The selected lines; all of them if none is selected.
    void copy();

Q_SIGNALS:
    /// The user wants to copy the selected lines.
    void copyRequested();

private:
    void fillMenu(QMenu &menu);

    SummaryModel *m_model;
    QLabel *m_title;
    QLabel *m_notes;
    QTableView *m_table;
};
