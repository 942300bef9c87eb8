#include "gl_strings.h"

#include <GL/gl.h>
#include <dlfcn.h>

namespace gl_strings {
namespace {

/// The base address of the program or library that contains \a address.
void *moduleOf(void *address)
{
    Dl_info info = {};
    dladdr(address, &info);
    return info.dli_fbase;
}

} // namespace

std::function<const char *(unsigned)> answer;

} // namespace gl_strings

// The linker prefers this definition to that of the OpenGL library.
const GLubyte *glGetString(GLenum name)
{
    using Function = const GLubyte *(*)(GLenum);
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "glGetString"));
    if (!gl_strings::answer || gl_strings::moduleOf(__builtin_return_address(0)) != gl_strings::moduleOf(&gl_strings::answer))
        return real(name);
    return reinterpret_cast<const GLubyte *>(gl_strings::answer(name));
}
