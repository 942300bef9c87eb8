#include "report_loader.h"

#include <QtCore/QFileInfo>
#include <QtCore/QThread>
#include <functional>
#include <new>

namespace {

constexpr int longestWait = 3000; // milliseconds

std::optional<LoadedReport> loadSource(const ReportLoader::Source &source, QString &error)
{
    if (const auto *fileName = std::get_if<QString>(&source))
        return LoadedReport::fromFile(*fileName, error);
    const auto &bytes = std::get<ReportLoader::Bytes>(source);
    return LoadedReport::fromBytes(bytes.bytes, bytes.name, error);
}

class LoadingThread : public QThread
{
public:
    explicit LoadingThread(const ReportLoader::Source &source)
        : m_source(source)
    {
    }

    std::optional<PreparedReport> report;
    QString error;

protected:
    void run() override
    {
        try {
            if (const auto loaded = loadSource(m_source, error))
                report = PreparedReport::of(*loaded);
        } catch (const std::bad_alloc &) {
            report.reset();
            error = ReportLoader::tr("There is too little memory for this report.");
        }
    }

private:
    ReportLoader::Source m_source;
};

} // namespace

ReportLoader::ReportLoader(QObject *parent)
    : QObject(parent)
{
}

ReportLoader::~ReportLoader()
{
    QThread *thread = m_thread;
    cancel();
    if (thread)
        thread->wait(longestWait); // otherwise it goes on until the process ends
}

int ReportLoader::load(const std::vector<Source> &sources)
{
    ++m_lastRequest;
    for (const Source &source : sources)
        m_jobs.push_back({m_lastRequest, source, &source == &sources.back()});
    if (!m_thread)
        startNext();
    return m_lastRequest;
}

QString ReportLoader::currentName() const
{
    if (m_jobs.empty())
        return {};
    const Source &source = m_jobs.front().source;
    const auto *fileName = std::get_if<QString>(&source);
    return fileName ? QFileInfo(*fileName).fileName() : std::get<Bytes>(source).name;
}

void ReportLoader::cancel()
{
    m_jobs.clear();
    m_thread = nullptr;
    ++m_run;
    Q_EMIT loadingChanged();
}

void ReportLoader::startNext()
{
    m_thread = nullptr;
    if (!m_jobs.empty()) {
        auto *thread = new LoadingThread(m_jobs.front().source);
        m_thread = thread;
        const int run = ++m_run;
        // The thread belongs to this thread: it deletes itself after the result was taken, also if nobody wants it.
        connect(thread, &QThread::finished, this, [this, run, thread] { takeResult(run, thread->report, thread->error); });
        connect(thread, &QThread::finished, thread, &QObject::deleteLater);
        thread->start();
    }
    Q_EMIT loadingChanged();
}

void ReportLoader::takeResult(int run, const std::optional<PreparedReport> &report, const QString &error)
{
    if (run != m_run)
        return;
    const Job job = m_jobs.front();
    m_jobs.pop_front();
    startNext();
    if (report)
        Q_EMIT loaded(job.request, *report);
    else
        Q_EMIT failed(job.request, error);
    if (job.isLast)
        Q_EMIT finished(job.request);
}
