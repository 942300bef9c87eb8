#include "recording.h"

#include <QtCore/QDataStream>
#include <QtCore/QFile>

namespace bench {
namespace {

template <typename Stream, typename Record>
void transfer(Stream &stream, Record &call)
{
    const auto fields = [&](auto &...field) {
        if constexpr (std::is_const_v<Record>)
            (stream << ... << field);
        else
            (stream >> ... >> field);
    };
    fields(call.name, call.key, call.value, call.access, call.sizeIn, call.sizeOut, call.result);
}

} // namespace

bool operator==(const Call &one, const Call &other)
{
    return one.name == other.name && one.key == other.key && one.value == other.value && one.access == other.access
        && one.sizeIn == other.sizeIn && one.sizeOut == other.sizeOut && one.result == other.result;
}

QString toText(const Call &call)
{
    return QStringLiteral("%1 '%2' '%3' access 0x%4 size %5 -> %6, result %7")
        .arg(QString::fromLatin1(call.name), call.key, call.value)
        .arg(call.access, 0, 16)
        .arg(call.sizeIn)
        .arg(call.sizeOut)
        .arg(call.result);
}

QString difference(const std::vector<Call> &one, const std::vector<Call> &other)
{
    for (std::size_t i = 0; i < std::max(one.size(), other.size()); ++i) {
        if (i < one.size() && i < other.size() && one[i] == other[i])
            continue;
        const auto text = [i](const std::vector<Call> &calls) {
            return i < calls.size() ? toText(calls[i]) : QStringLiteral("no more calls");
        };
        return QStringLiteral("call %1 of %2 and %3:\n  %4\n  %5")
            .arg(i + 1)
            .arg(one.size())
            .arg(other.size())
            .arg(text(one), text(other));
    }
    return QString();
}

bool writeRecordings(const QString &fileName, const Recordings &recordings)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QDataStream stream(&file);
    stream << quint32(recordings.size());
    for (const auto &[name, calls] : recordings) {
        stream << name << quint32(calls.size());
        for (const Call &call : calls)
            transfer(stream, call);
    }
    return stream.status() == QDataStream::Ok && file.flush();
}

Recordings readRecordings(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QDataStream stream(&file);
    quint32 count = 0;
    stream >> count;
    Recordings recordings(count);
    for (auto &[name, calls] : recordings) {
        quint32 callCount = 0;
        stream >> name >> callCount;
        calls.resize(callCount);
        for (Call &call : calls)
            transfer(stream, call);
    }
    return stream.status() == QDataStream::Ok ? recordings : Recordings();
}

} // namespace bench
