#include "floors.h"

#include "qt/qt_network_interfaces.h"
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

QString allDiskDevices()
{
    QString text;
    for (const char *enumerator : {"FDC", "IDE", "SCSI", "USBSTOR"})
        text += diskDevicesFromRegistry(QString::fromLatin1(enumerator));
    return text;
}

QString allPorts()
{
    const QString parallel = portsFromRegistry(QStringLiteral("PARALLEL PORTS"));
    return parallel + portsFromRegistry(QStringLiteral("SERIALCOMM"));
}

QString openGLSection()
{
    ScanOpenGLInfo scan(nullptr);
    QString info;
    scan.GetOpenGLInfo(info);
    return info;
}

struct Section
{
    const char *name;
    QString (*text)();
    bool isWindows;
    void (*askBefore)() = nullptr; // what it asks of Qt before it calls Windows
    void (*askBehind)() = nullptr; // and behind that
};

// In the report's order.
constexpr Section sections[] = {
    {"windowsVersion", [] { return windowsVersion(true); }, true},
    {"windowsVersionFromRegistry", windowsVersionFromRegistry, true},
    {"internetExplorerInfo", internetExplorerInfo, true},
    {"processorInfo", processorInfo, true},
    {"processorRegistryInfo", processorRegistryInfo, true},
    {"memoryInfo", memoryInfo, true},
    {"computerNames", computerNames, true},
    {"userName", userName, true},
    {"oemInfoFromRegistry", oemInfoFromRegistry, true},
    {"systemInformationFromRegistry", systemInformationFromRegistry, true},
    {"biosInfoFromRegistry", biosInfoFromRegistry, true},
    {"videoInfoFromRegistry", videoInfoFromRegistry, true},
    {"driverInfoFromRegistry", driverInfoFromRegistry, true},
    {"timeZoneInfoFromRegistry", timeZoneInfoFromRegistry, true},
    {"installedApplicationsFromRegistry", installedApplicationsFromRegistry, true},
    {"installedVisualBasicApplications", installedVisualBasicApplications, true},
    {"winSxSDirectoryEntries", winSxSDirectoryEntries, true, nullptr, askWinSxS},
    {"someEnvironmentVariables", someEnvironmentVariables, true},
    {"diskInformation", diskInformation, true},
    {"diskDevicesFromRegistry", allDiskDevices, true},
    {"portsFromRegistry", allPorts, true},
    {"registryQuota", registryQuota, true},
    {"windowsSystemDirectories", windowsSystemDirectories, true},
    {"specialFolders", specialFolders, true},
    {"standardBonjourStatus", standardBonjourStatus, true},
    {"velkorBonjourStatus", velkorBonjourStatus, true},
    {"sharedDllRefCount", sharedDllRefCount, true},
    {"loadedModulesList", loadedModulesList, true},
    {"qtDateTime", qtDateTime, false, askDateTime},
    {"qtGlobal", qtGlobal, false, [] { keep(qVersion()); }},
    {"qtCoreApplication", qtCoreApplication, false, askApplication},
    {"qtLocale", qtLocale, false, askLocale},
    {"qtScreens", qtScreens, false, askScreens},
    {"qtDesktop", qtDesktop, false, askDesktop},
    {"qtDesktopServices", qtDesktopServices, false, askDesktopServices},
    {"qtAccessibility", qtAccessibility, false, askAccessibility},
    {"qtPrinterInfo", qtPrinterInfo, false, askPrinters},
    {"qtHostInfo", qtHostInfo, false, askHostInfo},
    {"qtNetworkInterfaces", qtNetworkInterfaces, false, askNetworkInterfaces},
    {"qtSystemEnvironment", qtSystemEnvironment, false, askSystemEnvironment},
};
constexpr Section openGL = {"openGL", openGLSection, false, askOpenGLFormat, askOpenGLContext};

struct Floor
{
    Section section;
    CallList calls;

    void run() const
    {
        if (section.askBefore)
            section.askBefore();
        calls.play();
        if (section.askBehind)
            section.askBehind();
    }
};

using FloorPointer = std::shared_ptr<const Floor>;

std::vector<FloorPointer> makeFloors(const Recordings &recordings)
{
    winSxSPath = windowsDirectory() + QStringLiteral("\\WinSxS");
    std::vector<FloorPointer> floors;
    const auto add = [&](const Section &section) {
        for (const auto &[name, calls] : recordings) {
            if (name == section.name)
                floors.push_back(std::make_shared<const Floor>(Floor {section, CallList(calls)}));
        }
    };
    for (const Section &section : sections)
        add(section);
    add(openGL);
    return floors;
}

Subject together(const char *name, QString (*text)(), std::vector<FloorPointer> floors)
{
    std::size_t calls = 0;
    for (const FloorPointer &floor : floors)
        calls += floor->calls.size();
    return {name, text, [floors = std::move(floors)] {
                for (const FloorPointer &floor : floors)
                    floor->run();
            },
            calls};
}

} // namespace

Recordings recordSections(bool withOpenGL)
{
    keep(allInfos(!withOpenGL)); // Windows loads modules for it, which its last section then lists
    Recordings recordings;
    for (const Section &section : sections)
        recordings.emplace_back(section.name, recorded([&] { keep(section.text()); }));
    if (withOpenGL)
        recordings.emplace_back(openGL.name, recorded([&] { keep(openGL.text()); }));
    return recordings;
}

std::vector<Subject> makeSubjects(const Recordings &recordings, bool withOpenGL)
{
    const std::vector<FloorPointer> all = makeFloors(recordings);
    std::vector<FloorPointer> withoutOpenGL;
    std::vector<FloorPointer> windowsHalf;
    for (const FloorPointer &floor : all) {
        if (floor->section.isWindows)
            windowsHalf.push_back(floor);
        if (qstrcmp(floor->section.name, openGL.name) != 0)
            withoutOpenGL.push_back(floor);
    }
    std::vector<Subject> subjects;
    if (withOpenGL)
        subjects.push_back(together(
            "allInfos(false)", [] { return allInfos(false); }, all));
    subjects.push_back(together(
        "allInfos(true)", [] { return allInfos(true); }, withoutOpenGL));
    subjects.push_back(together("allWinInfos", allWinInfos, windowsHalf));
    for (const FloorPointer &floor : all)
        subjects.push_back(together(floor->section.name, floor->section.text, {floor}));
    return subjects;
}

} // namespace bench
