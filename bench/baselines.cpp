#include "baselines.h"

#include "call_list.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QHash>
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

namespace bench {
namespace {

/// Stops the compiler from removing queries whose values nobody reads. Its braces make the
/// compiler evaluate the queries from left to right.
struct Keep
{
    template <typename... T>
    explicit Keep(const T &...values)
    {
        (keepAddress(&values), ...);
    }

    [[gnu::noipa]] static void keepAddress(const void *) { }
};

void queryDateTime()
{
    const QDateTime local = QDateTime::currentDateTime();
    Keep {local.toTimeSpec(Qt::UTC)};
}

void queryApplication()
{
    Keep {QCoreApplication::libraryPaths(), QCoreApplication::applicationVersion(), QCoreApplication::applicationName(),
          QCoreApplication::applicationDirPath(), QCoreApplication::applicationFilePath(),
          QCoreApplication::applicationPid(), QCoreApplication::organizationDomain(),
          QCoreApplication::organizationName()};
}

void queryLocale()
{
    const QLocale locale = QLocale::system();
    Keep {QLocale::countryToString(locale.country()), QLocale::languageToString(locale.language()),
          locale.measurementSystem()};
}

void queryScreens()
{
    for (const QScreen *screen : QGuiApplication::screens()) {
        Keep {screen->name(), screen->manufacturer(), screen->physicalDotsPerInchX(), screen->physicalDotsPerInchY(),
              screen->logicalDotsPerInchX(), screen->logicalDotsPerInchY(), screen->devicePixelRatio(),
              screen->refreshRate(), screen->physicalSize(), screen->size(), screen->size(), screen->depth(),
              screen->orientation(), screen->nativeOrientation(), screen->primaryOrientation()};
    }
}

void queryDesktop()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    const QScreen *primary = QGuiApplication::primaryScreen();
    Keep {QGuiApplication::desktopFileName(), primary ? primary->name() : QString()};
    for (const QScreen *screen : screens) {
        Keep {screen->geometry(), screen->availableGeometry(), screen->availableVirtualGeometry(),
              screen->virtualSiblings()};
    }
}

void queryDesktopServices()
{
    for (const auto location : {QStandardPaths::DesktopLocation, QStandardPaths::DocumentsLocation,
                                QStandardPaths::HomeLocation, QStandardPaths::DataLocation,
                                QStandardPaths::TempLocation, QStandardPaths::ApplicationsLocation,
                                QStandardPaths::FontsLocation})
        Keep {QStandardPaths::writableLocation(location), QStandardPaths::displayName(location)};
}

void queryPrinters()
{
    for (const QPrinterInfo &printer : QPrinterInfo::availablePrinters())
        Keep {printer.printerName(), printer.isDefault()};
}

void queryHostInfo()
{
    Keep {QHostInfo::localHostName(), QHostInfo::localDomainName()};
}

// Only allInterfaces() queries the system. The library calls GetAdaptersInfo between the
// other queries and the baseline after them, which costs the same.
void queryNetworkInterfaces()
{
    for (const QNetworkInterface &networkInterface : QNetworkInterface::allInterfaces()) {
        Keep {networkInterface.index(), networkInterface.humanReadableName(), networkInterface.flags(),
              networkInterface.hardwareAddress()};
        for (const QNetworkAddressEntry &entry : networkInterface.addressEntries())
            Keep {entry.ip(), entry.netmask(), entry.broadcast()};
    }
}

QString winSxSPath; // set before anything is measured

void queryWinSxS()
{
    const QDir directory(winSxSPath);
    if (!directory.exists())
        Keep {directory.absolutePath()};
    else
        Keep {directory.entryList({QStringLiteral("*Microsoft.VC*CRT*")}, QDir::Dirs, QDir::Name)};
}

void queryOpenGLFormat()
{
    const QGLFormat format;
    Keep {format, QGLFormat::hasOpenGL(), QGLFormat::hasOpenGLOverlays(), QGLFormat::openGLVersionFlags()};
}

void queryOpenGLContext()
{
    QGLWidget widget;
    widget.makeCurrent();
    Keep {glGetString(GL_VERSION), glGetString(GL_VENDOR), glGetString(GL_RENDERER), glGetString(GL_EXTENSIONS)};
}

using Query = void (*)();

/// The Qt queries of a section before its Windows calls.
const QHash<QByteArray, Query> queriesBefore = {
    {"qtDateTime", queryDateTime},
    {"qtGlobal", [] { Keep {qVersion()}; }},
    {"qtCoreApplication", queryApplication},
    {"qtLocale", queryLocale},
    {"qtScreens", queryScreens},
    {"qtDesktop", queryDesktop},
    {"qtDesktopServices", queryDesktopServices},
    {"qtAccessibility", [] { Keep {QAccessible::isActive()}; }},
    {"qtPrinterInfo", queryPrinters},
    {"qtHostInfo", queryHostInfo},
    {"qtNetworkInterfaces", queryNetworkInterfaces},
    {"qtSystemEnvironment", [] { Keep {QProcess::systemEnvironment()}; }},
    {"GetOpenGLInfo", queryOpenGLFormat},
};

/// And after them.
const QHash<QByteArray, Query> queriesAfter = {
    {"winSxSDirectoryEntries", queryWinSxS},
    {"GetOpenGLInfo", queryOpenGLContext},
};

} // namespace

Side makeBaseline(const Subject &subject, const Recordings &recordings)
{
    winSxSPath = simulated::machineInUse().system.GetSystemWindowsDirectory.value.value_or(QString());
    winSxSPath += QStringLiteral("\\WinSxS");
    std::vector<std::function<void()>> steps;
    for (const velkor::SystemInfo::Section &section : subject.sections) {
        if (const Query query = queriesBefore.value(section.name))
            steps.push_back(query);
        steps.push_back(makeCallList(recordings.value(section.name)));
        if (const Query query = queriesAfter.value(section.name))
            steps.push_back(query);
    }
    return {"baseline", [steps] {
                for (const auto &step : steps)
                    step();
            }};
}

} // namespace bench
