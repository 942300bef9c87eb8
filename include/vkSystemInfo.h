// vkSystemInfo: a plain-text report about the machine a Qt application runs on.
//
// This header is the whole public interface. vkSystemInfo.dll exports the functions
// marked VKSYSTEMINFO_EXPORT and nothing else. Of the class ScanOpenGLInfo these are its
// two static functions.
//
// Rules that hold for every function:
//
//  * Text. A section is returned as a new QString of lines, each ended by a
//    single line feed. Wording, spelling and blanks are a fixed format: support
//    staff compare reports of different machines and of different years. A text is the
//    host's own: it stays valid when the DLL is unloaded.
//  * Failure. Nothing is thrown on purpose and no error is returned (but by the
//    two DNS-SD checks). A query that fails drops its own line or becomes a fixed
//    line of text, and the report goes on. Running out of memory may throw
//    std::bad_alloc.
//  * Thread and application object. Call every function on the GUI thread of a running
//    QApplication. Where a function says that it needs less, that was measured with Qt
//    5.15.8; another Qt may need more. "Needs no application object" was measured on a
//    thread other than the main one, too. What happens with less, also measured:
//    qtScreens and qtDesktop show no screen where there is no QGuiApplication. There
//    allInfos(false), GetOpenGLVersion and GetOpenGLVersionCached end the process, and
//    allInfos(false) does where the QGuiApplication is no QApplication (natively; not
//    measured on Windows).
//    The library starts no thread, takes no lock and keeps no state but the OpenGL
//    version record.
//  * Side effects. The library reads. It writes no file, no registry key and
//    sends nothing; host names may be looked up by Qt.
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

/// The whole report: the Windows section, the sections built from Qt queries and,
/// unless \a noOpenGL is true, the OpenGL section. Needs a running QApplication;
/// with \a noOpenGL a QGuiApplication is enough. Takes as long as the platform
/// takes to answer: printers, remote drives and host names can be slow. The host's
/// manifest changes the name of the Windows release: see platformName().
VKSYSTEMINFO_EXPORT QString allInfos(bool noOpenGL);

/// The line that divides the sections: 72 hyphens and a line feed.
VKSYSTEMINFO_EXPORT QString separator();

/// The version of this library. Mind the order, which hosts rely on: \a patch is
/// set to 12, \a minor to 3 and \a major to 1. Needs no application object.
VKSYSTEMINFO_EXPORT void libVersion(int &patch, int &minor, int &major);

/// The version of this library as text, "1.3.12". Needs no application object.
VKSYSTEMINFO_EXPORT QString libVersionString();

/// The name of the running Windows release on one line without a line feed, such
/// as "Windows 10 Professional Edition, 64-bit"; "Windows" when Windows does not
/// tell its version. Modelled on GetVersionEx and GetProductInfo. Needs no
/// application object.
///
/// GetVersionEx goes by the host's manifest. To a host without one it gives 6.2 from
/// Windows 8 on, and the registry decides on the name. To a host whose manifest names
/// Windows 10 as supported (supportedOS) it gives 10.0, and the name is "Windows unknown
/// major version"; where the manifest names nothing newer than Windows 8.1 it gives 6.3,
/// and the name is "Windows unknown minor version for major=6".
VKSYSTEMINFO_EXPORT QString platformName();

/// Section "Qt Global": the Qt versions the library was built against and runs
/// with, byte order, word and pointer size. Needs no application object.
VKSYSTEMINFO_EXPORT QString qtGlobal();

/// Section "QCoreApplication": version, name, paths and process id of the host, as
/// QCoreApplication tells them. Needs a QCoreApplication.
VKSYSTEMINFO_EXPORT QString qtCoreApplication();

/// Section "QLocale": country, language and measurement system of
/// QLocale::system(). Needs no application object.
VKSYSTEMINFO_EXPORT QString qtLocale();

/// Local time, UTC and the bias between them in minutes (UTC minus local time, so
/// negative east of Greenwich); a section without a title. Modelled on
/// QDateTime. The digits of the times are those of QLocale::system(), such as
/// Arabic-Indic ones (measured with Qt 5.15.8); the bias has European ones. Needs no
/// application object.
VKSYSTEMINFO_EXPORT QString qtDateTime();

/// Section "QHostInfo": local host and domain name. Needs no application object.
VKSYSTEMINFO_EXPORT QString qtHostInfo();

/// Section "Qt Accessibility": 1 when an assistive technology is active, else 0,
/// as QAccessible::isActive() tells. Needs a QGuiApplication.
VKSYSTEMINFO_EXPORT QString qtAccessibility();

/// Section "QPrinterInfo": the names of the available printers, the default one
/// marked. Modelled on QPrinterInfo; asks the print system, which can take
/// seconds when a print server is away. Needs a QGuiApplication.
VKSYSTEMINFO_EXPORT QString qtPrinterInfo();

/// The environment of the process, an entry a line, as
/// QProcess::systemEnvironment() tells. May hold secrets: ask the user before a
/// report leaves the machine. Needs no application object.
VKSYSTEMINFO_EXPORT QString qtSystemEnvironment();

/// Section "QScreen (hardware)": per screen its name, maker, densities (dots per
/// inch), refresh rate (Hz), physical size (millimetres and inches), size (pixels),
/// depth (bits) and orientations. Modelled on QScreen. Needs a QGuiApplication.
VKSYSTEMINFO_EXPORT QString qtScreens();

/// Section "QScreen (Desktop)": the desktop file name, the primary screen, and per
/// screen its geometries (pixels) and virtual siblings. Modelled on QScreen. Needs
/// a QGuiApplication.
VKSYSTEMINFO_EXPORT QString qtDesktop();

/// Section "QDesktopServices": path and display name of seven standard folders,
/// as QStandardPaths tells them. Needs a QCoreApplication.
VKSYSTEMINFO_EXPORT QString qtDesktopServices();

namespace WinSysInfo {

/// True when the standard DNS-SD client library, dnssd.dll, can be loaded.
/// \a errorCode is set to 0, or to the error that its DNSServiceGetProperty gave
/// when asked for the daemon's version (-65563 when the daemon is not running).
/// \a version is set to a text such as "321.0.0" on success only, otherwise it is
/// left as it was. The library is loaded and freed within the call. Needs no
/// application object.
VKSYSTEMINFO_EXPORT bool checkStandardBonjour(int &errorCode, QString &version);

/// As checkStandardBonjour, for the maker's own build of it, vkdnssd.dll.
VKSYSTEMINFO_EXPORT bool checkVelkorBonjour(int &errorCode, QString &version);

} // namespace WinSysInfo

/// What OpenGL the machine supports, as QGLFormat::openGLVersionFlags() tells.
struct COpenGLVersionInfo
{
    bool bDefault = true;     ///< true until a probe has filled the record
    qint32 nVersionFlags = 0; ///< the raw QGLFormat::OpenGLVersionFlags
    qint32 nMajor = -1;       ///< highest desktop version found; -1 when none
    qint32 nMinor = -1;       ///< its minor number; -1 when none
    QString strVersion;       ///< such as "OpenGL 4.3"; "not recognized"
};

/// Finds out the supported OpenGL version and writes the report's OpenGL section. Hosts
/// can call the two static functions. Nothing else of the class is exported: a host that
/// constructs it, derives from it, calls another member, casts to it with qobject_cast
/// or names its staticMetaObject does not link.
class ScanOpenGLInfo : public QObject
{
    Q_OBJECT

public:
    explicit ScanOpenGLInfo(QObject *parent);
    ~ScanOpenGLInfo() override;

    /// Asks Qt at every call. Needs a running QApplication.
    VKSYSTEMINFO_EXPORT static COpenGLVersionInfo GetOpenGLVersion();

    /// Asks Qt at the first call only and keeps the answer as long as the library
    /// is loaded. Needs a running QApplication; not guarded against concurrent
    /// first calls.
    VKSYSTEMINFO_EXPORT static COpenGLVersionInfo GetOpenGLVersionCached();

    // Used by the library itself.
    void GetOpenGLInfo(QString &info);
    QString GetOpenGLDriverInfo(QString &info);
};

} // namespace SystemInfo
} // namespace velkor
