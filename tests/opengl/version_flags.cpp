#include "version_flags.h"

#include <QtOpenGL/QGLFormat>
#include <dlfcn.h>

namespace version_flags {

std::optional<int> pretended;
int calls = 0;

} // namespace version_flags

// The linker prefers this definition to that of QtOpenGL.
QGLFormat::OpenGLVersionFlags QGLFormat::openGLVersionFlags()
{
    using Function = OpenGLVersionFlags (*)();
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "_ZN9QGLFormat18openGLVersionFlagsEv"));
    ++version_flags::calls;
    return version_flags::pretended ? OpenGLVersionFlags(*version_flags::pretended) : real();
}
