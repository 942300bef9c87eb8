// The platform-dependent part of independent_gl.
#pragma once

/// Creates an OpenGL context of the default version and makes it current. Nothing destroys it,
/// because the program ends soon.
bool makeContextCurrent();
