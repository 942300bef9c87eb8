// Replaces glGetString() in the program that links it.
#pragma once

#include <functional>

namespace gl_strings {

/// Called with the name instead of glGetString(), if the caller is code of the program itself.
/// Calls by libraries such as Qt reach OpenGL, and all calls do if the function is empty.
extern std::function<const char *(unsigned name)> answer;

} // namespace gl_strings
