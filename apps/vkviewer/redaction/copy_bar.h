// Copies and saves the report that is shown, and says before that what the text reveals.
#pragma once

#include "output/output_report.h"

#include <QtWidgets/QWidget>

class QAction;
class QCheckBox;
class QLabel;
class QPushButton;

class CopyBar : public QWidget
{
    Q_OBJECT

public:
    explicit CopyBar(QWidget *parent = nullptr);

    /// The report that the buttons are for. Without one they are disabled.
    void setReport(const OutputReport &report);
    void clear();
    /// Personal data are being hidden. Until there is a report again the buttons are disabled, and a sentence says so.
    void setHiding();
    /// The command that hides personal data. The check box is in step with it; without one it is not there.
    void setHideAction(QAction *action);

public Q_SLOTS:
    void copyText();
    void copyMarkdown();
    void copySummary();
    void save();

Q_SIGNALS:
    /// What was done, for the status bar.
    void done(const QString &message);
    /// What could not be done.
    void failed(const QString &message);

protected:
    void changeEvent(QEvent *event) override;

private:
    void copy(const QByteArray &utf8, const QString &message);
    void updateWidgets();
    void updateHide();
    void retranslate();

    OutputReport m_report;
    bool m_hasReport = false;
    bool m_isHiding = false;
    QAction *m_hideAction = nullptr;
    QLabel *m_sentence;
    QCheckBox *m_hide;
    QPushButton *m_text;
    QPushButton *m_markdown;
    QPushButton *m_summary;
    QPushButton *m_save;
};
