// Shows what is being done while a report is made, and cancels it. Invisible otherwise.
#pragma once

#include <QtWidgets/QWidget>

class QLabel;
class QProgressBar;
class QPushButton;
class ReportProcess;

class MakingBar : public QWidget
{
    Q_OBJECT

public:
    /// \a process must live as long as the bar.
    explicit MakingBar(ReportProcess *process, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void begin();
    void showProgress(const QString &work, double seconds, double limit);
    void retranslate();

    ReportProcess *m_process;
    QLabel *m_label;
    QProgressBar *m_bar;
    QPushButton *m_cancel;
};
