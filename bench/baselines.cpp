#include "baselines.h"

#include "report/section_table.h"
#include "vkSystemInfo.h"
#include "win/windows_sections.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QLocale>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtGui/QAccessible>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtNetwork/QHostInfo>
#include <QtNetwork/QNetworkInterface>
#include <QtOpenGL/QGLFormat>
#include <QtOpenGL/QGLWidget>
#include <QtPrintSupport/QPrinterInfo>
#include <memory>
#include <windows.h>

using namespace velkor::SystemInfo;
using namespace velkor::SystemInfo::WinSysInfo;

namespace bench {
namespace {

/// With braces, so that its values are asked for from left to right.
struct KeepAll
{
    template <typename... T>
    explicit KeepAll(const T &...values)
    {
        (keep(values), ...);
    }
};

void askDateTime()
{
    const QDateTime local = QDateTime::currentDateTime();
    keep(local.toTimeSpec(Qt::UTC));
}

void askApplication()
{
    KeepAll {QCoreApplication::libraryPaths(), QCoreApplication::applicationVersion(), QCoreApplication::applicationName(),
             QCoreApplication::applicationDirPath(), QCoreApplication::applicationFilePath(),
             QCoreApplication::applicationPid(), QCoreApplication::organizationDomain(),
             QCoreApplication::organizationName()};
}

void askLocale()
{
    const QLocale locale = QLocale::system();
    KeepAll {QLocale::countryToString(locale.country()), QLocale::languageToString(locale.language()),
             locale.measurementSystem()};
}

void askScreens()
{
    for (const QScreen *screen : QGuiApplication::screens()) {
        KeepAll {screen->name(), screen->manufacturer(), screen->physicalDotsPerInchX(), screen->physicalDotsPerInchY(),
                 screen->logicalDotsPerInchX(), screen->logicalDotsPerInchY(), screen->devicePixelRatio(),
                 screen->refreshRate(), screen->physicalSize(), screen->size(), screen->size(), screen->depth(),
                 screen->orientation(), screen->nativeOrientation(), screen->primaryOrientation()};
    }
}

void askDesktop()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    const QScreen *primary = QGuiApplication::primaryScreen();
    KeepAll {QGuiApplication::desktopFileName(), primary ? primary->name() : QString()};
    for (const QScreen *screen : screens) {
        KeepAll {screen->geometry(), screen->availableGeometry(), screen->availableVirtualGeometry(),
                 screen->virtualSiblings()};
    }
}

void askDesktopServices()
{
    for (const auto location : {QStandardPaths::DesktopLocation, QStandardPaths::DocumentsLocation,
                                QStandardPaths::HomeLocation, QStandardPaths::DataLocation, QStandardPaths::TempLocation,
                                QStandardPaths::ApplicationsLocation, QStandardPaths::FontsLocation})
        KeepAll {QStandardPaths::writableLocation(location), QStandardPaths::displayName(location)};
}

void askAccessibility()
{
    keep(QAccessible::isActive());
}

void askPrinters()
{
    for (const QPrinterInfo &printer : QPrinterInfo::availablePrinters())
        KeepAll {printer.printerName(), printer.isDefault()};
}

void askHostInfo()
{
    KeepAll {QHostInfo::localHostName(), QHostInfo::localDomainName()};
}

// That its adapters are asked about behind and not between these makes no
// difference: allInterfaces() asks the system, what follows reads memory.
void askNetworkInterfaces()
{
    for (const QNetworkInterface &networkInterface : QNetworkInterface::allInterfaces()) {
        KeepAll {networkInterface.index(), networkInterface.humanReadableName(), networkInterface.flags(),
                 networkInterface.hardwareAddress()};
        for (const QNetworkAddressEntry &entry : networkInterface.addressEntries())
            KeepAll {entry.ip(), entry.netmask(), entry.broadcast()};
    }
}

void askSystemEnvironment()
{
    keep(QProcess::systemEnvironment());
}

QString windowsDirectory()
{
    wchar_t buffer[MAX_PATH] = {};
    GetSystemWindowsDirectoryW(buffer, MAX_PATH);
    return QString(reinterpret_cast<const QChar *>(buffer));
}

QString winSxSPath; // put together once, before anything is measured

void askWinSxS()
{
    const QDir directory(winSxSPath);
    if (!directory.exists())
        keep(directory.absolutePath());
    else
        keep(directory.entryList({QStringLiteral("*Microsoft.VC*CRT*")}, QDir::Dirs, QDir::Name));
}

void askOpenGLFormat()
{
    const QGLFormat format;
    KeepAll {format, QGLFormat::hasOpenGL(), QGLFormat::hasOpenGLOverlays(), QGLFormat::openGLVersionFlags()};
}

void askOpenGLContext()
{
    QGLWidget widget;
    widget.makeCurrent();
    KeepAll {glGetString(GL_VERSION), glGetString(GL_VENDOR), glGetString(GL_RENDERER), glGetString(GL_EXTENSIONS)};
}

/// The Qt queries of a section: before its Windows calls, and after them.
struct QtQueries
{
    const char *section;
    void (*before)();
    void (*after)() = nullptr;
};

constexpr QtQueries qtQueries[] = {
    {"winSxSDirectoryEntries", nullptr, askWinSxS},
    {"qtDateTime", askDateTime},
    {"qtGlobal", [] { keep(qVersion()); }},
    {"qtCoreApplication", askApplication},
    {"qtLocale", askLocale},
    {"qtScreens", askScreens},
    {"qtDesktop", askDesktop},
    {"qtDesktopServices", askDesktopServices},
    {"qtAccessibility", askAccessibility},
    {"qtPrinterInfo", askPrinters},
    {"qtHostInfo", askHostInfo},
    {"qtNetworkInterfaces", askNetworkInterfaces},
    {"qtSystemEnvironment", askSystemEnvironment},
    {"GetOpenGLInfo", askOpenGLFormat, askOpenGLContext},
};

QtQueries qtQueriesOf(const Section &section)
{
    for (const QtQueries &queries : qtQueries) {
        if (qstrcmp(queries.section, section.name) == 0)
            return queries;
    }
    return {section.name, nullptr};
}

struct Baseline
{
    Section section;
    CallList calls;

    void run() const
    {
        const QtQueries queries = qtQueriesOf(section);
        if (queries.before)
            queries.before();
        calls.play();
        if (queries.after)
            queries.after();
    }
};

using BaselinePointer = std::shared_ptr<const Baseline>;

std::vector<BaselinePointer> makeBaselines(const Recordings &recordings)
{
    winSxSPath = windowsDirectory() + QStringLiteral("\\WinSxS");
    std::vector<BaselinePointer> baselines;
    const auto add = [&](const Section &section) {
        for (const auto &[name, calls] : recordings) {
            if (name == section.name)
                baselines.push_back(std::make_shared<const Baseline>(Baseline {section, CallList(calls)}));
        }
    };
    for (const Section &section : SectionTable())
        add(section);
    return baselines;
}

Subject together(const char *name, QString (*text)(), std::vector<BaselinePointer> baselines)
{
    std::size_t calls = 0;
    for (const BaselinePointer &baseline : baselines)
        calls += baseline->calls.size();
    return {name, text, [baselines = std::move(baselines)] {
                for (const BaselinePointer &baseline : baselines)
                    baseline->run();
            },
            calls};
}

} // namespace

Recordings recordSections(bool withOpenGL)
{
    keep(allInfos(!withOpenGL)); // Windows loads modules for it, which its last section then lists
    Recordings recordings;
    for (const Section &section : SectionTable()) {
        if (withOpenGL || section.part != Part::OpenGL)
            recordings.emplace_back(section.name, recorded([&] { keep(section.text()); }));
    }
    return recordings;
}

std::vector<Subject> makeSubjects(const Recordings &recordings, bool withOpenGL)
{
    const std::vector<BaselinePointer> all = makeBaselines(recordings);
    std::vector<BaselinePointer> withoutOpenGL;
    std::vector<BaselinePointer> windowsHalf;
    for (const BaselinePointer &baseline : all) {
        if (baseline->section.part == Part::Windows)
            windowsHalf.push_back(baseline);
        if (baseline->section.part != Part::OpenGL)
            withoutOpenGL.push_back(baseline);
    }
    std::vector<Subject> subjects;
    if (withOpenGL)
        subjects.push_back(together(
            "allInfos(false)", [] { return allInfos(false); }, all));
    subjects.push_back(together(
        "allInfos(true)", [] { return allInfos(true); }, withoutOpenGL));
    subjects.push_back(together("allWinInfos", allWinInfos, windowsHalf));
    for (const BaselinePointer &baseline : all)
        subjects.push_back(together(baseline->section.name, baseline->section.text, {baseline}));
    return subjects;
}

} // namespace bench
