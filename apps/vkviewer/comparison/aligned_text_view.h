// The texts of two reports beside each other.
#pragma once

#include "aligned_text_model.h"

#include <QtWidgets/QTableView>

/// Two tables that scroll together. Lines that belong together stand in the same row; only lines that are visible are laid
/// out. Ctrl+C copies the selected lines of the side that has the focus, byte for byte.
class AlignedTextView : public QWidget
{
    Q_OBJECT

public:
    explicit AlignedTextView(QWidget *parent = nullptr);

    void setReports(std::shared_ptr<const ComparedReports> reports);
    void setRows(LineIndexes rows);
    void setShowsEveryMoment(bool shows);

    /// Selects the rows of AlignedText and scrolls so that the newer ones are visible, or the older ones if there are no newer.
    void showRows(LineIndexes older, LineIndexes newer);
    void clearSelection();

    QTableView *olderView() const { return m_older; }
    QTableView *newerView() const { return m_newer; }

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QTableView *makeView(bool older);
    void scrollTogether(QScrollBar *a, QScrollBar *b);
    void updateSizes();
    void showPart(int row);
    LineIndexes shownRows(LineIndexes rows) const;

    AlignedTextModel *m_model;
    QTableView *m_older;
    QTableView *m_newer;
    bool m_isScrolling = false;
};
