// Prints the strings of an OpenGL context, which it creates without Qt: one line each for version,
// vendor, renderer and extensions.

#include "independent_gl.h"

#ifdef _WIN32
#  include <windows.h>
#endif
#include <GL/gl.h>
#include <cstdio>
#include <initializer_list>

int main()
{
    if (!makeContextCurrent()) {
        std::fputs("no OpenGL context can be made\n", stderr);
        return 1;
    }
    for (const GLenum name : {GL_VERSION, GL_VENDOR, GL_RENDERER, GL_EXTENSIONS}) {
        const GLubyte *text = glGetString(name);
        std::printf("%s\n", text ? reinterpret_cast<const char *>(text) : "");
    }
    return 0;
}
