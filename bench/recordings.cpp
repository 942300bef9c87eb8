#include "recordings.h"

#include <QtCore/QDataStream>
#include <QtCore/QFile>

namespace simulated { // argument-dependent lookup finds the operators here

static QDataStream &operator<<(QDataStream &stream, const Call &call)
{
    return stream << call.name << call.key << call.value << call.access << call.sizeIn;
}

static QDataStream &operator>>(QDataStream &stream, Call &call)
{
    return stream >> call.name >> call.key >> call.value >> call.access >> call.sizeIn;
}

} // namespace simulated

namespace bench {
namespace {

QStringList toText(const Calls &calls)
{
    QStringList lines;
    for (const simulated::Call &call : calls) {
        lines += QStringLiteral("%1 '%2' '%3' access 0x%4 size %5 -> %6, result %7, given '%8'")
                     .arg(QString::fromLatin1(call.name), call.key, call.value)
                     .arg(call.access, 0, 16)
                     .arg(call.sizeIn)
                     .arg(call.sizeOut)
                     .arg(call.result)
                     .arg(call.given.join(QLatin1Char(' ')));
    }
    return lines;
}

} // namespace

Calls recordedCalls(const std::function<void()> &run)
{
    simulated::reset();
    run();
    simulated::stopRecording();
    return Calls(simulated::journal().begin(), simulated::journal().end());
}

Recordings recordSections(bool withOpenGL)
{
    Recordings recordings;
    for (const velkor::SystemInfo::Section &section : velkor::SystemInfo::SectionTable()) {
        if (withOpenGL || section.part != velkor::SystemInfo::Part::OpenGL)
            recordings.insert(section.name, recordedCalls([&] { section.text(); }));
    }
    return recordings;
}

QString difference(const Calls &library, const Calls &baseline)
{
    const QStringList one = toText(library);
    const QStringList other = toText(baseline);
    const auto text = QStringLiteral("call %1:\n  library  %2\n  baseline %3");
    for (int i = 0; i < std::max(one.size(), other.size()); ++i) {
        if (one.value(i) != other.value(i))
            return text.arg(i + 1).arg(one.value(i), other.value(i));
    }
    return QString();
}

bool writeRecordings(const QString &fileName, const Recordings &recordings)
{
    QFile file(fileName);
    QDataStream stream(&file);
    return file.open(QIODevice::WriteOnly) && (stream << recordings).status() == QDataStream::Ok && file.flush();
}

Recordings readRecordings(const QString &fileName)
{
    QFile file(fileName);
    QDataStream stream(&file);
    Recordings recordings;
    if (file.open(QIODevice::ReadOnly))
        stream >> recordings;
    return recordings;
}

} // namespace bench
