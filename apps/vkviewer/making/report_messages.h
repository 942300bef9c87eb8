// Reads what vkreport writes to standard error.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <optional>

struct MakingProgress
{
    QString work; ///< for people
    double seconds = 0;
    double limit = 0; ///< 0 for none
};

/// Drivers write to the same stream, so any bytes can come, also in the middle of a line of vkreport.
class ReportMessages
{
public:
    void add(const QByteArray &bytes);
    /// To be called at the end of the stream: the last line may have no line feed.
    void finish();

    /// The newest since the last call; nothing if there is none.
    std::optional<MakingProgress> takeProgress();
    /// What is missing in the report and what is not as usual, one sentence each.
    const QStringList &missing() const { return m_missing; }
    /// Everything else, as it was written; of a stream without end the beginning.
    const QStringList &others() const { return m_others; }

private:
    void takeLine(const QByteArray &line);
    bool takeProgressLine(const QString &line);

    QByteArray m_rest; ///< the beginning of a line
    std::optional<MakingProgress> m_progress;
    QStringList m_missing;
    QStringList m_others;
};
