// What the window shows if no report is open.
#pragma once

#include <QtWidgets/QWidget>

class QLabel;
class QListWidget;
class RecentFiles;

class StartPage : public QWidget
{
    Q_OBJECT

public:
    /// \a recentFiles must live as long as the page.
    explicit StartPage(RecentFiles *recentFiles, QWidget *parent = nullptr);

    /// Whether reports of this machine can be made.
    void setCanMake(bool canMake);

Q_SIGNALS:
    void makeRequested();
    void openRequested();
    void fileChosen(const QString &path);

private:
    void showRecentFiles();

    RecentFiles *m_recentFiles;
    QWidget *m_make;
    QLabel *m_label;
    QListWidget *m_list;
};
