// The GUIDs of Windows that Qt names. Those of mingw-w64's library cannot be linked: it defines all in one
// object, some of which Qt's plug-ins define too.
#define INITGUID
#include <windows.h>
// These headers need windows.h.
#include <shlguid.h>
#include <shlobj.h>
#include <shobjidl.h>
