// Calls the library once, with a host and a Qt built by MSVC. Writes the report to standard output
// and what it checked to standard error.
#include <cstdio>

#include <QtWidgets/QApplication>

#include "vkSystemInfo.h"

int main(int count, char *arguments[])
{
    QApplication application(count, arguments);
    int patch = -1;
    int minor = -1;
    int major = -1;
    velkor::SystemInfo::libVersion(patch, minor, major);
    const QString version = QStringLiteral("%1.%2.%3").arg(major).arg(minor).arg(patch);
    const bool sameVersion = version == velkor::SystemInfo::libVersionString();
    std::fprintf(stderr, "%s libVersion and libVersionString: %s\n", sameVersion ? "ok     " : "FAILED ",
                 qPrintable(version));

    const QString report = velkor::SystemInfo::allInfos(false);
    const QByteArray bytes = report.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
    const bool complete = report.contains(velkor::SystemInfo::separator())
        && report.contains(velkor::SystemInfo::platformName()) && report.endsWith(QLatin1Char('\n'));
    std::fprintf(stderr, "%s allInfos: %d characters\n", complete ? "ok     " : "FAILED ", report.size());
    return sameVersion && complete ? 0 : 1;
}
