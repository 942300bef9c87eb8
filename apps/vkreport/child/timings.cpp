#include "timings.h"

#include "exported_sections.h"
#include "part_names.h"

#include <QtCore/QElapsedTimer>
#include <algorithm>
#include <vector>
#include <vkSystemInfo.h>

using namespace velkor;

namespace {

struct Part
{
    QString name;
    double time;
};

QString line(const Part &part, double whole)
{
    const double share = whole > 0 ? 100 * part.time / whole : 0;
    return QStringLiteral("%1 ms  %2 %  %3\n").arg(part.time, 10, 'f', 3).arg(share, 5, 'f', 1).arg(part.name);
}

std::vector<Part> timedSections(const QStringList &names)
{
    std::vector<Part> parts;
    for (const QString &name : names) {
        const Section *section = findSection(name);
        parts.push_back({name, milliseconds([section] { section->text(); })});
    }
    return parts;
}

double sum(const std::vector<Part> &parts)
{
    double result = 0;
    for (const Part &part : parts)
        result += part.time;
    return result;
}

double timedReport(bool noOpenGL)
{
    return milliseconds([noOpenGL] { SystemInfo::allInfos(noOpenGL); });
}

} // namespace

double milliseconds(const std::function<void()> &run)
{
    QElapsedTimer timer;
    timer.start();
    run();
    return double(timer.nsecsElapsed()) / 1e6;
}

// The difference of two measurements can be slightly negative; zero is shown then.
QString reportTimings(bool noOpenGL, double firstCall)
{
    const double withoutOpenGL = timedReport(true);
    const double whole = noOpenGL ? withoutOpenGL : std::max(timedReport(false), withoutOpenGL);
    const std::vector<Part> sections = timedSections(exportedSectionNames());
    const double qtHalf = sum(sections);
    QString text = QStringLiteral("%1 ms           first report of this process, which was printed\n").arg(firstCall, 10, 'f', 3);
    text += line({QStringLiteral("second report, of which:"), whole}, whole);
    if (!noOpenGL)
        text += line({QStringLiteral("OpenGL"), whole - withoutOpenGL}, whole);
    text += line({QStringLiteral("Windows half and network interfaces"), std::max(withoutOpenGL - qtHalf, 0.0)}, whole);
    text += line({QStringLiteral("Qt half, of which:"), qtHalf}, whole);
    for (const Part &section : sections)
        text += line(section, whole);
    return text;
}

QString sectionTimings(const QStringList &names)
{
    const std::vector<Part> sections = timedSections(names);
    QString text;
    for (const Part &section : sections)
        text += line(section, sum(sections));
    return text;
}
