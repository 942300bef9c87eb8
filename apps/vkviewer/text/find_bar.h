// Finds in a text view.
#pragma once

#include "text_range.h"

#include <QtWidgets/QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QToolButton;
class TextSearch;
class TextView;

/// Searches while the user types, from the selection on. Marks all hits and counts them. Return and Shift+Return find the
/// next and the previous one, Escape closes the bar. The window provides shortcuts for the slots.
class FindBar : public QWidget
{
    Q_OBJECT

public:
    explicit FindBar(TextView *view, QWidget *parent = nullptr);

public Q_SLOTS:
    /// Shows the bar. A short selection becomes what is searched.
    void open();
    /// Hides the bar and its marks, and gives the focus to the view.
    void closeBar();
    /// After the last hit follows the first one. Opens the bar if nothing was searched yet.
    void findNext();
    void findPrevious();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void buildLayout();
    void leaveHit();
    void startSearch(bool showsHit);
    void restart();
    void showProgress();
    void show(TextRange hit);
    void find(bool forward);
    bool prepareToFind();
    void updateMarks();
    void updateLabel();

    TextView *m_view;
    TextSearch *m_search;
    QLineEdit *m_edit;
    QLabel *m_count;
    QToolButton *m_previous;
    QToolButton *m_next;
    QCheckBox *m_matchCase;
    QToolButton *m_close;
    int m_from = 0;           // where the search began
    bool m_isStale = true;    // the hits are those of another text
    bool m_waiting = false;   // for the first hit after m_from
    bool m_wrapped = false;   // the last step went around the end of the text
    bool m_isShowing = false; // this bar changes the selection
};
