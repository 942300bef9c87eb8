// The list of what was replaced in a report. One can be shown, taken back, and a selection can be hidden.
#pragma once

#include "redacted_report.h"

#include <QtWidgets/QWidget>

class AliasModel;
class QCheckBox;
class QLabel;
class QPushButton;
class QSortFilterProxyModel;
class QTreeView;
class RedactionSession;

class RedactionPanel : public QWidget
{
    Q_OBJECT

public:
    /// \a session must live as long as the panel.
    explicit RedactionPanel(RedactionSession *session, QWidget *parent = nullptr);

public Q_SLOTS:
    /// The bytes that are selected in the view of the redacted text.
    void setSelectedText(const QByteArray &utf8);
    /// Hides the selected text wherever it occurs.
    void hideSelection();
    /// Shows again what the chosen row stands for.
    void takeBack();
    /// The next place of the chosen row; after the last one the first.
    void showNextPlace();
    /// Shows a message until something else happens.
    void showMessage(const QString &message);

Q_SIGNALS:
    /// Byte offsets in the redacted text. The view is to show them.
    void placeChosen(int begin, int end);

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void connectSession();
    void connectWidgets();
    void setReport(const RedactedReport &report);
    void fitColumns();
    void chooseRow();
    void updateButtons();
    void retranslate();
    void setShowsOriginals(bool showsThem);
    int chosenAlias() const; ///< index in Redaction::aliases, -1 for lengths, -2 for nothing
    void showSummary();

    RedactionSession *m_session;
    AliasModel *m_model;
    QSortFilterProxyModel *m_sorted;
    QTreeView *m_list;
    QLabel *m_label;
    QCheckBox *m_showOriginals;
    QPushButton *m_next;
    QPushButton *m_takeBack;
    QPushButton *m_hide;
    QPushButton *m_undo;
    QPushButton *m_redo;
    QByteArray m_selectedText;
    int m_place = -1; ///< which place of the chosen row is shown
    bool m_isResetting = false;
};
