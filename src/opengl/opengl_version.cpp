#include "opengl/opengl_version.h"

#include "report/text.h"

#include <QtOpenGL/QGLFormat>

namespace velkor {
namespace SystemInfo {
namespace {

struct KnownVersion
{
    QGLFormat::OpenGLVersionFlag flag;
    const char *name;
    qint32 major = -1;
    qint32 minor = -1;
};

/// The first row whose flag is set applies. Desktop versions precede ES versions.
constexpr KnownVersion knownVersions[] = {
    {QGLFormat::OpenGL_Version_4_3, "OpenGL 4.3", 4, 3},
    {QGLFormat::OpenGL_Version_4_2, "OpenGL 4.2", 4, 2},
    {QGLFormat::OpenGL_Version_4_1, "OpenGL 4.1", 4, 1},
    {QGLFormat::OpenGL_Version_4_0, "OpenGL 4.0", 4, 0},
    {QGLFormat::OpenGL_Version_3_3, "OpenGL 3.3", 3, 3},
    {QGLFormat::OpenGL_Version_3_2, "OpenGL 3.2", 3, 2},
    {QGLFormat::OpenGL_Version_3_1, "OpenGL 3.1", 3, 1},
    {QGLFormat::OpenGL_Version_3_0, "OpenGL 3.0", 3, 0},
    {QGLFormat::OpenGL_Version_2_1, "OpenGL 2.1", 2, 1},
    {QGLFormat::OpenGL_Version_2_0, "OpenGL 2.0", 2, 0},
    {QGLFormat::OpenGL_Version_1_5, "OpenGL 1.5", 1, 5},
    {QGLFormat::OpenGL_Version_1_4, "OpenGL 1.4", 1, 4},
    {QGLFormat::OpenGL_Version_1_3, "OpenGL 1.3", 1, 3},
    {QGLFormat::OpenGL_Version_1_2, "OpenGL 1.2", 1, 2},
    {QGLFormat::OpenGL_Version_1_1, "OpenGL 1.1", 1, 1},
    {QGLFormat::OpenGL_ES_Version_2_0, "OpenGL ES 2.0"},
    {QGLFormat::OpenGL_ES_Common_Version_1_1, "OpenGL ES Common 1.1"},
    {QGLFormat::OpenGL_ES_Common_Version_1_0, "OpenGL ES Common 1.0"},
    {QGLFormat::OpenGL_ES_CommonLite_Version_1_1, "OpenGL ES Common Lite 1.1"},
    {QGLFormat::OpenGL_ES_CommonLite_Version_1_0, "OpenGL ES Common Lite 1.0"},
};

COpenGLVersionInfo cachedVersion;

} // namespace

COpenGLVersionInfo openGLVersionFromFlags(qint32 flags)
{
    COpenGLVersionInfo info;
    info.bDefault = false;
    info.nVersionFlags = flags;
    for (const KnownVersion &version : knownVersions) {
        if (!(flags & version.flag))
            continue;
        info.nMajor = version.major;
        info.nMinor = version.minor;
        info.strVersion = QString::fromLatin1(version.name);
        return info;
    }
    info.strVersion = QStringLiteral("not recognized");
    return info;
}

ScanOpenGLInfo::ScanOpenGLInfo(QObject *parent)
    : QObject(parent)
{ }

ScanOpenGLInfo::~ScanOpenGLInfo() = default;

COpenGLVersionInfo ScanOpenGLInfo::GetOpenGLVersion()
{
    COpenGLVersionInfo info = openGLVersionFromFlags(qint32(QGLFormat::openGLVersionFlags()));
    info.strVersion = detached(info.strVersion);
    return info;
}

COpenGLVersionInfo ScanOpenGLInfo::GetOpenGLVersionCached()
{
    if (cachedVersion.bDefault)
        cachedVersion = GetOpenGLVersion();
    return cachedVersion;
}

} // namespace SystemInfo
} // namespace velkor
