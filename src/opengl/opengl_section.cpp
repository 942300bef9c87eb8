#include "opengl/opengl_sections.h"
#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtOpenGL/QGLFormat>
#include <QtOpenGL/QGLWidget>

namespace velkor {
namespace SystemInfo {
namespace {

QString openGLString(GLenum name)
{
    return QString::fromLatin1(reinterpret_cast<const char *>(glGetString(name)));
}

/// Queries a context of the default format. Its widget is never shown.
void appendDirectCalls(QString &info)
{
    QGLWidget widget;
    widget.makeCurrent();
    const QString version = openGLString(GL_VERSION);
    const QString vendor = openGLString(GL_VENDOR);
    const QString renderer = openGLString(GL_RENDERER);
    const QString extensions = openGLString(GL_EXTENSIONS);
    appendLine(info, QStringLiteral("#### Direct OpenGL calls (using QGLWidget with default QGLFormat) ####"));
    appendLine(info, "glGetString(GL_VERSION)  = %1", version);
    appendLine(info, "glGetString(GL_VENDOR)   = %1", vendor);
    appendLine(info, "glGetString(GL_RENDERER) = %1", renderer);
    appendLine(info, "glGetString(GL_EXTENSIONS) = %1", extensions);
}

} // namespace

void ScanOpenGLInfo::GetOpenGLInfo(QString &info)
{
    info.clear();
    const QGLFormat format; // unused; constructing it initialises Qt OpenGL
    const bool hasOpenGL = QGLFormat::hasOpenGL();
    const bool hasOverlays = QGLFormat::hasOpenGLOverlays();
    appendLine(info, QStringLiteral("#### QGLFormat #### "));
    appendLine(info, QStringLiteral("hasOpenGL         %1").arg(int(hasOpenGL)));
    appendLine(info, QStringLiteral("hasOpenGLOverlays %1").arg(int(hasOverlays)));
    const COpenGLVersionInfo version = GetOpenGLVersion();
    appendLine(info, QStringLiteral("openGLVersionFlags 0x%1 %2").arg(version.nVersionFlags, 0, 16).arg(version.strVersion));
    GetOpenGLDriverInfo(info); // its result is not part of the report
    if (hasOpenGL)
        appendDirectCalls(info);
}

QString openGLSection()
{
    ScanOpenGLInfo scan(nullptr);
    QString info;
    scan.GetOpenGLInfo(info);
    return info;
}

} // namespace SystemInfo
} // namespace velkor
