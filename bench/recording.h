// What a piece of code asks of the platform, call by call.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <functional>
#include <vector>

namespace bench {

/// One call as the caller made it and as it was answered, in the words of the
/// simulated Windows' journal. Handles and addresses are told as 1 and 0.
struct Call
{
    QByteArray name;
    QString key;
    QString value;
    quint32 access = 0;
    quint64 sizeIn = 0;
    quint64 sizeOut = 0;
    qint64 result = 0;
};

bool operator==(const Call &one, const Call &other);
QString toText(const Call &call);

/// Every call that \a run makes of those that the sections use. Nothing is recorded
/// at other times.
std::vector<Call> recorded(const std::function<void()> &run);

/// The first call in which two recordings differ, for a reader; empty when they are
/// the same.
QString difference(const std::vector<Call> &one, const std::vector<Call> &other);

/// Recordings as a file: the calls of a baseline that must not make them first.
using Recordings = std::vector<std::pair<QByteArray, std::vector<Call>>>;
bool writeRecordings(const QString &fileName, const Recordings &recordings);
Recordings readRecordings(const QString &fileName);

} // namespace bench
