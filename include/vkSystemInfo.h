// vkSystemInfo: plain-text system report for diagnosing Qt applications.
//
// This header is the whole public interface. vkSystemInfo.dll exports only the functions
// marked VKSYSTEMINFO_EXPORT. Two of them are static functions of the class ScanOpenGLInfo.
//
// These rules hold for every function:
//
//  * Text. A section is a new QString of lines; each line ends with a single line feed.
//    Wording, spelling and blanks are a fixed format, because support staff compare reports
//    of different machines and years. A returned text owns its data: it stays valid after
//    the DLL is unloaded.
//  * Failure. The functions throw no exceptions of their own; running out of memory may
//    throw std::bad_alloc. Only the two DNS-SD checks return an error code. A failed query
//    drops its own line or becomes a fixed line of text, and the report continues.
//  * Thread and application object. Call every function on the GUI thread of a running
//    QApplication. Some functions state that they need less. This was measured with Qt
//    5.15.8; other versions may need more. "Needs no application object" was also measured
//    on a thread other than the main thread. Measured results of calls with less:
//      - Without a QGuiApplication, qtScreens and qtDesktop show no screen.
//      - Without a QGuiApplication, allInfos(false), GetOpenGLVersion and
//        GetOpenGLVersionCached end the process.
//      - With a QGuiApplication that is not a QApplication, allInfos(false) ends the process.
//    The ends of the process were measured on Linux only.
//    The library starts no thread and takes no lock. Its only state is the OpenGL version
//    record.
//  * Safety. A driver that crashes in a call ends the host, and a server that does not answer
//    makes it wait. A host that must not risk this starts vkreport, which comes back with the
//    rest of the report (docs/robustness.md). The DNS-SD libraries are loaded by bare name, from
//    the folders of the search path. A host that runs with more rights than its user, such as a
//    service, must first remove folders in which others can write: the current folder by
//    SetDllDirectory(L""), others from PATH. Or it starts vkreport with the rights of the user.
//  * Side effects. The library only reads. It writes no file and no registry key, and sends
//    nothing. Qt may look up host names.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#if defined(VKSYSTEMINFO_STATIC)
#  define VKSYSTEMINFO_EXPORT
#elif defined(VKSYSTEMINFO_BUILD)
#  define VKSYSTEMINFO_EXPORT Q_DECL_EXPORT
#else
#  define VKSYSTEMINFO_EXPORT Q_DECL_IMPORT
#endif

namespace velkor {
namespace SystemInfo {

/// The whole report: the Windows half, the Qt half and, unless \a noOpenGL is true, the
/// OpenGL section. Needs a running QApplication; with \a noOpenGL a QGuiApplication is
/// enough. Takes as long as the platform's queries take: printers, remote drives and host
/// names can be slow. The host's manifest affects the name of the Windows release: see
/// platformName().
VKSYSTEMINFO_EXPORT QString allInfos(bool noOpenGL);

/// The line that divides the sections: 72 hyphens and a line feed.
VKSYSTEMINFO_EXPORT QString separator();

/// The version of this library: \a patch is set to 12, \a minor to 3 and \a major to 1.
/// Note the order of the arguments. Needs no application object.
VKSYSTEMINFO_EXPORT void libVersion(int &patch, int &minor, int &major);

/// The version of this library as text, "1.3.12". Needs no application object.
VKSYSTEMINFO_EXPORT QString libVersionString();

/// The name of the running Windows release without a line feed, such as "Windows 10
/// Professional Edition, 64-bit". It is "Windows" if GetVersionEx fails. Modelled on
/// GetVersionEx and GetProductInfo. Needs no application object.
///
/// The result of GetVersionEx depends on the host's manifest (supportedOS) from Windows 8
/// on. The name is:
///  - without a manifest: GetVersionEx returns 6.2, and the registry determines the name;
///  - if the manifest names Windows 8.1 but nothing newer: GetVersionEx returns 6.3, and the
///    name is "Windows unknown minor version for major=6";
///  - if the manifest names Windows 10: GetVersionEx returns 10.0, and the name is "Windows
///    unknown major version".
VKSYSTEMINFO_EXPORT QString platformName();

/// Section "Qt Global": the Qt version that the library was built against, the one that
/// runs, byte order, word and pointer size. Needs no application object.
VKSYSTEMINFO_EXPORT QString qtGlobal();

/// Section "QCoreApplication": version, name, paths and process id of the host. Modelled
/// on QCoreApplication. Needs a QCoreApplication.
VKSYSTEMINFO_EXPORT QString qtCoreApplication();

/// Section "QLocale": country, language and measurement system of
/// QLocale::system(). Needs no application object.
VKSYSTEMINFO_EXPORT QString qtLocale();

/// Local time, UTC and the bias in minutes (UTC minus local time, so negative east of
/// Greenwich); a section without a title. Modelled on QDateTime. The times have the digits
/// of QLocale::system(), such as Arabic-Indic digits (measured with Qt 5.15.8); the bias has
/// European digits. Needs no application object.
VKSYSTEMINFO_EXPORT QString qtDateTime();

/// Section "QHostInfo": local host and domain name. Needs no application object.
VKSYSTEMINFO_EXPORT QString qtHostInfo();

/// Section "Qt Accessibility": 1 if an assistive technology is active, otherwise 0.
/// Modelled on QAccessible::isActive(). Needs a QGuiApplication.
VKSYSTEMINFO_EXPORT QString qtAccessibility();

/// Section "QPrinterInfo": the names of the available printers; the default printer is
/// marked. Modelled on QPrinterInfo. Queries the print system, which can take seconds if a
/// print server is not reachable. Needs a QGuiApplication.
VKSYSTEMINFO_EXPORT QString qtPrinterInfo();

/// The environment variables of the process, one on each line. Modelled on
/// QProcess::systemEnvironment(). They may hold secrets: ask the user before a report leaves
/// the machine. Needs no application object.
VKSYSTEMINFO_EXPORT QString qtSystemEnvironment();

/// Section "QScreen (hardware)": for each screen its name, manufacturer, density (dots per
/// inch), refresh rate (Hz), physical size (millimetres and inches), size (pixels), depth
/// (bits) and orientations. Modelled on QScreen. Needs a QGuiApplication.
VKSYSTEMINFO_EXPORT QString qtScreens();

/// Section "QScreen (Desktop)": the desktop file name, the primary screen, and for each
/// screen its geometries (pixels) and virtual siblings. Modelled on QScreen. Needs a
/// QGuiApplication.
VKSYSTEMINFO_EXPORT QString qtDesktop();

/// Section "QDesktopServices": path and display name of seven standard folders. Modelled on
/// QStandardPaths. Needs a QCoreApplication.
VKSYSTEMINFO_EXPORT QString qtDesktopServices();

namespace WinSysInfo {

/// Loads the standard DNS-SD client library, dnssd.dll, queries its version and frees it.
/// Returns true if the library can be loaded. \a errorCode is set to 0, or to the error of
/// DNSServiceGetProperty for the version of the daemon (-65563 if the daemon is not running).
/// \a version is set to a text such as "321.0.0" if that query succeeds, and otherwise
/// unchanged. Needs no application object.
VKSYSTEMINFO_EXPORT bool checkStandardBonjour(int &errorCode, QString &version);

/// checkStandardBonjour() for the manufacturer's own build of the library, vkdnssd.dll.
VKSYSTEMINFO_EXPORT bool checkVelkorBonjour(int &errorCode, QString &version);

} // namespace WinSysInfo

/// The OpenGL version that the machine supports. Modelled on QGLFormat::openGLVersionFlags().
struct COpenGLVersionInfo
{
    bool bDefault = true;     ///< true until GetOpenGLVersion() has filled the record
    qint32 nVersionFlags = 0; ///< the raw QGLFormat::OpenGLVersionFlags
    qint32 nMajor = -1;       ///< highest desktop version; -1 if there is none
    qint32 nMinor = -1;       ///< its minor number; -1 if there is none
    QString strVersion;       ///< such as "OpenGL 4.3", or "not recognized"
};

/// Determines the supported OpenGL version and returns the OpenGL section of the report.
/// Hosts can call the two static functions; the library exports nothing else of the class.
/// A host does not link if it constructs the class, derives from it, calls another member,
/// uses qobject_cast to it or names its staticMetaObject.
class ScanOpenGLInfo : public QObject
{
    Q_OBJECT

public:
    explicit ScanOpenGLInfo(QObject *parent);
    ~ScanOpenGLInfo() override;

    /// Queries Qt at every call. Needs a running QApplication.
    VKSYSTEMINFO_EXPORT static COpenGLVersionInfo GetOpenGLVersion();

    /// Queries Qt at the first call only, and keeps the result while the library is loaded.
    /// Needs a running QApplication. Not thread-safe: concurrent first calls are a data race.
    VKSYSTEMINFO_EXPORT static COpenGLVersionInfo GetOpenGLVersionCached();

    // Used by the library itself.
    void GetOpenGLInfo(QString &info);
    QString GetOpenGLDriverInfo(QString &info);
};

} // namespace SystemInfo
} // namespace velkor
