#include "report/text.h"
#include "vkSystemInfo.h"
#include "win/registry_key.h"

#include <QtOpenGL/QGLFormat>
#include <QtOpenGL/QGLWidget>

namespace velkor {
namespace SystemInfo {
namespace {

using WinSysInfo::RegistryKey;
using WinSysInfo::TextBuffer;

QString openGLString(GLenum name)
{
    return QString::fromLatin1(reinterpret_cast<const char *>(glGetString(name)));
}

/// What a context of the default format tells of itself. The widget is never shown.
QString directCalls()
{
    QGLWidget widget;
    widget.makeCurrent();
    const QString version = openGLString(GL_VERSION);
    const QString vendor = openGLString(GL_VENDOR);
    const QString renderer = openGLString(GL_RENDERER);
    const QString extensions = openGLString(GL_EXTENSIONS);
    return QStringLiteral("#### Direct OpenGL calls (using QGLWidget with default QGLFormat) ####\n")
        + QStringLiteral("glGetString(GL_VERSION)  = %1\n").arg(version)
        + QStringLiteral("glGetString(GL_VENDOR)   = %1\n").arg(vendor)
        + QStringLiteral("glGetString(GL_RENDERER) = %1\n").arg(renderer)
        + QStringLiteral("glGetString(GL_EXTENSIONS) = %1\n").arg(extensions);
}

} // namespace

void ScanOpenGLInfo::GetOpenGLInfo(QString &info)
{
    info.clear();
    const QGLFormat format; // not asked, but made: it brings up Qt's OpenGL support
    const bool hasOpenGL = QGLFormat::hasOpenGL();
    const bool hasOverlays = QGLFormat::hasOpenGLOverlays();
    info += QStringLiteral("#### QGLFormat #### \n");
    info += QStringLiteral("hasOpenGL         %1\n").arg(int(hasOpenGL));
    info += QStringLiteral("hasOpenGLOverlays %1\n").arg(int(hasOverlays));
    const COpenGLVersionInfo version = GetOpenGLVersion();
    info += QStringLiteral("openGLVersionFlags 0x%1 %2").arg(version.nVersionFlags, 0, 16).arg(version.strVersion) + newline;
    GetOpenGLDriverInfo(info); // what it returns has no place in the report
    if (hasOpenGL)
        info += directCalls();
}

QString ScanOpenGLInfo::GetOpenGLDriverInfo(QString &info)
{
    info += QStringLiteral("#### Info about the OpenGL driver DLL's from registry ###\n");
    const QString path = QStringLiteral("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\OpenGLDrivers");
    const RegistryKey drivers(HKEY_LOCAL_MACHINE, path);
    if (!drivers)
        return QString();
    TextBuffer name;
    for (DWORD i = 0; RegEnumKeyA(drivers.get(), i, name.data(), WinSysInfo::valueBufferSize) == LSTATUS(ERROR_SUCCESS); ++i) {
        info += QStringLiteral("%1   ").arg(name.text());
        const RegistryKey driver(HKEY_LOCAL_MACHINE, QStringLiteral("%1\\%2").arg(path).arg(name.text()));
        TextBuffer dll;
        if (driver && dll.query(driver.get(), "dll"))
            info += QStringLiteral("%1.dll").arg(dll.text());
        info += newline;
    }
    return newline; // not into the section, which must not end with an empty line
}

} // namespace SystemInfo
} // namespace velkor
