// Stands in for glGetString() in the program that it is linked into.
#pragma once

#include <functional>

namespace gl_strings {

/// Asked instead of OpenGL, with the name as a number, by calls of the program itself;
/// those of its libraries, Qt among them, reach OpenGL. Empty: all do.
extern std::function<const char *(unsigned name)> answer;

} // namespace gl_strings
