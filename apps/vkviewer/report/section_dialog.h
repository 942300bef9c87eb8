// Goes to a section by a few letters of its name.
#pragma once

#include "vkReports.h"

#include <QtWidgets/QDialog>

class QLineEdit;
class QListWidget;

class SectionDialog : public QDialog
{
    Q_OBJECT

public:
    explicit SectionDialog(const velkor::Reports::Document &document, QWidget *parent = nullptr);

    /// Index in Document::sections(); -1 if none is chosen.
    int section() const;

    /// How well \a letters match \a name: they must occur in it in this order. Less is better; -1 for no match. Case and
    /// spaces do not matter.
    static int distance(const QString &letters, const QString &name);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Entry
    {
        int section = 0;
        QString title;
        QString name;    ///< of the function
        QString heading; ///< as in the text
    };

    void showMatches();

    std::vector<Entry> m_entries;
    QLineEdit *m_edit;
    QListWidget *m_list;
};
