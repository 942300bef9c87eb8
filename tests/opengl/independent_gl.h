// What differs between the systems in independent_gl.
#pragma once

/// Makes a plain OpenGL context, of no particular version, and makes it current. It
/// is never taken down: the program ends soon.
bool makeContextCurrent();
