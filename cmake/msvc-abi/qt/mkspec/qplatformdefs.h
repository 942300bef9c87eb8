// The C library is that of mingw-w64's headers.
#include "../win32-g++/qplatformdefs.h"
