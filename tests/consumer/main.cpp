// A host that calls every exported function once and compares the results with each other. Prints
// the names of the functions that fail.

#include <vkSystemInfo.h>

#include <QtWidgets/QApplication>

#include <cstdio>

using namespace velkor::SystemInfo;

namespace {

int problems = 0;

void check(bool succeeded, const char *what)
{
    if (succeeded)
        return;
    std::printf("wrong: %s\n", what);
    ++problems;
}

struct Section
{
    const char *name;
    QString (*text)();
    const char *start;
    bool changes; // between two calls
};

const Section sections[] = {
    {"qtGlobal", qtGlobal, "Qt Global\nQt version this object was linked against: 5.15.", false},
    {"qtCoreApplication", qtCoreApplication, "QCoreApplication:\nApplication Version:  4.5.6\nApplication Name:     consumer\n", false},
    {"qtLocale", qtLocale, "QLocale\nCountry:          ", false},
    {"qtDateTime", qtDateTime, "Local Date and Time: ", true},
    {"qtHostInfo", qtHostInfo, "QHostInfo\nLocal host name:   ", false},
    {"qtAccessibility", qtAccessibility, "Qt Accessibility\nQAccessible::isActive() = ", false},
    {"qtPrinterInfo", qtPrinterInfo, "QPrinterInfo\nAvailable printers:\n   ", false},
    {"qtSystemEnvironment", qtSystemEnvironment, "System environemnt (QProcess::systemEnvironment()):\n  ", false},
    {"qtScreens", qtScreens, "QScreen (hardware)\n#1\n  Name: ", false},
    {"qtDesktop", qtDesktop, "QScreen (Desktop)\nDesktop file name: ", false},
    {"qtDesktopServices", qtDesktopServices, "QDesktopServices\nHomeLocation\nDesktop:                   ", false},
};

void checkVersion()
{
    int patch = 0;
    int minor = 0;
    int major = 0;
    libVersion(patch, minor, major);
    check(major == 1 && minor == 3 && patch == 12, "libVersion");
    check(libVersionString() == QLatin1String("1.3.12"), "libVersionString");
}

void checkSections(const QString &report)
{
    const QString rule = separator();
    check(rule == QString(72, QLatin1Char('-')) + QLatin1Char('\n'), "separator");
    for (const Section &section : sections) {
        const QString text = section.text();
        check(text.startsWith(QLatin1String(section.start)) && text.endsWith(QLatin1Char('\n'))
                  && (section.changes || report.contains(QLatin1Char('\n') + text + rule)),
              section.name);
    }
    const QString name = platformName();
    check(name.startsWith(QLatin1String("Windows ")) && report.contains(QString(19, QLatin1Char(' ')) + name + QLatin1Char('\n')),
          "platformName");
}

void checkBonjour(const QString &report, const char *label, bool (*find)(int &, QString &), const char *name)
{
    const QString before = QStringLiteral("unchanged");
    int error = -1;
    QString version = before;
    const bool isFound = find(error, version);
    QString lines = QLatin1String(label) + QLatin1String(isFound ? "installed.\nDNS-SD version: " : "not installed.\n");
    if (isFound && error == 0 && version != before)
        lines += version + QLatin1Char('\n');
    check(report.contains(lines) && (isFound || (error == 0 && version == before)), name);
}

void checkOpenGL(const QString &report)
{
    const COpenGLVersionInfo info = ScanOpenGLInfo::GetOpenGLVersion();
    const QString line = QStringLiteral("\nopenGLVersionFlags 0x%1 %2\n").arg(info.nVersionFlags, 0, 16).arg(info.strVersion);
    check(!info.bDefault && report.contains(line)
              && info.strVersion == QStringLiteral("OpenGL %1.%2").arg(info.nMajor).arg(info.nMinor),
          "GetOpenGLVersion");
    const COpenGLVersionInfo kept = ScanOpenGLInfo::GetOpenGLVersionCached();
    check(!kept.bDefault && kept.nVersionFlags == info.nVersionFlags && kept.nMajor == info.nMajor
              && kept.nMinor == info.nMinor && kept.strVersion == info.strVersion,
          "GetOpenGLVersionCached");
}

void checkReports(const QString &report, const QString &withoutOpenGL)
{
    const QLatin1String heading("############ Windows specific section ###########\n");
    const QLatin1String openGL("#### QGLFormat #### \n");
    check(withoutOpenGL.startsWith(heading) && withoutOpenGL.endsWith(separator()) && !withoutOpenGL.contains(openGL),
          "allInfos(true)");
    check(report.startsWith(heading) && report.endsWith(separator()) && report.contains(separator() + openGL)
              && report.contains(QLatin1String("glGetString(GL_RENDERER) = ")) && !report.contains(QLatin1Char('\r')),
          "allInfos(false)");
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("consumer"));
    QCoreApplication::setApplicationVersion(QStringLiteral("4.5.6"));
    const QString report = allInfos(false);
    checkReports(report, allInfos(true));
    checkVersion();
    checkSections(report);
    checkBonjour(report, "Standard Bonjour: ", WinSysInfo::checkStandardBonjour, "checkStandardBonjour");
    checkBonjour(report, "velkor DNS-SD: ", WinSysInfo::checkVelkorBonjour, "checkVelkorBonjour");
    checkOpenGL(report);
    std::printf("vkSystemInfo %s on %s: %d problems\n", qPrintable(libVersionString()), qPrintable(platformName()), problems);
    return problems == 0 ? 0 : 1;
}
