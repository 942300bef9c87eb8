// A host that links with the library and writes the result of each of its functions to a file:
// report_host FILE. The same source is built for MinGW's ABI and for MSVC's.
#include <QtCore/QByteArray>
#include <QtWidgets/QApplication>
#include <cstdio>

#include "vkSystemInfo.h"

using namespace velkor::SystemInfo;

static FILE *output = nullptr;

// Each result follows a line with the name of its function.
static void write(const char *name, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    fputs("=== ", output);
    fputs(name, output);
    fputs("\n", output);
    fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), output);
    fputs("\n", output);
    fflush(output);
}

static void write(const char *name, const COpenGLVersionInfo &version)
{
    write(name, QStringLiteral("%1 %2 %3 %4 %5").arg(version.bDefault ? 1 : 0).arg(version.nVersionFlags).arg(version.nMajor).arg(version.nMinor).arg(version.strVersion));
}

static void write(const char *name, bool (*check)(int &, QString &))
{
    int error = -1;
    QString version = QStringLiteral("unchanged");
    const bool found = check(error, version);
    write(name, QStringLiteral("%1 %2 %3").arg(found ? 1 : 0).arg(error).arg(version));
}

int main(int argc, char **argv)
{
    output = argc > 1 ? fopen(argv[1], "wb") : nullptr;
    if (!output)
        return 2;
    const QApplication application(argc, argv);

    int patch = -1;
    int minor = -1;
    int major = -1;
    libVersion(patch, minor, major);
    write("libVersion", QStringLiteral("%1.%2.%3").arg(major).arg(minor).arg(patch));
    write("libVersionString", libVersionString());
    write("separator", separator());
    write("platformName", platformName());
    write("checkStandardBonjour", &WinSysInfo::checkStandardBonjour);
    write("checkVelkorBonjour", &WinSysInfo::checkVelkorBonjour);
    write("qtGlobal", qtGlobal());
    write("qtCoreApplication", qtCoreApplication());
    write("qtLocale", qtLocale());
    write("qtDateTime", qtDateTime());
    write("qtHostInfo", qtHostInfo());
    write("qtAccessibility", qtAccessibility());
    write("qtPrinterInfo", qtPrinterInfo());
    write("qtSystemEnvironment", qtSystemEnvironment());
    write("qtScreens", qtScreens());
    write("qtDesktop", qtDesktop());
    write("qtDesktopServices", qtDesktopServices());
    write("allInfos(true)", allInfos(true));
    write("GetOpenGLVersion", ScanOpenGLInfo::GetOpenGLVersion());
    write("GetOpenGLVersionCached", ScanOpenGLInfo::GetOpenGLVersionCached());
    write("allInfos(false)", allInfos(false));
    write("end", QString());
    return fclose(output) == 0 ? 0 : 1;
}
