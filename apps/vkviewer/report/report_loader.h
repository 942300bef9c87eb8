// Loads reports in a thread, so that the window answers meanwhile.
#pragma once

#include "prepared_report.h"

#include <QtCore/QObject>
#include <deque>
#include <variant>
#include <vector>

class QThread;

class ReportLoader : public QObject
{
    Q_OBJECT

public:
    /// Text that is in memory.
    struct Bytes
    {
        QByteArray bytes;
        QString name;
    };
    /// A file name or bytes.
    using Source = std::variant<QString, Bytes>;

    explicit ReportLoader(QObject *parent = nullptr);
    /// Waits a moment for the thread. A file on a drive that does not answer must not keep the program from ending.
    ~ReportLoader() override;

    /// Loads all \a sources one after another, after those of earlier requests. Returns the number of the request. For
    /// each source loaded() or failed() follows, and then finished(); not before this function returns.
    int load(const std::vector<Source> &sources);
    bool isLoading() const { return m_thread != nullptr; }
    /// What is loaded now, for people; empty if nothing is.
    QString currentName() const;

public Q_SLOTS:
    /// Forgets all requests: none of their signals follows.
    void cancel();

Q_SIGNALS:
    void loadingChanged();
    void loaded(int request, const PreparedReport &report);
    /// \a message is for the user.
    void failed(int request, const QString &message);
    void finished(int request);

private:
    struct Job
    {
        int request = 0;
        Source source;
        bool isLast = false;
    };

    void startNext();
    void takeResult(int run, const std::optional<PreparedReport> &report, const QString &error);

    std::deque<Job> m_jobs; ///< the first one is being loaded
    QThread *m_thread = nullptr;
    int m_run = 0; ///< counts threads: results of earlier ones are dropped
    int m_lastRequest = 0;
};
